// What a scan has left out, and why: counted by reason, with a few examples each.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/link_rules.h"

namespace crawler {

struct LeftOutExample {
  std::string address;  // made absolute, except of links that are too long or too many for their page
  std::string page;     // that the link stands on; empty for a page that was fetched
};

/// All that was left out for one reason, which of filters and robots rules is each one.
struct LeftOutGroup {
  LinkReason reason = LinkReason::none;
  std::string which =
      {};  // the filter or robots rule; empty for other reasons, and for further ones together
  std::int64_t count = 0;  // of links, as often as they were found; for the reasons of pages, of pages
  std::vector<LeftOutExample> examples = {};  // the first ones, no address twice

  /// "by its ending", "by the filter "x"", fit to stand behind "1 link" or behind the number of several.
  std::string reasonText(std::int64_t several = 1) const;
  /// Whether pages of the site may be missing for this reason.
  bool mayMissPages() const;
};

/// What was left out, by reason in a fixed order: first those for which pages may be missing.
struct LeftOut {
  std::vector<LeftOutGroup> groups = {};

  bool mayMissPages() const;

  /// Whether links were left out that browsers would ask the server about: only simple rules do that.
  bool browserRulesMayFindMore() const;

  /// "Left out: 12 links by their ending (for example http://...), 3 by the filter "x" (http://...)." Tells
  /// of three reasons at most and how many there are for others. Empty where nothing is worth telling: links
  /// out of the site and second names of pages are not. Holds texts of the site as they are.
  std::string sentence() const;
};

/// The reason's name in files and JSON.
std::string_view nameOf(LinkReason reason);
/// The one of that name; nothing for a name that is none's.
std::optional<LinkReason> reasonNamed(std::string_view name);

/// Counts while a scan runs. What it holds is bounded, whatever the site: ten examples a reason, and of
/// filters and robots rules the first hundred that apply, further ones together.
class LeftOutCounter {
 public:
  static constexpr std::size_t kExamples = 10;
  static constexpr std::size_t kNamed = 100;
  static constexpr std::size_t kTextBytes = 2'000;  // of an address, filter or rule; longer ones are cut

  /// `which` is the index of a filter or robots rule and `name` its text; 0 and empty for other reasons.
  void count(LinkReason reason, std::string_view address, std::string_view page, std::size_t which = 0,
             std::string_view name = {});

  LeftOut result() const;

 private:
  std::uint8_t newPlace(LinkReason reason, std::string_view name);

  /// By reason and `which`: the place in m_groups, from 1; 0 for what was not met yet.
  std::array<std::vector<std::uint8_t>, kLinkReasons> m_places;
  std::vector<LeftOutGroup> m_groups;  // in the order met
};

/// As much of `text` as takes no more than `maxBytes`, with whole characters where it is UTF-8.
std::string_view firstBytes(std::string_view text, std::size_t maxBytes);

}  // namespace crawler
