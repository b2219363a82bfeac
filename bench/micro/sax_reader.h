// A page's links by libxml2's SAX interface: what our own reader is measured against.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// Reads `page` and keeps its title, and each anchor's target and text. Returns how many anchors there are.
std::size_t readBySax(const std::string& page);

}  // namespace bench
