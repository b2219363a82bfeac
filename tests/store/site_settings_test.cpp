#include "store/site_settings.h"

#include <string>

#include <gmock/gmock.h>

#include "support/data_folder_test.h"

namespace {

using namespace std::chrono_literals;

using SiteSettingsTest = support::DataFolderTest;

TEST_F(SiteSettingsTest, ReadsWhatItCanAndWritesItBack) {
  write("a/a.qzVSK", "x");
  const auto file = store::settingsFile(state, "a");
  struct Case {
    const char* name;
    std::string text;
    store::SiteSettings settings;
    std::size_t problems;
    std::string rest;  // of the file, once the limit of pages is set
  };
  const Case cases[] = {
      {"the most",
       "connections 64\nmax-pages 2147483647\n",
       {.maxPages = 2147483647, .connections = 64},
       0,
       "connections 64\n"},
      {"the default", "connections 6\nmax-pages 0\n", {}, 0, ""},
      {"of a newer program", " later  x y \nmax-pages 5", {.maxPages = 5}, 0, " later  x y \n"},
      {"texts",
       "user-agent Mozilla/5.0 (it's me)\nheader  A: 1\nheader B:\n",
       {.userAgent = "Mozilla/5.0 (it's me)", .headers = {"A: 1", "B:"}},
       0,
       "user-agent Mozilla/5.0 (it's me)\nheader A: 1\nheader B:\n"},
      {"no headers",
       "header A\nheader : x\nheader A b: x\nheader HOST: x\nheader Proxy-X: x\nheader A: \1\n"
       "header Authorization: x\nuser-agent \x7F\nuser-agent \xFF\n",
       {},
       9,
       ""},
      {"edited elsewhere", "\n max-pages \t5 \r\n\r\n", {.maxPages = 5}, 0, "\r\n"},
      {"a fraction", "delay 0.250\n", {.delay = 250ms}, 0, "delay 0.25\n"},
      {"no times", "delay -1\ndelay 60.001\ndelay nan\ndelay 1e1\ndelay 1,5\ndelay 2s\n", {}, 6, ""},
      {"out of range", "connections 65\nmax-pages -1\n", {}, 2, ""},
      {"no numbers", "connections\nmax-pages 5x\n", {}, 2, ""},
      {"too large to count",
       "connections 4\nmax-pages 4294967297\n",
       {.connections = 4},
       1,
       "connections 4\n"},
  };
  std::filesystem::create_directories(file.parent_path());
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASSERT_TRUE(platform::replaceFile(file, c.text).ok());
    const auto stored = store::readSettings(state, "a");
    EXPECT_EQ(stored.settings, c.settings);
    EXPECT_EQ(stored.problems.size(), c.problems);
    const auto change = [](auto& settings) { settings.maxPages = 7; };
    EXPECT_TRUE(store::changeSettings(controls, state, "a", change).ok());
    EXPECT_EQ(platform::readFile(file).text, "max-pages 7\n" + c.rest);
  }
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  EXPECT_THAT(store::readSettings(state, "a").allProblems(), testing::HasSubstr(file.native()));
}

}  // namespace
