// The query of an address, in the encoding of the page that it stands on.
#pragma once

#include <string>
#include <string_view>

#include "platform/page_encoding.h"

namespace platform {

/// The bytes that browsers send for a query (WHATWG Encoding). `utf8` is valid. A character that the encoding
/// lacks is written by its number, as "%26%238224%3B"; nothing else is percent-encoded. Pages in UTF-16 have
/// queries in UTF-8.
std::string encodeQuery(std::string_view utf8, const Encoding& encoding);

}  // namespace platform
