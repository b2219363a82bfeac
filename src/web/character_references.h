// Character references: "&amp;", "&#38;", "&#x26;", and what browsers take for one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace web {

/// In an attribute a name without ";" is none in front of "=", letters and digits: addresses are full of
/// "&copy=1".
enum class ReferencePlace { text, attribute };

/// Appends what the reference at the start of `text` means, which begins with "&". Returns the reference's
/// length; 0 when there is none, and then nothing is appended. Numbers that mean no character, surrogates
/// too, give U+FFFD; those from 0x80 to 0x9F mean what they do in windows-1252.
std::size_t appendReference(std::string& to, std::string_view text, ReferencePlace place);

}  // namespace web
