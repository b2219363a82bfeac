// Notices sites that give the same document under ever more addresses, so that a scan of them may never end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace crawler {

/// What the user is told about such a site.
struct EndlessHint {
  int addresses = 0;        // visited so far that gave the same document
  std::string url;          // the first of them that was noticed
  std::string_view filter;  // that would keep such addresses out: "#" or "?"; empty when neither would

  /// "This scan may not end: 200 addresses gave the same page as URL".
  std::string text() const;
};

/// Counts documents that come again under addresses that grow: by a path that repeats itself, or by queries
/// or fragments behind the same path. Works in bounded memory: of many different ones the rare are forgotten.
class RepeatWatch {
 public:
  RepeatWatch();

  /// Notes a visited address. Gives the hint once: when the 200th address that grew has given the same
  /// document.
  std::optional<EndlessHint> visited(std::string_view url, std::uint64_t fingerprint);

 private:
  struct Slot {
    std::uint64_t growth = 0;
    int count = 0;  // lowered by other documents that fall on the same slot
    std::string firstUrl;
  };

  std::vector<Slot> m_slots;
  bool m_told = false;
};

}  // namespace crawler
