// Character sets and case, by Unicode's rules.
#pragma once

#include <array>
#include <stop_token>
#include <string>
#include <string_view>

#include "platform/page_encoding.h"

namespace platform {

/// `utf8` with its case folded (Unicode full case folding, no locale): two texts that differ in case alone
/// fold to the same bytes. Invalid UTF-8 is taken as U+FFFD. All-ASCII text takes a fast path.
std::string foldCase(std::string_view utf8);

/// A page's bytes as UTF-8, decoded as browsers do (WHATWG Encoding): byte-order mark, else the charset of
/// the Content-Type header, else a meta declaration in the first 1024 bytes or in the rest of the head, else
/// windows-1252. Labels are those of the Encoding standard, so iso-8859-1 and us-ascii mean windows-1252; an
/// unknown label counts as none. A meta declaration of UTF-16 means UTF-8, since it could be read. Bad bytes
/// and U+0000 become U+FFFD; a byte-order mark is dropped. The result is always valid UTF-8. `contentType` is
/// the whole header value ("text/html; charset=utf-8"), empty when there was none.
/// A stop ends the work early; what was decoded until then comes back.
std::string decodePage(std::string bytes, std::string_view contentType, std::stop_token stop = {});

/// Likewise in an encoding that pageEncoding() has found.
std::string decodePage(std::string bytes, const PageEncoding& encoding, std::stop_token stop = {});

/// What the bytes from 80 on stand for, where one byte is a character; U+FFFD for those that stand for
/// nothing.
std::array<char16_t, 128> upperHalf(const Encoding& encoding);

/// Bytes read as UTF-8: bad ones become U+FFFD, a byte-order mark is dropped.
std::string decodeUtf8(std::string bytes);

/// The MIME type of a Content-Type header: without parameters and blanks, in lower case. Empty when there is
/// none.
std::string mimeType(std::string_view contentType);

}  // namespace platform
