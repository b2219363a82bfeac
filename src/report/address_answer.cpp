#include "report/address_answer.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "crawler/exclusions.h"
#include "crawler/known_endings.h"
#include "crawler/link_rules.h"
#include "platform/ascii.h"
#include "platform/http_client.h"
#include "platform/phrases.h"
#include "report/figures.h"
#include "report/left_out_advice.h"

namespace report {

namespace {

using platform::Phrases;

using crawler::LinkReason;
using crawler::PageStanding;

/// What two spellings of an address have in common.
std::string_view core(std::string_view address) {
  address = platform::trimmed(address);
  for (const std::string_view scheme : {"http://", "https://"}) {
    if (platform::startsWithAnyCase(address, scheme)) address.remove_prefix(scheme.size());
  }
  address = address.substr(0, address.find('#'));
  while (address.ends_with('/')) address.remove_suffix(1);
  return address;
}

bool isSame(std::string_view a, std::string_view b) {
  return core(a) == core(b);
}

std::string_view hostOf(std::string_view address) {
  address = core(address);
  return address.substr(0, address.find('/'));
}

/// What follows the last dot of the last part of the path; empty where there is none.
std::string_view endingOf(std::string_view address) {
  address = core(address);
  address = address.substr(0, address.find('?'));
  const std::size_t slash = address.rfind('/');
  if (slash == std::string_view::npos) return {};
  const std::size_t dot = address.rfind('.');
  return dot == std::string_view::npos || dot < slash ? std::string_view() : address.substr(dot);
}

std::string inQuotes(std::string_view text) {
  return "\"" + shortened(text) + "\"";
}

std::string withAdvice(std::string text, LinkReason reason) {
  const std::string advice = adviceFor(reason, Reader::window);
  if (!advice.empty()) text.append(" ").append(advice);
  return text;
}

std::optional<std::string> asVisited(const LatestReport& report, std::string_view typed) {
  const auto found = std::find_if(report.now.pages.begin(), report.now.pages.end(),
                                  [&](const Page& page) { return isSame(page.address, typed); });
  if (found == report.now.pages.end()) return {};
  std::string text = standingText(*found) + ".";
  return found->standing == PageStanding::leftOut ? withAdvice(text, found->leftOutBy) : text;
}

std::optional<std::string> asLeftOut(const LatestReport& report, std::string_view typed) {
  for (const crawler::LeftOutGroup& group : report.leftOut.groups) {
    for (const crawler::LeftOutExample& example : group.examples) {
      if (!isSame(example.address, typed)) continue;
      const std::string reason = group.reasonText();
      return withAdvice(example.page.empty()
                            ? Phrases::tr("Found, but left out %1.", {reason})
                            : Phrases::tr("Found on %1, but left out %2.", {shortened(example.page), reason}),
                        group.reason);
    }
  }
  return {};
}

std::optional<std::string> asOutside(const LatestReport& report, std::string_view typed) {
  for (const OutsideAddress& address : report.now.outside) {
    if (!isSame(address.address, typed)) continue;
    return Phrases::tr(
        "It lies outside of the site: %Ln page links to it, and sitemaps name pages of the site only.",
        "It lies outside of the site: %Ln pages link to it, and sitemaps name pages of the site only.",
        address.linkedFrom);
  }
  const bool isWhole = platform::startsWithAnyCase(platform::trimmed(typed), "http");
  if (!isWhole || report.now.pages.empty()) return {};
  const std::string_view host = hostOf(report.now.pages.front().address);
  if (platform::lowerAscii(hostOf(typed)) == platform::lowerAscii(host)) return {};
  return Phrases::tr("It lies outside of the site, which is all below %1.", {inQuotes(host)});
}

/// What keeps such an address out, whether the scan met it or not.
std::optional<std::string> asKeptOut(const LatestReport& report, const std::vector<std::string>& filters,
                                     std::string_view typed) {
  if (const auto which = crawler::Exclusions(filters).find(platform::trimmed(typed)))
    return withAdvice(Phrases::tr("The filter %1 keeps it out.", {inQuotes(filters[*which])}),
                      LinkReason::filter);
  const std::string_view ending = endingOf(typed);
  if (ending.empty()) return {};
  for (const crawler::LeftOutGroup& group : report.leftOut.groups) {
    if (group.reason != LinkReason::foreignExtension && group.reason != LinkReason::otherType) continue;
    for (const crawler::LeftOutExample& example : group.examples) {
      if (endingOf(example.address) != ending) continue;
      return withAdvice(Phrases::tr("Addresses that end in %1 are left out.", {inQuotes(ending)}),
                        group.reason);
    }
  }
  if (crawler::hasKnownOtherEnding(ending))
    return withAdvice(Phrases::tr("Addresses that end in %1 are left out.", {inQuotes(ending)}),
                      LinkReason::otherType);
  return {};
}

/// Of what was left out only examples are known by their addresses.
std::int64_t leftOutUnnamed(const LatestReport& report) {
  std::int64_t count = 0;
  for (const crawler::LeftOutGroup& group : report.leftOut.groups) {
    if (group.mayMissPages())
      count += std::max<std::int64_t>(0, group.count - static_cast<std::int64_t>(group.examples.size()));
  }
  return count;
}

}  // namespace

std::string standingText(const Page& page) {
  switch (page.standing) {
    case PageStanding::listed:
      return Phrases::tr("In the sitemaps");
    case PageStanding::broken:
      return Phrases::tr("Broken: %1", {platform::reasonInLanguage(page.brokenReason)});
    case PageStanding::folderListing:
      return Phrases::tr("Left out, as it is a list of files that the server made");
    case PageStanding::leftOut:
      break;
  }
  switch (page.leftOutBy) {
    case LinkReason::redirected:
    case LinkReason::redirectedOutside:
      if (page.redirectedTo.empty()) return Phrases::tr("Left out, as it leads to another page");
      return Phrases::tr("Left out, as it leads to %1", {page.redirectedTo});
    case LinkReason::sameAsIndex:
      return Phrases::tr("Left out, as it is its folder's page again");
    case LinkReason::canonicalElsewhere:
      return Phrases::tr("Left out, as it names another page in its place");
    case LinkReason::otherType:
      return Phrases::tr("Left out, as it is of another type");
    case LinkReason::none:
      return Phrases::tr("Left out");
    default:
      return Phrases::tr("Left out, %1", {crawler::LeftOutGroup{.reason = page.leftOutBy}.reasonText()});
  }
}

bool looksLikeAddress(std::string_view typed) {
  typed = platform::trimmed(typed);
  return typed.find_first_of(platform::kBlanks) == std::string_view::npos &&
         typed.find_first_of("/.") != std::string_view::npos;
}

std::string whyNotListed(const LatestReport& report, const std::vector<std::string>& filters,
                         std::string_view typed) {
  if (auto text = asVisited(report, typed)) return *text;
  if (auto text = asLeftOut(report, typed)) return *text;
  if (auto text = asOutside(report, typed)) return *text;
  if (auto text = asKeptOut(report, filters, typed)) return *text;
  std::string text = Phrases::tr("No page of the last complete scan links to it.");
  if (const std::int64_t unnamed = leftOutUnnamed(report); unnamed > 0)
    text +=
        Phrases::tr(" Or it is one of %1 links that were left out and are only counted.", {grouped(unnamed)});
  return text;
}

}  // namespace report
