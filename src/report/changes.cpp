#include "report/changes.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "platform/phrases.h"
#include "report/figures.h"

namespace report {

namespace {

using platform::Phrases;

using crawler::PageStanding;
using PagesByAddress = std::unordered_map<std::string_view, const Page*>;

PagesByAddress byAddress(const ScanContents& contents) {
  PagesByAddress pages;
  pages.reserve(contents.pages.size());
  for (const Page& page : contents.pages) pages.emplace(page.address, &page);
  return pages;
}

const Page* find(const PagesByAddress& pages, const std::string& address) {
  const auto found = pages.find(address);
  return found == pages.end() ? nullptr : found->second;
}

bool isListed(const Page* page) {
  return page != nullptr && page->standing == PageStanding::listed;
}

bool isBroken(const Page* page) {
  return page != nullptr && page->standing == PageStanding::broken;
}

/// Where it belongs; nothing for a page that has not changed.
std::vector<PageChange>* kindOf(Changes& changes, const PageChange& page) {
  if (isBroken(page.now)) return isBroken(page.before) ? nullptr : &changes.newlyBroken;
  if (isBroken(page.before)) return &changes.repaired;
  if (isListed(page.now) != isListed(page.before)) return isListed(page.now) ? &changes.added : &changes.gone;
  const bool hasOtherTitle = isListed(page.now) && page.now->title != page.before->title;
  return hasOtherTitle ? &changes.renamed : nullptr;
}

void sortIn(Changes& changes, const PageChange& page) {
  if (auto* kind = kindOf(changes, page)) kind->push_back(page);
}

}  // namespace

Changes compare(const ScanContents& before, const ScanContents& now) {
  Changes changes{.areKnown = before.facts.id != 0 && now.facts.id != 0};
  if (!changes.areKnown) return changes;
  const PagesByAddress former = byAddress(before);
  const PagesByAddress present = byAddress(now);
  for (const Page& page : now.pages) sortIn(changes, {find(former, page.address), &page});
  for (const Page& page : before.pages) {
    if (!present.contains(page.address)) sortIn(changes, {&page, nullptr});
  }
  return changes;
}

std::string changesText(const Changes& changes) {
  if (!changes.areKnown) return {};
  const std::string added =
      Phrases::tr("%Ln page new", "%Ln pages new", static_cast<std::int64_t>(changes.added.size()));
  std::string broken = grouped(changes.newlyBroken.size());
  if (!changes.newlyBroken.empty())
    broken += " (" + shortened(changes.newlyBroken.front().page().address) + ")";
  return Phrases::tr("%1, %2 gone, %3 renamed.\nNewly broken: %4, repaired: %5.",
                     {added, grouped(changes.gone.size()), grouped(changes.renamed.size()), broken,
                      grouped(changes.repaired.size())});
}

}  // namespace report
