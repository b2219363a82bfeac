// Texts that keep a link out of the sitemaps wherever they stand in its address: the user's filters, robots
// rules.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace crawler {

/// A list of texts to look for in addresses, whatever their case. An empty text excludes nothing.
class Exclusions {
 public:
  Exclusions() = default;
  explicit Exclusions(const std::vector<std::string>& texts);

  bool empty() const { return m_folded.empty(); }

  /// Whether any of the texts stands in `foldedLink`, which went through platform::foldCase().
  bool exclude(std::string_view foldedLink) const;

 private:
  std::vector<std::string> m_folded;
};

}  // namespace crawler
