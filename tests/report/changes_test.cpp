#include "report/changes.h"

#include <optional>

#include <gtest/gtest.h>

namespace report {
namespace {

using crawler::PageStanding;

constexpr auto kListed = PageStanding::listed;
constexpr auto kLeftOut = PageStanding::leftOut;
constexpr auto kBroken = PageStanding::broken;

/// How one scan met a page.
struct Met {
  PageStanding standing;
  const char* title = "T";
};

ScanContents scanOf(std::int64_t id, const std::optional<Met>& page) {
  ScanContents contents{.facts = {.id = id}, .pages = {{.address = "http://a.test/"}}};
  if (page)
    contents.pages.push_back(
        {.address = "http://a.test/x", .title = page->title, .standing = page->standing});
  return contents;
}

TEST(Changes, PutEachPageIntoOneKind) {
  struct Case {
    const char* name;
    std::optional<Met> before;
    std::optional<Met> now;
    const char* expected;
  };
  const Case cases[] = {
      {"as it was", Met{kListed}, Met{kListed}, ""},
      {"new", {}, Met{kListed}, "added "},
      {"met before, and left out", Met{kLeftOut}, Met{kListed}, "added "},
      {"gone", Met{kListed}, {}, "gone "},
      {"left out now", Met{kListed}, Met{kLeftOut}, "gone "},
      {"left out, and gone", Met{kLeftOut}, {}, ""},
      {"left out twice, renamed", Met{kLeftOut, "A"}, Met{kLeftOut, "B"}, ""},
      {"newly broken, not gone", Met{kListed}, Met{kBroken}, "newlyBroken "},
      {"broken and new", {}, Met{kBroken}, "newlyBroken "},
      {"broken still, under another title", Met{kBroken, "A"}, Met{kBroken, "B"}, ""},
      {"repaired, not new", Met{kBroken}, Met{kListed}, "repaired "},
      {"broken, and nothing leads there now", Met{kBroken}, {}, "repaired "},
      {"renamed", Met{kListed, "A"}, Met{kListed, "B"}, "renamed "},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    const ScanContents before = scanOf(1, each.before);
    const ScanContents now = scanOf(2, each.now);
    const Changes changes = compare(before, now);
    std::string kinds;
    const auto name = [&](const std::vector<PageChange>& pages, const char* kind) {
      for (const PageChange& page : pages) {
        kinds += std::string(kind) + " ";
        EXPECT_EQ(page.before != nullptr, each.before.has_value());
        EXPECT_EQ(page.now != nullptr, each.now.has_value());
        EXPECT_EQ(page.page().address, "http://a.test/x");
      }
    };
    name(changes.added, "added");
    name(changes.gone, "gone");
    name(changes.newlyBroken, "newlyBroken");
    name(changes.repaired, "repaired");
    name(changes.renamed, "renamed");
    EXPECT_EQ(kinds, each.expected);
  }
}

TEST(Changes, AreToldInTwoLines) {
  const ScanContents before = scanOf(1, Met{kListed});
  const ScanContents now = scanOf(2, Met{kBroken});
  EXPECT_EQ(changesText(compare(before, now)),
            "0 pages new, 0 gone, 0 renamed.\nNewly broken: 1 (http://a.test/x), repaired: 0.");
  EXPECT_EQ(changesText(compare(now, before)),
            "0 pages new, 0 gone, 0 renamed.\nNewly broken: 0, repaired: 1.");
  EXPECT_EQ(changesText(compare({}, now)), "");
}

}  // namespace
}  // namespace report
