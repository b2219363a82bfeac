#include "report/summary.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "crawler/titles.h"
#include "platform/phrases.h"

namespace report {

namespace {

using platform::Phrases;

using crawler::PageStanding;
using std::chrono::milliseconds;

constexpr std::size_t kLevelsShown = 10;

struct TimeClass {
  milliseconds below;
  const char* label;
};

constexpr std::array kTimeClasses = {TimeClass{milliseconds(50), Phrases::noop("Under 50 ms")},
                                     TimeClass{milliseconds(100), Phrases::noop("50 to 100 ms")},
                                     TimeClass{milliseconds(200), Phrases::noop("100 to 200 ms")},
                                     TimeClass{milliseconds(500), Phrases::noop("200 to 500 ms")},
                                     TimeClass{milliseconds(1000), Phrases::noop("0.5 to 1 s")},
                                     TimeClass{milliseconds(2000), Phrases::noop("1 to 2 s")},
                                     TimeClass{milliseconds(5000), Phrases::noop("2 to 5 s")},
                                     TimeClass{milliseconds::max(), Phrases::noop("5 s and more")}};

std::string_view withoutFragment(std::string_view address) {
  return address.substr(0, address.find('#'));
}

/// Empty kinds at either end say nothing; between others they do.
std::vector<Bar> withoutEmptyEnds(std::vector<Bar> bars) {
  const auto isUsed = [](const Bar& bar) { return bar.pages > 0; };
  bars.erase(std::find_if(bars.rbegin(), bars.rend(), isUsed).base(), bars.end());
  bars.erase(bars.begin(), std::find_if(bars.begin(), bars.end(), isUsed));
  return bars;
}

std::vector<Bar> countStatus(const std::vector<Page>& pages) {
  std::vector<Bar> bars = {
      {Phrases::tr("2xx answered")},           {Phrases::tr("3xx redirected")},
      {Phrases::tr("4xx not there"), 0, true}, {Phrases::tr("5xx server error"), 0, true},
      {Phrases::tr("No answer"), 0, true},     {Phrases::tr("Other"), 0, true}};
  for (const Page& page : pages) {
    const int group = page.status / 100;
    const bool isRedirected = group == 2 && !page.redirectedTo.empty();
    const std::size_t place = page.status == 0         ? 4
                              : group < 2 || group > 5 ? 5
                                                       : static_cast<std::size_t>(group - 2);
    ++bars[isRedirected ? 1 : place].pages;
  }
  std::erase_if(bars, [](const Bar& bar) { return bar.pages == 0; });
  return bars;
}

std::vector<Bar> countLevels(const std::vector<Page>& pages) {
  std::vector<Bar> bars;
  for (std::size_t level = 0; level < kLevelsShown; ++level)
    bars.push_back({Phrases::tr("Level %1", {std::to_string(level)})});
  bars.push_back({Phrases::tr("Level %1 and more", {std::to_string(kLevelsShown)})});
  for (const Page& page : pages) {
    ++bars[std::min(static_cast<std::size_t>(std::max(0, page.level)), kLevelsShown)].pages;
  }
  return withoutEmptyEnds(std::move(bars));
}

std::vector<Bar> countTimes(const std::vector<Page>& pages) {
  std::vector<Bar> bars;
  for (const TimeClass& each : kTimeClasses) bars.push_back({Phrases::tr(each.label)});
  for (const Page& page : pages) {
    if (page.status == 0) continue;
    const auto place = std::find_if(kTimeClasses.begin(), kTimeClasses.end(),
                                    [&](const TimeClass& each) { return page.time < each.below; });
    ++bars[static_cast<std::size_t>(place - kTimeClasses.begin())].pages;
  }
  return withoutEmptyEnds(std::move(bars));
}

void countStandings(Summary& summary, const std::vector<Page>& pages) {
  for (const Page& page : pages) {
    ++(page.standing == PageStanding::listed   ? summary.listed
       : page.standing == PageStanding::broken ? summary.broken
                                               : summary.leftOut);
  }
}

/// Pages in the documents, one for all sections of it.
std::vector<const Page*> listedOnce(const std::vector<Page>& pages) {
  std::vector<const Page*> once;
  std::unordered_set<std::string_view> known;
  for (const Page& page : pages) {
    if (page.standing == PageStanding::listed && known.insert(withoutFragment(page.address)).second)
      once.push_back(&page);
  }
  return once;
}

std::vector<SharedTitle> findSharedTitles(const std::vector<const Page*>& pages) {
  std::vector<SharedTitle> titles;
  std::unordered_map<std::string_view, std::size_t> places;
  for (const Page* page : pages) {
    if (!hasTitle(*page)) continue;
    const auto [place, isNew] = places.try_emplace(page->title, titles.size());
    if (isNew) titles.push_back({.title = page->title});
    titles[place->second].pages.push_back(page);
  }
  std::erase_if(titles, [](const SharedTitle& title) { return title.pages.size() < 2; });
  std::stable_sort(titles.begin(), titles.end(),
                   [](const auto& a, const auto& b) { return a.pages.size() > b.pages.size(); });
  return titles;
}

/// Addresses without fragment that something leads to.
std::unordered_set<std::string_view> findReached(const std::vector<Page>& pages) {
  std::unordered_set<std::string_view> reached;
  for (const Page& page : pages) {
    if (page.linkedFrom > 0 || page.number == 0) reached.insert(withoutFragment(page.address));
    if (!page.redirectedTo.empty()) reached.insert(withoutFragment(page.redirectedTo));
  }
  return reached;
}

/// The first ones by what `rank` says of a page, those with nothing to rank left out.
template <typename Rank>
std::vector<const Page*> ranked(std::vector<const Page*> pages, Rank rank) {
  std::erase_if(pages, [&](const Page* page) { return rank(*page) <= 0; });
  const std::size_t count = std::min(pages.size(), Summary::kRanked);
  std::partial_sort(pages.begin(), pages.begin() + static_cast<std::ptrdiff_t>(count), pages.end(),
                    [&](const Page* a, const Page* b) {
                      if (rank(*a) != rank(*b)) return rank(*a) > rank(*b);
                      return a->number < b->number;
                    });
  pages.resize(count);
  return pages;
}

}  // namespace

bool hasTitle(const Page& page) {
  return !page.title.empty() && page.title != crawler::kNoPageTitle;
}

Summary summarise(const ScanContents& contents) {
  Summary summary{.byStatus = countStatus(contents.pages),
                  .byLevel = countLevels(contents.pages),
                  .byTime = countTimes(contents.pages)};
  countStandings(summary, contents.pages);
  const std::vector<const Page*> listed = listedOnce(contents.pages);
  const std::unordered_set<std::string_view> reached = findReached(contents.pages);
  summary.sharedTitles = findSharedTitles(listed);
  for (const Page* page : listed) {
    if (!hasTitle(*page)) summary.untitled.push_back(page);
    if (!reached.contains(withoutFragment(page->address))) summary.unlinked.push_back(page);
  }
  summary.slowest = ranked(listed, [](const Page& page) { return page.time.count(); });
  summary.largest = ranked(listed, [](const Page& page) { return page.bytes; });
  return summary;
}

}  // namespace report
