#include "crawler/left_out.h"

#include <algorithm>

#include "platform/phrases.h"

namespace crawler {

namespace {

using platform::Phrases;

enum class Weight {
  pagesMayMiss,
  worthTelling,  // what is missing is what the site or its start address keeps out
  untold,
};

struct ReasonText {
  LinkReason reason;
  std::string_view name;
  Weight weight;
  const char* one;   // behind "1 link"
  const char* many;  // behind "2 links"
  bool isOfPages = false;
};

using enum LinkReason;
using enum Weight;

/// In the order in which reasons are told.
constexpr std::array kReasonTexts = {
    ReasonText{foreignExtension, "ending", pagesMayMiss, Phrases::noop("by its ending"),
               Phrases::noop("by their ending")},
    ReasonText{withoutPort, "withoutPort", pagesMayMiss, Phrases::noop("to the site's host without its port"),
               Phrases::noop("to the site's host without its port")},
    ReasonText{filter, "filter", pagesMayMiss, Phrases::noop("by the filter"),
               Phrases::noop("by the filter")},
    ReasonText{robots, "robots", pagesMayMiss, Phrases::noop("by the robots.txt rule"),
               Phrases::noop("by the robots.txt rule")},
    ReasonText{tooLong, "tooLong", pagesMayMiss, Phrases::noop("as its address is too long"),
               Phrases::noop("as their addresses are too long")},
    ReasonText{surplusLink, "surplusLink", pagesMayMiss, Phrases::noop("as too many stand on one page"),
               Phrases::noop("as too many stand on one page")},
    ReasonText{surplusPage, "surplusPage", pagesMayMiss,
               Phrases::noop("as there are more pages than a scan can remember"),
               Phrases::noop("as there are more pages than a scan can remember")},
    ReasonText{tooDeep, "tooDeep", pagesMayMiss, Phrases::noop("below the deepest level"),
               Phrases::noop("below the deepest level")},
    ReasonText{otherPort, "otherPort", worthTelling, Phrases::noop("to another port"),
               Phrases::noop("to another port")},
    ReasonText{aboveStart, "aboveStart", worthTelling, Phrases::noop("above the start folder"),
               Phrases::noop("above the start folder")},
    ReasonText{notFollowed, "notFollowed", worthTelling, Phrases::noop("as the site asks not to follow it"),
               Phrases::noop("as the site asks not to follow them")},
    ReasonText{noIndex, "noIndex", worthTelling, Phrases::noop("as it asks to be left out"),
               Phrases::noop("as they ask to be left out"), true},
    ReasonText{redirectedOutside, "redirectedOutside", worthTelling,
               Phrases::noop("that leads out of the site"), Phrases::noop("that lead out of the site"), true},
    ReasonText{folderOfKnownIndex, "folderOfKnownIndex", untold,
               Phrases::noop("to the folder of a known index page"),
               Phrases::noop("to folders of known index pages")},
    ReasonText{empty, "empty", untold, Phrases::noop("that leads nowhere"),
               Phrases::noop("that lead nowhere")},
    ReasonText{otherHost, "otherHost", untold, Phrases::noop("to another host"),
               Phrases::noop("to other hosts")},
    ReasonText{otherType, "otherType", untold, Phrases::noop("of another type"),
               Phrases::noop("of other types")},
    ReasonText{redirected, "redirected", untold, Phrases::noop("that leads to another page"),
               Phrases::noop("that lead to other pages"), true},
    ReasonText{sameAsIndex, "sameAsIndex", untold, Phrases::noop("that is the folder's page again"),
               Phrases::noop("that are their folder's page again"), true},
    ReasonText{canonicalElsewhere, "canonicalElsewhere", untold,
               Phrases::noop("that names another page in its place"),
               Phrases::noop("that name other pages in their place"), true},
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
  return isOfPages ? Phrases::tr("%n page", "%n pages", count) : Phrases::tr("%n link", "%n links", count);
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
    return reason == filter ? Phrases::tr("by further filters") : Phrases::tr("by further robots.txt rules");
  const ReasonText& text = textOf(reason);
  const std::string phrase = Phrases::tr(several == 1 ? text.one : text.many);
  return which.empty() ? phrase : Phrases::tr("%1 \"%2\"", {phrase, shortened(which)});
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
    sentence += told == 0 ? Phrases::tr("Left out: ") : ", ";
    sentence += isNamed ? numberOf(group.count, text.isOfPages) : Phrases::tr("%n", "%n", group.count);
    sentence.append(" ").append(group.reasonText(group.count));
    if (!group.examples.empty()) {
      const std::string example = shortened(group.examples.front().address);
      sentence += told == 0 ? Phrases::tr(" (for example %1)", {example}) : " (" + example + ")";
    }
    lastIsOfPages = text.isOfPages;
    ++told;
  }
  if (others > 0) {
    sentence +=
        otherReasons == 1
            ? Phrases::tr(" and %n more for another reason", " and %n more for another reason", others)
            : Phrases::tr(" and %n more for other reasons", " and %n more for other reasons", others);
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
