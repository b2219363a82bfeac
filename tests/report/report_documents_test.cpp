// The report as page, table and JSON, with texts that try to leave their place.
#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <openssl/evp.h>

#include "report/report_csv.h"
#include "report/report_html.h"
#include "report/report_json.h"
#include "report/report_page.h"

namespace report {
namespace {

using crawler::PageStanding;
using testing::HasSubstr;
using testing::Not;

std::size_t countOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

SiteReport hostileReport() {
  SiteReport report = {.siteName = "A<b>&", .startUrl = "http://a.test/"};
  report.now = {.facts = {.id = 2, .started = 10, .ended = 22, .end = "complete", .broken = 2},
                .pages = {{.number = 0,
                           .address = "http://a.test/",
                           .title = "</title><script>x()</script>",
                           .status = 200},
                          {.number = 1,
                           .address = "http://a.test/?x=\"><img src=x onerror=x()>&copy=1",
                           .title = "=1+1",
                           .type = "te\xFFxt",
                           .brokenReason = "404 - Not, \"found\"",
                           .status = 404,
                           .standing = PageStanding::broken,
                           .linkedFrom = 120},
                          {.number = 2,
                           .address = "javascript:x()",
                           .title = "T",
                           .brokenReason = "0 - x",
                           .standing = PageStanding::broken}},
                .outside = {{0, "data:text/html,<script>x()</script>", 1}, {1, "https://b.test/<!--", 2}}};
  report.before = {.facts = {.id = 1}, .pages = {{.address = "http://a.test/", .title = "<!--"}}};
  report.history = {report.now.facts};
  report.links[{false, 1}] = {{"http://a.test/", "@SUM(1)\n<svg onload=x()>"}};
  report.links[{true, 1}] = {{"http://a.test/", "</td><iframe src=//c.test>"}};
  report.checks = {{.address = "http://a.test/<i>.png",
                    .state = LinkState::broken,
                    .status = 410,
                    .reason = "410 - Gone",
                    .foundOn = "http://a.test/"},
                   {.address = "https://b.test/<!--",
                    .state = LinkState::moved,
                    .status = 200,
                    .movedTo = "https://c.test/<img>",
                    .certificateEnds = std::chrono::seconds(86'400 * 1'000)}};
  report.lastCheck = {.started = 30};
  report.leftOut.groups = {{.reason = crawler::LinkReason::filter,
                            .which = "<style>",
                            .count = 3,
                            .examples = {{"http://a.test/<script>", "vbscript:x()"}}}};
  return report;
}

TEST(ReportHtml, KeepsTextsInTheirPlace) {
  const std::string page = reportHtml(hostileReport());
  for (const char* tag : {"<script", "</script", "<style", "</style", "<title>Report", "<meta charset"})
    EXPECT_EQ(countOf(page, tag), 1u) << tag;
  for (const char* never : {"<img", "<svg onload", "<iframe", "<!--", "href=\"javascript", "href=\"data",
                            "href=\"vbscript", "src=\"", "url(", "@import", "\xFF"})
    EXPECT_THAT(page, Not(HasSubstr(never)));
  EXPECT_EQ(countOf(page, "href="),
            countOf(page, "rel=\"noreferrer\" href=\"http") + countOf(page, "href=\"#"));
  for (const char* shown :
       {"<title>Report of A&lt;b>&amp;</title>",
        "href=\"http://a.test/?x=%22%3E%3Cimg src=x onerror=x()%3E&amp;copy=1\"", "javascript:x()",
        "&lt;!--</bdi> \xE2\x86\x92 </span><bdi>&lt;/title>&lt;script>", "and on 110 more pages",
        "by the filter \"&lt;style>\"", "--delete TEXT", "Newly broken (2)",
        "was stopped: 2 asked, 1 broken, 1 moved, 0 could not be checked.</p>",
        "Moved to https://c.test/&lt;img>; the certificate ended on 1972-09-2"})
    EXPECT_THAT(page, HasSubstr(shown));
}

TEST(ReportHtml, AllowsItsOwnStyleAndScriptOnly) {
  const auto hashOf = [](std::string_view text) {
    std::array<unsigned char, 32> hash{};
    EVP_Digest(text.data(), text.size(), hash.data(), nullptr, EVP_sha256(), nullptr);
    std::array<unsigned char, 45> letters{};
    EVP_EncodeBlock(letters.data(), hash.data(), hash.size());
    return std::string(letters.begin(), letters.end() - 1);
  };
  // They change with the texts, and a browser that finds them wrong shows a bare page.
  EXPECT_EQ(hashOf(pageStyle()), kStyleHash);
  EXPECT_EQ(hashOf(kPageScript), kScriptHash);
  const std::string page = reportHtml({});
  EXPECT_THAT(page, HasSubstr("content=\"default-src 'none'; style-src 'sha256-" + std::string(kStyleHash) +
                              "'; script-src 'sha256-" + std::string(kScriptHash) + "';"));
  EXPECT_THAT(page, HasSubstr("<style>" + pageStyle() + "</style>"));
  EXPECT_THAT(page, HasSubstr("<script>" + std::string(kPageScript) + "</script>"));
}

TEST(ReportHtml, IsBoundedWhateverTheSite) {
  SiteReport report;
  report.siteName = "Big";
  for (std::uint32_t i = 0; i < 20'000; ++i) {
    const std::string address = "http://a.test/" + std::to_string(i);
    const auto standing = i % 2 == 0 ? PageStanding::listed : PageStanding::broken;
    report.now.pages.push_back({.number = i, .address = address, .title = "Same", .standing = standing});
    report.now.outside.push_back({i, "http://b.test/" + std::to_string(i), 1});
    report.links[{false, i}].assign(100, {address, "Name"});
  }
  const std::string page = reportHtml(report);
  EXPECT_LT(page.size(), 6u << 20);
  EXPECT_THAT(page,
              HasSubstr("1,000 of 10,000 are shown. All of them: <code>veskel-cli report \"Big\" --broken"));
  EXPECT_THAT(
      page,
      HasSubstr(
          "1,000 of 20,000 are shown. All of them: <code>veskel-cli report \"Big\" --output pages.csv"));
}

TEST(ReportCsv, IsSafeForSpreadsheets) {
  const SiteReport report = hostileReport();
  EXPECT_EQ(brokenCsv(report),
            "URL,Status,Reason,Linking page,Link\r\n"
            "\"http://a.test/?x=\"\"><img src=x onerror=x()>&copy=1\",404,\"404 - Not, "
            "\"\"found\"\"\",http://a.test/,"
            "\"'@SUM(1)\n<svg onload=x()>\"\r\n"
            "javascript:x(),0,0 - x,,\r\n");
  const std::string pages = pagesCsv(report);
  EXPECT_EQ(countOf(pages, "\r\n"), 4u);
  EXPECT_THAT(pages, HasSubstr(",404,broken,\"404 - Not, \"\"found\"\"\",'=1+1,"));
  EXPECT_THAT(pages, HasSubstr(",120,http://a.test/\r\n"));
}

TEST(ReportJson, HoldsEverything) {
  const auto json = nlohmann::json::parse(reportJson(hostileReport()));
  EXPECT_EQ(json["site"], "A<b>&");
  EXPECT_EQ(json["pages"].size(), 3u);
  EXPECT_EQ(json["pages"][1]["type"], "te\xEF\xBF\xBDxt");
  EXPECT_EQ(json["broken"].size(), 2u);
  EXPECT_EQ(json["broken"][0]["linkingPages"][0]["link"], "@SUM(1)\n<svg onload=x()>");
  EXPECT_EQ(json["changes"]["renamed"][0]["before"], "<!--");
  EXPECT_EQ(json["changes"]["newlyBroken"].size(), 2u);
  EXPECT_EQ(json["leftOut"][0]["which"], "<style>");
  EXPECT_EQ(json["outside"].size(), 2u);
  EXPECT_FALSE(json["outside"][0].contains("state"));
  EXPECT_EQ(json["outside"][1]["movedTo"], "https://c.test/<img>");
  EXPECT_EQ(json["resources"][0]["foundOn"], "http://a.test/");
  EXPECT_TRUE(json["linkCheck"]["ended"].is_null());
  EXPECT_TRUE(nlohmann::json::parse(reportJson({}))["changes"].is_null());
  EXPECT_EQ(nlohmann::json::parse(brokenJson(hostileReport())), json["broken"]);
}

}  // namespace
}  // namespace report
