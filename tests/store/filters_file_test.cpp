#include "store/filters_file.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/data_folder_test.h"

namespace {

using testing::ElementsAre;

class FiltersFileTest : public support::DataFolderTest {
 protected:
  FiltersFileTest() { write("a/a.qzVSK", "x"); }
};

TEST_F(FiltersFileTest, LoadingMakesAnEmptyFileAndAddingNone) {
  EXPECT_EQ(store::addFilter(controls, "a", "/a").status, platform::FileStatus::missing);
  EXPECT_TRUE(store::loadFilterFile(controls, "a").result.ok());
  EXPECT_EQ(read("a/filters.vskp"), "");
  EXPECT_EQ(store::loadFilterFile(controls, "none").result.status, platform::FileStatus::missing);
}

TEST_F(FiltersFileTest, AddsOneLineEach) {
  struct Case {
    const char* name;
    const char* before;
    const char* text;
    const char* after;
  };
  const Case cases[] = {
      {"line ends at both ends go", "", "\r\n\n/a\xE2\x80\xA8\xC2\x85\n", "/a\n"},
      {"empty changes nothing", "/a", "", "/a"},
      {"last line without its end", "/a", "/b", "/a\n/b\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    write("a/filters.vskp", c.before);
    EXPECT_TRUE(store::addFilter(controls, "a", c.text).ok());
    EXPECT_EQ(read("a/filters.vskp"), c.after);
  }
}

TEST_F(FiltersFileTest, ChangesWhatIsThereNowOrNothing) {
  write("a/filters.vskp", "/a\n/b\n\n");
  const auto add = [](auto& filters) { return filters.push_back("/c"), true; };
  EXPECT_THAT(store::changeFilters(controls, "a", add).entries, ElementsAre("/a", "/b", "/c"));
  EXPECT_TRUE(
      store::changeFilters(controls, "a", [](auto& filters) { return filters.clear(), false; }).result.ok());
  EXPECT_EQ(read("a/filters.vskp"), "/a\n/b\n/c\n");
}

TEST_F(FiltersFileTest, TakesAwayWhatWasSeenFromWhatIsThereNow) {
  const std::vector<std::string> shown = {"/a", "/b", "/a"};
  EXPECT_THAT(store::withoutFilters(shown, shown, {}), ElementsAre("/a", "/b", "/a"));
  EXPECT_THAT(store::withoutFilters(shown, shown, {2}), ElementsAre("/a", "/b"));
  EXPECT_THAT(store::withoutFilters({"/new", "/a", "/b", "/a"}, shown, {0, 1}), ElementsAre("/new", "/a"));
  EXPECT_THAT(store::withoutFilters({"/a", "/c"}, shown, {1, 2}), ElementsAre("/a", "/c"));
}

}  // namespace
