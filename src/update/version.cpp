#include "update/version.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/ascii.h"

namespace update {

namespace {

using platform::isAsciiDigit;

constexpr std::size_t kMaxCharacters = 100;

enum class Kind { word, end, number };  // in the order in which what stands at one place is newer

struct Component {
  Kind kind = Kind::end;
  std::string_view text = {};  // of a number without zeros in front; of a word as written
};

/// Bytes beyond ASCII belong to letters.
bool isLetter(char c) {
  return platform::isAsciiLetter(c) || static_cast<unsigned char>(c) >= 0x80;
}

std::string_view withoutMark(std::string_view text) {
  text = platform::trimmed(text);
  const bool isMarked = text.size() > 1 && platform::lowerAscii(text[0]) == 'v' && isAsciiDigit(text[1]);
  return isMarked ? text.substr(1) : text;
}

/// The run at the start of `text` of what `belongs`; nothing when the first byte does not.
std::string_view runOf(std::string_view text, bool (*belongs)(char)) {
  std::size_t size = 0;
  while (size < text.size() && belongs(text[size])) ++size;
  return text.substr(0, size);
}

void dropZeros(std::vector<Component>& components) {
  while (!components.empty() && components.back().kind == Kind::number && components.back().text.empty())
    components.pop_back();
}

/// Ends with Kind::end. Zeros in front of a word are at an end, too: 2.0b1 is 2b1.
std::vector<Component> componentsOf(std::string_view version) {
  std::vector<Component> components;
  std::string_view rest = withoutMark(version);
  rest = rest.substr(0, rest.find('+'));
  while (!rest.empty()) {
    const std::string_view digits = runOf(rest, isAsciiDigit);
    const std::string_view letters = runOf(rest, isLetter);
    if (!digits.empty())
      components.push_back(
          {Kind::number, digits.substr(std::min(digits.find_first_not_of('0'), digits.size()))});
    if (!letters.empty()) {
      dropZeros(components);
      components.push_back({Kind::word, letters});
    }
    rest.remove_prefix(std::max<std::size_t>(digits.size() + letters.size(), 1));
  }
  dropZeros(components);
  components.push_back({});
  return components;
}

std::weak_ordering compare(const Component& left, const Component& right) {
  if (left.kind != right.kind) return left.kind <=> right.kind;
  if (left.kind == Kind::word) return platform::lowerAscii(left.text) <=> platform::lowerAscii(right.text);
  if (left.text.size() != right.text.size()) return left.text.size() <=> right.text.size();
  return left.text <=> right.text;
}

}  // namespace

bool isVersion(std::string_view text) {
  const std::string_view version = withoutMark(text);
  const auto isShown = [](char c) { return c >= ' ' && c <= '~'; };
  return !version.empty() && version.size() <= kMaxCharacters && isAsciiDigit(version.front()) &&
         std::all_of(version.begin(), version.end(), isShown);
}

std::weak_ordering compareVersions(std::string_view left, std::string_view right) {
  const std::vector<Component> leftOnes = componentsOf(left);
  const std::vector<Component> rightOnes = componentsOf(right);
  // Where one ends the other goes on, or ends as well.
  for (std::size_t i = 0; i < leftOnes.size() && i < rightOnes.size(); ++i) {
    const std::weak_ordering order = compare(leftOnes[i], rightOnes[i]);
    if (order != 0) return order;
  }
  return std::weak_ordering::equivalent;
}

}  // namespace update
