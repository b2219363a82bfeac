#include "report/summary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "report/figures.h"
#include "report/plots.h"

namespace report {
namespace {

using crawler::PageStanding;
using std::chrono::milliseconds;

std::string textOf(const std::vector<Bar>& bars) {
  std::string text;
  for (const Bar& bar : bars)
    text += bar.label + "=" + std::to_string(bar.pages) + (bar.isTrouble ? "!; " : "; ");
  return text;
}

std::string textOf(const std::vector<const Page*>& pages) {
  std::string text;
  for (const Page* page : pages) text += page->address + " ";
  return text;
}

TEST(Summary, CountsPagesAndFindsThoseToLookAt) {
  auto page = [number = 0u](const char* address, const char* title, Page more = {}) mutable {
    more.number = number++;
    more.address = address;
    more.title = title;
    return more;
  };
  const ScanContents contents = {
      .facts = {.id = 1},
      .pages = {
          page("/", "Start", {.status = 200, .time = milliseconds(49)}),
          page("/a", "Same",
               {.status = 200, .level = 1, .bytes = 10, .time = milliseconds(50), .linkedFrom = 1}),
          page("/a#top", "Same",
               {.status = 200, .level = 1, .bytes = 10, .time = milliseconds(50), .linkedFrom = 1}),
          page("/b", "Same",
               {.status = 200, .level = 3, .bytes = 99, .time = milliseconds(9000), .linkedFrom = 1}),
          page("/old", "Same",
               {.redirectedTo = "/new",
                .status = 200,
                .standing = PageStanding::leftOut,
                .level = 1,
                .linkedFrom = 2}),
          page("/new", "Could not find page title", {.status = 200, .level = 1, .bytes = 10}),
          page("/alone", "", {.status = 200, .level = 40}),
          page("/alone#x", "", {.status = 200, .level = 40}),
          page("/gone", "Same",
               {.status = 404, .standing = PageStanding::broken, .level = 1, .linkedFrom = 1}),
          page("/mute", "Same", {.standing = PageStanding::broken, .level = 1, .time = milliseconds(30'000)}),
      }};
  const Summary summary = summarise(contents);
  EXPECT_EQ(summary.listed, 7);
  EXPECT_EQ(summary.leftOut, 1);
  EXPECT_EQ(summary.broken, 2);
  EXPECT_EQ(textOf(summary.byStatus), "2xx answered=7; 3xx redirected=1; 4xx not there=1!; No answer=1!; ");
  EXPECT_EQ(
      textOf(summary.byLevel),
      "Level 0=1; Level 1=6; Level 2=0; Level 3=1; Level 4=0; Level 5=0; Level 6=0; Level 7=0; Level 8=0; "
      "Level 9=0; Level 10 and more=2; ");
  EXPECT_EQ(textOf(summary.byTime),
            "Under 50 ms=6; 50 to 100 ms=2; 100 to 200 ms=0; 200 to 500 ms=0; 0.5 to 1 s=0; 1 to 2 s=0; 2 to "
            "5 s=0; "
            "5 s and more=1; ");
  ASSERT_EQ(summary.sharedTitles.size(), 1u);
  EXPECT_EQ(textOf(summary.sharedTitles[0].pages), "/a /b ");
  EXPECT_EQ(textOf(summary.untitled), "/new /alone ");
  EXPECT_EQ(textOf(summary.unlinked), "/alone ");
  EXPECT_EQ(textOf(summary.slowest), "/b /a / ");
  EXPECT_EQ(textOf(summary.largest), "/b /a /new ");
}

TEST(Plots, ShowNumbersWithoutColours) {
  const ScanFacts stopped = {.id = 2, .end = "cancelled", .pagesUsed = 7};
  const ScanFacts first = {.id = 1, .end = "complete", .pagesUsed = 1204, .broken = 3};
  struct Case {
    const char* name;
    std::vector<ScanFacts> history;
    std::size_t columns;
    const char* text;
  };
  const Case cases[] = {
      {"no scan", {}, 0, ">There is no complete scan yet.<"},
      {"only a stopped one", {stopped}, 0, ">There is no complete scan yet.<"},
      {"one", {stopped, first}, 2, ">1,204<"},
      {"many", std::vector<ScanFacts>(1000, first), 48, ">1,204<"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    for (const Palette palette : {Palette::light, Palette::dark, Palette::page}) {
      const std::string svg = historyPlot(each.history, palette);
      std::size_t boxes = 0;
      for (auto at = svg.find("<rect"); at != std::string::npos; at = svg.find("<rect", at + 1)) ++boxes;
      EXPECT_EQ(boxes, each.columns == 0 ? 0 : each.columns + 2);  // and two base lines
      EXPECT_THAT(svg, testing::HasSubstr(each.text));
      EXPECT_EQ(svg.find("fill=") == std::string::npos, palette == Palette::page);
    }
  }
  const std::string bars = barPlot("A < B", {{"None", 0}, {"Some", 1}, {"Most", 1'000'000}}, Palette::page);
  EXPECT_THAT(bars,
              testing::HasSubstr("<title>A &lt; B</title><desc>None: 0. Some: 1. Most: 1,000,000. </desc>"));
  EXPECT_THAT(bars, testing::HasSubstr("width=\"0.0\""));
  EXPECT_THAT(bars, testing::HasSubstr("width=\"1.5\""));  // one in a million is seen
}

TEST(Figures, ReadAsPeopleWriteThem) {
  EXPECT_EQ(
      grouped(std::int64_t{999}) + " " + grouped(std::int64_t{1000}) + " " + grouped(std::int64_t{-1234567}),
      "999 1,000 -1,234,567");
  EXPECT_EQ(
      timeText(milliseconds(999)) + " " + timeText(milliseconds(1250)) + " " + timeText(milliseconds(61'000)),
      "999 ms 1.2 s 61 s");
  EXPECT_EQ(sizeText(1) + " " + sizeText(999) + " " + sizeText(1234) + " " + sizeText(64 << 20),
            "1 byte 999 bytes 1.2 KB 67 MB");
}

}  // namespace
}  // namespace report
