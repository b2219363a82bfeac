#include "web/character_references.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "platform/ascii.h"
#include "web/character_reference_table.h"

namespace web {

namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr std::uint32_t kLastCode = 0x10FFFF;

/// Of 0x80 to 0x9F; 0 where windows-1252 has nothing.
constexpr std::uint16_t kWindows1252[] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                          0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::uint32_t meaningOf(std::uint32_t code) {
  if (code == 0 || code > kLastCode || (code >= 0xD800 && code <= 0xDFFF)) return kReplacement;
  if (code < 0x80 || code > 0x9F) return code;
  const std::uint32_t character = kWindows1252[code - 0x80];
  return character != 0 ? character : code;
}

void appendUtf8(std::string& to, std::uint32_t code) {
  const auto append = [&](std::uint32_t byte) { to += static_cast<char>(byte); };
  const auto following = [&](unsigned shift) { append(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    append(code);
  } else if (code < 0x800) {
    append(0xC0 | code >> 6);
    following(0);
  } else if (code < 0x10000) {
    append(0xE0 | code >> 12);
    following(6);
    following(0);
  } else {
    append(0xF0 | code >> 18);
    following(12);
    following(6);
    following(0);
  }
}

/// 16 and above for what is no digit.
std::uint32_t digitValue(char c) {
  if (platform::isAsciiDigit(c)) return static_cast<std::uint32_t>(c - '0');
  const char lower = platform::lowerAscii(c);
  return lower >= 'a' && lower <= 'f' ? static_cast<std::uint32_t>(lower - 'a' + 10) : 16;
}

/// `text` begins with "&#".
std::size_t appendNumbered(std::string& to, std::string_view text) {
  const bool isHex = text.size() > 2 && platform::lowerAscii(text[2]) == 'x';
  const std::uint32_t base = isHex ? 16 : 10;
  const std::size_t digits = isHex ? 3 : 2;
  std::size_t end = digits;
  std::uint32_t code = 0;
  for (; end < text.size() && digitValue(text[end]) < base; ++end) {
    code = std::min(code * base + digitValue(text[end]), kLastCode + 1);
  }
  if (end == digits) return 0;
  appendUtf8(to, meaningOf(code));
  return end < text.size() && text[end] == ';' ? end + 1 : end;
}

/// The longest name at the start of `text`; null when there is none.
const NamedReference* longestName(std::string_view text) {
  const NamedReference* begin = std::begin(kNamedReferences);
  const NamedReference* end = std::end(kNamedReferences);
  const NamedReference* longest = nullptr;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    begin = std::partition_point(begin, end, [&](const NamedReference& each) { return each.name[i] < c; });
    end = std::partition_point(begin, end, [&](const NamedReference& each) { return each.name[i] == c; });
    if (begin == end || c == '\0') break;
    if (begin->name[i + 1] == '\0') longest = begin;
  }
  return longest;
}

std::size_t appendNamed(std::string& to, std::string_view text, ReferencePlace place) {
  const NamedReference* found = longestName(text.substr(1));
  if (found == nullptr) return 0;
  const std::string_view name = found->name;
  const std::size_t length = name.size() + 1;
  const bool isClosed = name.back() == ';';
  if (place == ReferencePlace::attribute && !isClosed && length < text.size() &&
      (text[length] == '=' || platform::isAsciiLetter(text[length]) ||
       platform::isAsciiDigit(text[length]))) {
    return 0;
  }
  to += found->text;
  return length;
}

}  // namespace

std::size_t appendReference(std::string& to, std::string_view text, ReferencePlace place) {
  if (text.size() < 2) return 0;
  if (text[1] == '#') return appendNumbered(to, text);
  return platform::isAsciiLetter(text[1]) ? appendNamed(to, text, place) : 0;
}

}  // namespace web
