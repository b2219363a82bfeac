#include "sitemaps/broken_links_export.h"

#include <chrono>

#include <gtest/gtest.h>

#include "sitemaps/copy_file.h"
#include "support/data_folder_test.h"

namespace sitemaps {
namespace {

constexpr const char* kHtmlHeader =
    "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\"\n\t\"http://www.w3.org/TR/html4/strict.dtd\">\n"
    "\t<html lang=\"en\">\n<head>\n\t<meta http-equiv=\"Content-Type\" content=\"text/html; "
    "charset=utf-8\">\n"
    "\t<title>Broken Links Export</title>\n</head>\n<body>";

TEST(BrokenLinksExport, WritesHtmlByteForByte) {
  EXPECT_EQ(
      brokenLinksHtml({"http://h/?a&b", "http://h/%20\"<b>"}),
      std::string(kHtmlHeader) +
          "\n\t<p><a href=\"http://h/?a&b\">http://h/?a&b</a></p>"
          "\n\t<p><a href=\"http://h/%20%22%3Cb%3E\">http://h/%20%22%3Cb%3E</a></p>\n</body>\n</html>\n");
}

TEST(BrokenLinksExport, WritesATableThatReadersTakeApartRightly) {
  const std::pair<store::BrokenPage, std::string> cases[] = {
      {{"http://h/a", "207 - Multi - Status"}, "http://h/a,207,Multi - Status"},
      {{"http://h/a", "too - large"}, "http://h/a,,too - large"},
      {{"http://h/a,b", "404 - a,b"}, "\"http://h/a,b\",404,\"a,b\""},
      {{"http://h/\"a\"", "404 - \""}, "\"http://h/\"\"a\"\"\",404,\"\"\"\""},
      {{"http://h/a", "500 - =HYPERLINK(1)"}, "http://h/a,500,'=HYPERLINK(1)"},
      {{"http://h/a\nb", "404 - c\r"}, "\"http://h/a\nb\",404,\"c\r\""},
  };
  for (const auto& [page, row] : cases) {
    EXPECT_EQ(brokenLinksCsv({page}), "URL,Status,Reason\r\n" + row + "\r\n");
  }
}

TEST(CopyFile, GivesATakenNameTheTime) {
  using namespace std::chrono_literals;
  const std::chrono::hh_mm_ss<std::chrono::seconds> afternoon(14h + 5min + 9s);
  EXPECT_EQ(timedName("/t/report.html", afternoon, ".html"), "/t/report_140509.html");
  EXPECT_EQ(timedName("/t/a.b.html", afternoon, "html"), "/t/a.b_140509html");
  EXPECT_EQ(timedName("/t.d/report", afternoon, ".html"), "/t.d/report_140509.html");
}

using CopyFileTest = support::DataFolderTest;

TEST_F(CopyFileTest, NeverReplaces) {
  write("a.html", "new");
  write("b.html", "old");
  EXPECT_TRUE(copyFile(data() / "a.html", data() / "b.html", ".html").ok());
  EXPECT_EQ(read("b.html"), "old");
  const std::vector<std::string> files = platform::filesBelow(data());
  ASSERT_EQ(files.size(), 3u);
  EXPECT_EQ(files[2].size(), std::string("b_140509.html").size());
  EXPECT_EQ(read(files[2]), "new");
  EXPECT_EQ(copyFile(data() / "none", data() / "c.html", ".html").status, platform::FileStatus::missing);
  EXPECT_EQ(read("c.html"), "(missing)");
}

}  // namespace
}  // namespace sitemaps
