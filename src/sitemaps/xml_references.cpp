#include "sitemaps/xml_references.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

namespace sitemaps {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kEntities = {
    {{"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}}};
constexpr std::size_t kLongestReference = 12;  // with its leading zeros; nobody writes more of them

constexpr bool isXmlCharacter(std::uint32_t code) {
  return code == '\t' || code == '\n' || code == '\r' || (code >= 0x20 && code <= 0xD7FF) ||
         (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

std::string asUtf8(std::uint32_t code) {
  const auto byte = [](std::uint32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
  const auto tail = [&](int shift) { return byte(0x80 | ((code >> shift) & 0x3F)); };
  if (code < 0x80) return {byte(code)};
  if (code < 0x800) return {byte(0xC0 | (code >> 6)), tail(0)};
  if (code < 0x10000) return {byte(0xE0 | (code >> 12)), tail(6), tail(0)};
  return {byte(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)};
}

/// What stands for the reference `name` ("amp", "#38", "#x26"); empty for none that is known.
std::string referenced(std::string_view name) {
  for (const auto& [entity, character] : kEntities) {
    if (name == entity) return std::string(character);
  }
  if (!name.starts_with('#')) return {};
  name.remove_prefix(1);
  const bool hex = name.starts_with('x');
  if (hex) name.remove_prefix(1);
  std::uint32_t code = 0;
  const char* end = name.data() + name.size();
  const auto [read, error] = std::from_chars(name.data(), end, code, hex ? 16 : 10);
  return error == std::errc() && read == end && isXmlCharacter(code) ? asUtf8(code) : std::string();
}

}  // namespace

std::optional<XmlReference> referenceAt(std::string_view text) {
  if (!text.starts_with('&')) return std::nullopt;
  const std::size_t end = text.substr(1, kLongestReference).find(';');
  if (end == std::string_view::npos) return std::nullopt;
  std::string character = referenced(text.substr(1, end));
  if (character.empty()) return std::nullopt;
  return XmlReference{end + 2, std::move(character)};
}

std::size_t behindSection(std::string_view text, std::size_t at) {
  for (const auto& [start, ending] :
       {std::pair<std::string_view, std::string_view>{"<!--", "-->"}, {"<![CDATA[", "]]>"}}) {
    if (!text.substr(at).starts_with(start)) continue;
    const std::size_t found = text.find(ending, at + start.size());
    return found == std::string_view::npos ? text.size() : found + ending.size();
  }
  return at;
}

}  // namespace sitemaps
