#include "sitemaps/broken_links_export.h"

#include <chrono>
#include <fstream>

#include <gtest/gtest.h>

#include "sitemaps/copy_file.h"
#include "support/temp_folder.h"

namespace sitemaps {
namespace {

constexpr const char* kHtmlHeader =
    "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\"\n\t\"http://www.w3.org/TR/html4/strict.dtd\">\n"
    "\t<html lang=\"en\">\n<head>\n\t<meta http-equiv=\"Content-Type\" content=\"text/html; "
    "charset=utf-8\">\n"
    "\t<title>Broken Links Export</title>\n</head>\n<body>";

TEST(BrokenLinksExport, WritesTextAndHtmlByteForByte) {
  EXPECT_EQ(brokenLinksText({}), "\n");
  EXPECT_EQ(brokenLinksText({"http://h/b", "http://h/a"}), "http://h/b\nhttp://h/a\n\n");
  EXPECT_EQ(brokenLinksHtml({}), std::string(kHtmlHeader) + "\n</body>\n</html>\n");
  EXPECT_EQ(
      brokenLinksHtml({"http://h/?a&b", "http://h/%20\"<b>"}),
      std::string(kHtmlHeader) +
          "\n\t<p><a href=\"http://h/?a&b\">http://h/?a&b</a></p>"
          "\n\t<p><a href=\"http://h/%20%22%3Cb%3E\">http://h/%20%22%3Cb%3E</a></p>\n</body>\n</html>\n");
}

TEST(BrokenLinksExport, WritesATableThatReadersTakeApartRightly) {
  struct Case {
    const char* name;
    store::BrokenPage page;
    const char* row;
  };
  const Case cases[] = {
      {"known", {"http://h/a", "404 - Not Found"}, "http://h/a,404,Not Found"},
      {"no answer",
       {"http://h/a", "0 - Could not connect: refused"},
       "http://h/a,0,Could not connect: refused"},
      {"not known", {"http://h/a", ""}, "http://h/a,,"},
      {"status without a phrase", {"http://h/a", "499 - "}, "http://h/a,499,"},
      {"the phrase has a dash", {"http://h/a", "207 - Multi - Status"}, "http://h/a,207,Multi - Status"},
      {"no status", {"http://h/a", "too - large"}, "http://h/a,,too - large"},
      {"only a dash", {"http://h/a", " - "}, "http://h/a,, - "},
      {"a comma", {"http://h/a,b", "404 - a,b"}, "\"http://h/a,b\",404,\"a,b\""},
      {"quotes", {"http://h/\"a\"", "404 - \""}, "\"http://h/\"\"a\"\"\",404,\"\"\"\""},
      {"line ends", {"http://h/a\nb", "404 - c\r"}, "\"http://h/a\nb\",404,\"c\r\""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(brokenLinksCsv({c.page}), "URL,Status,Reason\r\n" + std::string(c.row) + "\r\n");
  }
  EXPECT_EQ(brokenLinksCsv({}), "URL,Status,Reason\r\n");
}

TEST(CopyFile, GivesATakenNameTheTime) {
  using namespace std::chrono_literals;
  const std::chrono::hh_mm_ss<std::chrono::seconds> afternoon(14h + 5min + 9s);
  EXPECT_EQ(timedName("/t/report.html", afternoon, ".html"), "/t/report_140509.html");
  EXPECT_EQ(timedName("/t/a.b.html", afternoon, "html"), "/t/a.b_140509html");
  EXPECT_EQ(timedName("/t.d/report", afternoon, ".html"), "/t.d/report_140509.html");
  EXPECT_EQ(timedName("report.", std::chrono::hh_mm_ss<std::chrono::seconds>(0s), ""), "report_000000");
}

TEST(CopyFile, NeverReplaces) {
  const support::TempFolder folder;
  const auto write = [&](const char* name, const char* text) {
    std::ofstream(folder.path() / name, std::ios::binary) << text;
  };
  write("a.html", "new");
  EXPECT_TRUE(copyFile(folder.path() / "a.html", folder.path() / "b.html", ".html").ok());
  write("b.html", "old");
  EXPECT_TRUE(copyFile(folder.path() / "a.html", folder.path() / "b.html", ".html").ok());
  EXPECT_EQ(platform::readFile(folder.path() / "b.html").text, "old");
  std::vector<std::string> files = platform::filesBelow(folder.path());
  ASSERT_EQ(files.size(), 3u);
  EXPECT_EQ(files[2].size(), std::string("b_140509.html").size());
  EXPECT_EQ(platform::readFile(folder.path() / files[2]).text, "new");
  EXPECT_EQ(copyFile(folder.path() / "none", folder.path() / "c.html", ".html").status,
            platform::FileStatus::missing);
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "c.html"));
}

}  // namespace
}  // namespace sitemaps
