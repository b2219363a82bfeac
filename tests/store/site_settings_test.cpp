#include "store/site_settings.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "store_test.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SiteSettingsTest : public StoreTest {
 protected:
  SiteSettingsTest() {
    write("a/a.qzVSK", "x");
    std::filesystem::create_directories(file.parent_path());
  }

  platform::FileResult setPages(int pages) const {
    return store::changeSettings(controls, state, "a", [&](auto& settings) { settings.maxPages = pages; });
  }

  std::filesystem::path file = store::settingsFile(state, "a");
};

TEST_F(SiteSettingsTest, ReadsWhatItCanAndWritesItBack) {
  struct Case {
    const char* name;
    std::string text;
    store::SiteSettings settings;
    std::size_t problems;
    std::string after;  // the file, once the limit of pages is set to 7
  };
  const Case cases[] = {
      {"empty", "", {}, 0, "max-pages 7\n"},
      {"both",
       "connections 64\nmax-pages 2147483647\n",
       {2147483647, 64},
       0,
       "max-pages 7\nconnections 64\n"},
      {"the default", "connections 6\nmax-pages 0\n", {}, 0, "max-pages 7\n"},
      {"of a newer program", " later  x y \nmax-pages 5", {5}, 0, "max-pages 7\n later  x y \n"},
      {"edited elsewhere", "\n max-pages \t5 \r\n\r\n", {5}, 0, "max-pages 7\n\r\n"},
      {"out of range", "connections 65\nmax-pages -1\n", {}, 2, "max-pages 7\n"},
      {"no numbers", "connections\nmax-pages 5x\n", {}, 2, "max-pages 7\n"},
      {"too large to count",
       "connections 4\nmax-pages 4294967297\n",
       {0, 4},
       1,
       "max-pages 7\nconnections 4\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASSERT_TRUE(platform::replaceFile(file, c.text).ok());
    const auto stored = store::readSettings(state, "a");
    EXPECT_EQ(stored.settings, c.settings);
    EXPECT_EQ(stored.problems.size(), c.problems);
    EXPECT_TRUE(setPages(7).ok());
    EXPECT_EQ(platform::readFile(file).text, c.after);
  }
}

TEST_F(SiteSettingsTest, WhatIsNoFileIsToldAndLeftAlone) {
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  EXPECT_THAT(store::readSettings(state, "a").problems, ElementsAre(HasSubstr(file.native())));
  EXPECT_EQ(setPages(7).status, platform::FileStatus::failed);
  EXPECT_TRUE(std::filesystem::is_fifo(file));
}

}  // namespace
