#include "crawler/left_out.h"

#include <algorithm>

namespace crawler {

namespace {

enum class Weight {
  pagesMayMiss,
  worthTelling,  // what is missing is what the site or its start address keeps out
  untold,
};

struct ReasonText {
  LinkReason reason;
  std::string_view name;
  Weight weight;
  std::string_view one;   // behind "1 link"
  std::string_view many;  // behind "2 links"
  bool isOfPages = false;
};

using enum LinkReason;
using enum Weight;

/// In the order in which reasons are told.
constexpr std::array kReasonTexts = {
    ReasonText{foreignExtension, "ending", pagesMayMiss, "by its ending", "by their ending"},
    ReasonText{withoutPort, "withoutPort", pagesMayMiss, "to the site's host without its port",
               "to the site's host without its port"},
    ReasonText{filter, "filter", pagesMayMiss, "by the filter", "by the filter"},
    ReasonText{robots, "robots", pagesMayMiss, "by the robots.txt rule", "by the robots.txt rule"},
    ReasonText{tooLong, "tooLong", pagesMayMiss, "as its address is too long",
               "as their addresses are too long"},
    ReasonText{surplusLink, "surplusLink", pagesMayMiss, "as too many stand on one page",
               "as too many stand on one page"},
    ReasonText{surplusPage, "surplusPage", pagesMayMiss, "as there are more pages than a scan can remember",
               "as there are more pages than a scan can remember"},
    ReasonText{tooDeep, "tooDeep", pagesMayMiss, "below the deepest level", "below the deepest level"},
    ReasonText{otherPort, "otherPort", worthTelling, "to another port", "to another port"},
    ReasonText{aboveStart, "aboveStart", worthTelling, "above the start folder", "above the start folder"},
    ReasonText{notFollowed, "notFollowed", worthTelling, "as the site asks not to follow it",
               "as the site asks not to follow them"},
    ReasonText{noIndex, "noIndex", worthTelling, "as it asks to be left out", "as they ask to be left out",
               true},
    ReasonText{redirectedOutside, "redirectedOutside", worthTelling, "that leads out of the site",
               "that lead out of the site", true},
    ReasonText{folderOfKnownIndex, "folderOfKnownIndex", untold, "to the folder of a known index page",
               "to folders of known index pages"},
    ReasonText{empty, "empty", untold, "that leads nowhere", "that lead nowhere"},
    ReasonText{otherHost, "otherHost", untold, "to another host", "to other hosts"},
    ReasonText{otherType, "otherType", untold, "of another type", "of other types"},
    ReasonText{redirected, "redirected", untold, "that leads to another page", "that lead to other pages",
               true},
    ReasonText{sameAsIndex, "sameAsIndex", untold, "that is the folder's page again",
               "that are their folder's page again", true},
    ReasonText{canonicalElsewhere, "canonicalElsewhere", untold, "that names another page in its place",
               "that name other pages in their place", true},
};
static_assert(kReasonTexts.size() == kLinkReasons - 1);

std::size_t orderOf(LinkReason reason) {
  const auto found = std::find_if(kReasonTexts.begin(), kReasonTexts.end(),
                                  [&](const ReasonText& text) { return text.reason == reason; });
  return static_cast<std::size_t>(found - kReasonTexts.begin());
}

const ReasonText& textOf(LinkReason reason) {
  return kReasonTexts.at(orderOf(reason));
}

bool isByWhich(LinkReason reason) {
  return reason == filter || reason == robots;
}

/// As long as a sentence has room for.
std::string shortened(std::string_view text) {
  constexpr std::size_t kShown = 100;
  if (text.size() <= kShown) return std::string(text);
  return std::string(firstBytes(text, kShown)) + "...";
}

std::string numberOf(std::int64_t count, bool isOfPages) {
  const char* one = isOfPages ? " page" : " link";
  return std::to_string(count) + one + (count == 1 ? "" : "s");
}

}  // namespace

std::string_view firstBytes(std::string_view text, std::size_t maxBytes) {
  if (text.size() <= maxBytes) return text;
  const auto isInside = [&](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0u) == 0x80u;
  };
  std::size_t end = maxBytes;
  while (end > 0 && maxBytes - end < 3 && isInside(end)) --end;
  return text.substr(0, isInside(end) ? maxBytes : end);
}

std::string_view nameOf(LinkReason reason) {
  return textOf(reason).name;
}

