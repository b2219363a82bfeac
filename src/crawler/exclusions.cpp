#include "crawler/exclusions.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

#include "platform/text.h"

namespace crawler {

namespace {

constexpr std::uint32_t kRoot = 0;

/// So many texts are found faster one after the other.
constexpr std::size_t kFew = 2;

std::uint32_t index(std::size_t value) {
  return static_cast<std::uint32_t>(value);
}

}  // namespace

Exclusions::Exclusions(const std::vector<std::string>& texts) {
  std::vector<std::string> folded;
  folded.reserve(texts.size());
  for (const std::string& text : texts) folded.push_back(platform::foldCase(text));
  m_empty = std::all_of(folded.begin(), folded.end(), [](const std::string& text) { return text.empty(); });
  if (texts.size() > kFew) {
    build(folded);
  } else {
    m_few = std::move(folded);
  }
}

void Exclusions::build(const std::vector<std::string>& folded) {
  std::vector<std::uint32_t> order(folded.size());
  std::iota(order.begin(), order.end(), 0u);
  std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return folded[a] < folded[b]; });

  /// The texts, in order, that begin with what leads to a node.
  struct Range {
    std::uint32_t begin;
    std::uint32_t end;
  };
  std::vector<Range> ranges = {{0, index(order.size())}};
  m_nodes.resize(1);
  m_letters.resize(1);
  std::size_t levelEnd = 1;
  for (std::size_t node = 0, depth = 0; node < m_nodes.size(); ++node) {
    if (node == levelEnd) {
      levelEnd = m_nodes.size();
      ++depth;
    }
    m_nodes[node].firstChild = index(m_nodes.size());
    Range range = ranges[node];
    while (range.begin < range.end) {
      const std::string& text = folded[order[range.begin]];
      if (text.size() ==
          depth) {  // ends here; the shortest come first, and of equal ones the first in the list
        if (depth > 0) m_nodes[node].firstText = std::min(m_nodes[node].firstText, order[range.begin]);
        ++range.begin;
        continue;
      }
      const char letter = text[depth];
      std::uint32_t end = range.begin + 1;
      while (end < range.end && folded[order[end]][depth] == letter) ++end;
      m_nodes.emplace_back();
      m_letters.push_back(letter);
      ranges.push_back({range.begin, end});
      if (node == kRoot) m_fromRoot[static_cast<unsigned char>(letter)] = index(m_nodes.size() - 1);
      range.begin = end;
    }
  }
  m_nodes.push_back({.firstChild = index(m_nodes.size())});
  m_letters.push_back('\0');

  // A node's shorter one lies on a level above, so it is complete before the node's children come.
  for (std::uint32_t node = kRoot; node + 1 < m_nodes.size(); ++node) {
    for (std::uint32_t child = m_nodes[node].firstChild; child < m_nodes[node + 1].firstChild; ++child) {
      Node& below = m_nodes[child];
      if (node != kRoot) below.shorter = next(m_nodes[node].shorter, m_letters[child]);
      below.firstText = std::min(below.firstText, m_nodes[below.shorter].firstText);
    }
  }
}

std::optional<std::size_t> Exclusions::find(std::string_view link) const {
  if (m_empty) return {};
  const std::string folded = platform::foldCase(link);
  for (std::size_t i = 0; i < m_few.size(); ++i) {
    if (!m_few[i].empty() && folded.find(m_few[i]) != std::string::npos) return i;
  }
  if (m_nodes.empty()) return {};
  std::uint32_t first = kNone;
  std::uint32_t node = kRoot;
  for (const char letter : folded) {
    node = next(node, letter);
    first = std::min(first, m_nodes[node].firstText);
  }
  if (first == kNone) return {};
  return first;
}

std::uint32_t Exclusions::next(std::uint32_t node, char letter) const {
  while (node != kRoot) {
    const std::uint32_t child = childOf(node, letter);
    if (child != kRoot) return child;
    node = m_nodes[node].shorter;
  }
  return m_fromRoot[static_cast<unsigned char>(letter)];
}

/// The root when there is none: nothing leads to it.
std::uint32_t Exclusions::childOf(std::uint32_t node, char letter) const {
  const std::uint32_t begin = m_nodes[node].firstChild;
  const std::uint32_t count = m_nodes[node + 1].firstChild - begin;
  if (count == 0) return kRoot;
  const char* letters = m_letters.data() + begin;
  if (*letters == letter) return begin;
  if (count == 1) return kRoot;
  const auto* found =
      static_cast<const char*>(std::memchr(letters, static_cast<unsigned char>(letter), count));
  return found == nullptr ? kRoot : begin + index(static_cast<std::size_t>(found - letters));
}

}  // namespace crawler
