#include "sitemaps/script_text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <utility>

#include "platform/ascii.h"

namespace sitemaps {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::string_view kBlanks = platform::kBlanks;

/// Takes one letter of an attribute's value, spelled as it is or as a reference; those that a target may have
/// in it without meaning come back as blanks. References to other letters are of no interest: nothing then.
std::optional<char> takeLetter(std::string_view& value) {
  for (const auto& [name, letter] :
       {std::pair<std::string_view, char>{"&Tab;", ' '}, {"&NewLine;", ' '}, {"&colon;", ':'}}) {
    if (!value.starts_with(name)) continue;
    value.remove_prefix(name.size());
    return letter;
  }
  unsigned code = static_cast<unsigned char>(value.front());
  if (value.starts_with("&#")) {
    const bool isHex = value.size() > 2 && platform::lowerAscii(value[2]) == 'x';
    value.remove_prefix(isHex ? 3 : 2);
    const auto [stop, error] =
        std::from_chars(value.data(), value.data() + value.size(), code, isHex ? 16 : 10);
    if (error != std::errc() || code > 0x7F) return std::nullopt;
    value.remove_prefix(static_cast<std::size_t>(stop - value.data()));
    if (value.starts_with(';')) value.remove_prefix(1);
  } else {
    value.remove_prefix(1);
  }
  return code <= ' ' ? ' ' : static_cast<char>(code);
}

bool isScriptTarget(std::string_view value) {
  std::string_view rest = "javascript:";
  while (!value.empty()) {
    const auto letter = takeLetter(value);
    if (!letter) return false;
    if (*letter == ' ') continue;
    if (platform::lowerAscii(*letter) != rest.front()) return false;
    rest.remove_prefix(1);
    if (rest.empty()) return true;
  }
  return false;
}

/// Reads the attributes of one tag, as browsers do.
class TagReader {
 public:
  /// `text` begins behind the tag's name.
  explicit TagReader(std::string_view text) : m_text(text) {}

  bool holdsScript() {
    while (skip("\t\n\f\r /") && m_text[m_at] != '>') {
      const std::string_view name = take(1, "\t\n\f\r />=");
      if (!skip(kBlanks) || m_text[m_at] != '=') continue;
      ++m_at;
      if (name.size() > 2 && platform::startsWithAnyCase(name, "on")) return true;
      if (isScriptTarget(takeValue())) return true;
    }
    return false;
  }

  /// How far the tag reaches.
  std::size_t size() const { return std::min(m_at, m_text.size()); }

 private:
  /// False at the end of the text.
  bool skip(std::string_view letters) {
    m_at = std::min(m_text.find_first_not_of(letters, m_at), m_text.size());
    return m_at < m_text.size();
  }

  /// At least `least` letters, and then all up to one of `ends`.
  std::string_view take(std::size_t least, std::string_view ends) {
    const std::size_t begin = m_at;
    m_at = std::min(m_text.find_first_of(ends, m_at + least), m_text.size());
    return m_text.substr(begin, m_at - begin);
  }

  std::string_view takeValue() {
    if (!skip(kBlanks)) return {};
    const char quote = m_text[m_at];
    if (quote != '"' && quote != '\'') return take(0, "\t\n\f\r >");
    ++m_at;
    const std::string_view value = take(0, std::string_view(&quote, 1));
    ++m_at;
    return value;
  }

  std::string_view m_text;
  std::size_t m_at = 0;
};

}  // namespace

bool holdsScriptText(std::string_view document) {
  // Each "<" is taken for the start of a tag, also within comments and quotes, since programs do not agree on
  // where those end. A text with so many quotes open that this takes long was made for no good purpose.
  std::size_t budget = 4 * document.size() + (1U << 20);
  for (std::size_t at = 0; (at = document.find('<', at)) != kNowhere;) {
    ++at;
    if (at == document.size() || !platform::isAsciiLetter(document[at])) continue;
    const std::string_view tag = document.substr(at);
    if (platform::startsWithAnyCase(tag, "script")) return true;
    const std::size_t nameEnd = std::min(tag.find_first_of("\t\n\f\r />"), tag.size());
    TagReader reader(tag.substr(nameEnd));
    if (reader.holdsScript()) return true;
    const std::size_t cost = nameEnd + reader.size();
    if (cost > budget) return true;
    budget -= cost;
  }
  return false;
}

}  // namespace sitemaps