std::optional<LinkReason> reasonNamed(std::string_view name) {
  const auto found = std::find_if(kReasonTexts.begin(), kReasonTexts.end(),
                                  [&](const ReasonText& text) { return text.name == name; });
  if (found == kReasonTexts.end()) return {};
  return found->reason;
}

std::string LeftOutGroup::reasonText(std::int64_t several) const {
  if (isByWhich(reason) && which.empty())
    return reason == filter ? "by further filters" : "by further robots.txt rules";
  const ReasonText& text = textOf(reason);
  std::string phrase(several == 1 ? text.one : text.many);
  if (!which.empty()) phrase.append(" \"").append(shortened(which)).append("\"");
  return phrase;
}

bool LeftOutGroup::mayMissPages() const {
  return textOf(reason).weight == pagesMayMiss;
}

bool LeftOut::mayMissPages() const {
  return std::any_of(groups.begin(), groups.end(), [](const auto& group) { return group.mayMissPages(); });
}

bool LeftOut::browserRulesMayFindMore() const {
  return std::any_of(groups.begin(), groups.end(), [](const LeftOutGroup& group) {
    return group.reason == foreignExtension || group.reason == withoutPort;
  });
}

std::string LeftOut::sentence() const {
  constexpr std::size_t kTold = 3;
  std::string sentence;
  std::size_t told = 0;
  bool lastIsOfPages = false;
  std::int64_t others = 0;
  std::size_t otherReasons = 0;
  for (const LeftOutGroup& group : groups) {
    const ReasonText& text = textOf(group.reason);
    if (text.weight == untold) continue;
    if (told == kTold) {
      others += group.count;
      ++otherReasons;
      continue;
    }
    const bool isNamed = told == 0 || text.isOfPages != lastIsOfPages;
    sentence += told == 0 ? "Left out: " : ", ";
    sentence += isNamed ? numberOf(group.count, text.isOfPages) : std::to_string(group.count);
    sentence.append(" ").append(group.reasonText(group.count));
    if (!group.examples.empty()) {
      sentence.append(told == 0 ? " (for example " : " (");
      sentence.append(shortened(group.examples.front().address)).append(")");
    }
    lastIsOfPages = text.isOfPages;
    ++told;
  }
  if (others > 0) {
    sentence.append(" and ").append(std::to_string(others));
    sentence.append(otherReasons == 1 ? " more for another reason" : " more for other reasons");
  }
  return told == 0 ? sentence : sentence + ".";
}

void LeftOutCounter::count(LinkReason reason, std::string_view address, std::string_view page,
                           std::size_t which, std::string_view name) {
  std::vector<std::uint8_t>& places = m_places[static_cast<std::size_t>(reason)];
  if (which >= places.size()) places.resize(which + 1);
  if (places[which] == 0) places[which] = newPlace(reason, name);
  LeftOutGroup& group = m_groups[places[which] - 1u];
  ++group.count;
  if (group.examples.size() == kExamples) return;
  address = firstBytes(address, kTextBytes);
  const bool isKnown = std::any_of(group.examples.begin(), group.examples.end(),
                                   [&](const LeftOutExample& known) { return known.address == address; });
  if (!isKnown) group.examples.push_back({std::string(address), std::string(firstBytes(page, kTextBytes))});
}

/// Where what was not met yet is counted: as a group of its own, or with the further ones of its reason.
std::uint8_t LeftOutCounter::newPlace(LinkReason reason, std::string_view name) {
  static_assert(kLinkReasons + 2 * kNamed < UINT8_MAX);
  const auto isOfReason = [&](const LeftOutGroup& group) { return group.reason == reason; };
  const auto known = std::count_if(m_groups.begin(), m_groups.end(), isOfReason);
  if (known > static_cast<std::ptrdiff_t>(kNamed)) {
    const auto last = std::find_if(m_groups.rbegin(), m_groups.rend(), isOfReason);
    return static_cast<std::uint8_t>(m_groups.rend() - last);
  }
  if (known == static_cast<std::ptrdiff_t>(kNamed)) name = {};
  m_groups.push_back({.reason = reason, .which = std::string(firstBytes(name, kTextBytes))});
  return static_cast<std::uint8_t>(m_groups.size());
}

LeftOut LeftOutCounter::result() const {
  LeftOut leftOut{m_groups};
  std::stable_sort(leftOut.groups.begin(), leftOut.groups.end(),
                   [](const auto& a, const auto& b) { return orderOf(a.reason) < orderOf(b.reason); });
  return leftOut;
}

}  // namespace crawler
