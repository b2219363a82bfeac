// Texts that keep a link out of the sitemaps wherever they stand in its address: the user's filters, robots
// rules.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace crawler {

/// A list of texts to look for in addresses, whatever their case. An empty text stands nowhere. All are
/// looked for in one pass, whose time depends on the link and hardly on their number (the automaton of Aho
/// and Corasick). Building it takes time by the length of the texts together, and at most 13 bytes for each
/// of their folded bytes.
class Exclusions {
 public:
  explicit Exclusions(const std::vector<std::string>& texts);

  bool empty() const { return m_empty; }

  /// Index of the first text in the list that stands in `link`; nothing when none does.
  std::optional<std::size_t> find(std::string_view link) const;

 private:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  /// What was read so far ends in the beginning of a text. The node for the longest such beginning tells of
  /// all.
  struct Node {
    std::uint32_t firstChild = 0;     // those of one node lie side by side, up to the next node's first
    std::uint32_t shorter = 0;        // the node for the longest shorter beginning that this one ends in
    std::uint32_t firstText = kNone;  // of those that end here
  };

  void build(const std::vector<std::string>& folded);
  std::uint32_t childOf(std::uint32_t node, char letter) const;
  std::uint32_t next(std::uint32_t node, char letter) const;

  bool m_empty = true;
  std::vector<std::string> m_few;  // folded; without an automaton
  std::vector<Node> m_nodes;       // level by level, the root first; one more at the end, for its firstChild
  std::vector<char> m_letters;     // that lead to the nodes
  std::array<std::uint32_t, 256> m_fromRoot{};  // the root's children by letter; the root where it has none
};

}  // namespace crawler
