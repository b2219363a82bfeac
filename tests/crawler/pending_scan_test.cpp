#include "crawler/pending_scan.h"

#include <atomic>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace crawler {
namespace {

using testing::ElementsAre;

constexpr std::size_t kManyLinks = 1000;

const ScanEvent kTurn = &ScanView::scanStarted;

TEST(PendingScan, KeepsTheNewestLinksOnly) {
  PendingScan pending(3);
  for (const char* link : {"a", "b", "c", "d", "e"}) static_cast<void>(pending.addLink(link));
  EXPECT_THAT(pending.takeAll().links, ElementsAre("c", "d", "e"));
  static_cast<void>(pending.addLink("f"));
  EXPECT_THAT(pending.takeAll().links, ElementsAre("f"));
}

TEST(PendingScan, RemembersWhereTheScanStands) {
  PendingScan pending(kManyLinks);
  EXPECT_TRUE(pending.setProgress({.pagesFound = 5, .pagesScanned = 3}));
  EXPECT_FALSE(pending.setUrl("http://site.test/3"));
  EXPECT_EQ(pending.takeAll().progress.pagesScanned, 3);
  // A look without news in between sees no jump back to nothing.
  const ScanNews later = pending.takeAll();
  EXPECT_EQ(later.progress.pagesFound, 5);
  EXPECT_EQ(later.url, "http://site.test/3");
  // The next scan has nothing of this one.
  EXPECT_TRUE(pending.addLink("a"));
  pending.restart("http://other.test/");
  EXPECT_TRUE(pending.add(kTurn));
  const ScanNews next = pending.takeAll();
  EXPECT_TRUE(next.links.empty());
  EXPECT_EQ(next.progress.pagesFound, 0);
  EXPECT_EQ(next.url, "http://other.test/");
}

TEST(PendingScan, LosesNothingBetweenTwoThreads) {
  constexpr std::size_t kLinks = 50'000;
  PendingScan pending(kLinks);
  std::atomic<int> told = 0;
  std::atomic<bool> done = false;
  std::jthread scan([&] {
    for (std::size_t i = 0; i < kLinks; ++i) {
      if (pending.addLink(std::to_string(i))) ++told;
    }
    if (pending.add(kTurn)) ++told;
    done = true;
  });

  std::deque<std::string> links;
  std::size_t events = 0;
  int looksWithNews = 0;
  const auto look = [&] {
    ScanNews news = pending.takeAll();
    if (!news.links.empty() || !news.events.empty()) ++looksWithNews;
    links.insert(links.end(), news.links.begin(), news.links.end());
    events += news.events.size();
  };
  while (!done) look();
  look();

  ASSERT_EQ(links.size(), kLinks);
  for (std::size_t i = 0; i < kLinks; ++i) ASSERT_EQ(links[i], std::to_string(i));
  EXPECT_EQ(events, 1u);
  // Each look that found something was announced, once.
  EXPECT_EQ(told, looksWithNews);
}

}  // namespace
}  // namespace crawler
