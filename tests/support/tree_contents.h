// A page's contents read the plain way, from the markup parser's tree: what the one-pass reader is compared
// with.
#pragma once

#include <string>

#include "crawler/page_contents.h"

namespace support {

/// What a tree of `markup` (valid UTF-8) says, with "//title" and "//a" for the places to look at.
crawler::PageContents contentsOfTree(const std::string& markup);

}  // namespace support
