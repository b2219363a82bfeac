// Markup and addresses to measure with.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

/// The bytes of real pages from the installed documentation, some 2 MB; generated ones when there is none.
/// The same at every call.
const std::vector<std::string>& samplePages();

/// Addresses of `count` pages in folders, below "http://www.example.test/".
std::vector<std::string> pageAddresses(std::size_t count);

/// Hrefs of the kinds that pages hold, as written.
const std::vector<std::string>& sampleHrefs();

}  // namespace bench
