#include "crawler/sitemap_starts.h"

#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "crawler/sitemap_text.h"
#include "platform/gzip.h"
#include "sitemaps/xml_validation.h"

namespace crawler {
namespace {

using testing::ElementsAre;

std::string urlset(std::string_view entries) {
  return "<urlset xmlns='x'>" + std::string(entries) + "</urlset>";
}

std::string indexOf(const std::vector<std::string>& addresses) {
  std::string text = "<sitemapindex>";
  for (const std::string& address : addresses) text += "<sitemap><loc>" + address + "</loc></sitemap>";
  return text + "</sitemapindex>";
}

TEST(SitemapText, ReadsEveryKindOfFile) {
  struct Case {
    const char* name;
    std::string content;
    std::string addresses;  // a blank behind each
    const char* problem;    // how it begins
  };
  const std::string good = urlset("<url>\n<loc> http://h/a?b=1&amp;c=2 </loc><lastmod>2020</lastmod></url>");
  const Case cases[] = {
      {"pages", "\xEF\xBB\xBF<?xml version=\"1.0\"?>\n" + good, "http://h/a?b=1&c=2 ", ""},
      {"compressed", platform::gzipped(good).value_or(""), "http://h/a?b=1&c=2 ", ""},
      {"damaged", platform::gzipped(good).value_or("").substr(0, 40), "", "The compressed file is damaged"},
      {"a bomb", platform::gzipped(std::string(sitemaps::kMaxSitemapBytes + 1, ' ')).value_or(""), "",
       "It is larger than 50 MB"},
      {"a prefix, characters as they are, a comment",
       "<s:urlset xmlns:s='x'><s:url><s:loc><![CDATA[/a&amp;b]]></s:loc></s:url><!-- & --></s:urlset>",
       "/a&amp;b ", ""},
      {"bare marks", urlset("<url><loc>/a?b&c=&nbsp;&#38;&#0;<b&lt;</loc></url>"), "/a?b&c=&nbsp;&&#0;<b< ",
       ""},
      {"what is no page's",
       urlset("<url xmlns:i='y'><i:loc>/1</i:loc><i:image><loc>/2</loc></i:image><loc/><loc>/3</loc></url>"
              "<sitemap><loc>/4</loc></sitemap><loc>/5</loc>"),
       "/3 ", ""},
      {"an address left open", urlset("<url><loc>/1</loc></url>\n<url><loc>/2</loc></url><url><loc>/3"),
       "/1 /2 ", "Line 2: "},
      {"blanks in front of the declaration", "\n<?xml version='1.0'?>" + good, "http://h/a?b=1&c=2 ",
       "Line 2: "},
      {"a page", "<!DOCTYPE html><html><url><loc>/1</loc></url></html>", "", "It is no sitemap"},
      {"entities that grow",
       "<!DOCTYPE a [<!ENTITY x 'xxxx'><!ENTITY y '&x;&x;'>]>" + urlset("<url><loc>/&y;</loc></url>"),
       "/&y; ", ""},
      {"lines", "\n HTTP://h/1 \r\nhttps://h/2?a&amp;\rnoise\n\nhttp://h/3",
       "HTTP://h/1 https://h/2?a&amp; http://h/3 ", ""},
      {"other lines", "Not found\nhttp://h/1", "", "It is no sitemap"},
      {"an address without end", urlset("<url><loc>/" + std::string(9'000, 'a') + "</loc></url>"), "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const SitemapText text = readSitemapText(c.content);
    std::string addresses;
    for (const std::string& address : text.addresses) addresses += address + " ";
    EXPECT_EQ(addresses, c.addresses);
    EXPECT_EQ(text.problem.substr(0, std::string_view(c.problem).size()), c.problem);
    EXPECT_EQ(text.problem.empty(), std::string_view(c.problem).empty()) << text.problem;
  }
  std::string many;
  for (std::size_t i = 0; i <= sitemaps::kMaxSitemapEntries; ++i) many += "http://h/\n";
  EXPECT_EQ(readSitemapText(many).addresses.size(), sitemaps::kMaxSitemapEntries);
  EXPECT_EQ(readSitemapText(many).problem, "It holds more than 50,000 addresses; the first ones count");
}

/// Answers from a table, 404 for all else.
struct FakeSite : platform::HttpClient {
  platform::HttpAnswer fetch(const platform::HttpRequest& request, std::stop_token) override {
    asked.push_back(request.url);
    if (request.url == stopAt) stop.request_stop();
    if (stop.stop_requested()) return {.failure = platform::FetchFailure::stopped};
    const auto found = files.find(request.url);
    if (found == files.end()) return {.status = 404};
    return {.status = 200, .body = found->second};
  }

  /// What was named and what was wrong, a line each.
  std::vector<std::string> read(std::string_view start, const std::vector<std::string>& named) {
    std::vector<std::string> told;
    const NamedPage page = [&](std::string_view address, const SiteSitemap& sitemap) {
      told.push_back(std::string(address) + " by " + sitemap.address);
    };
    for (const SiteSitemap& s :
         readSiteSitemaps(*this, *web::parseUrl(start), named, page, stop.get_token())) {
      if (!s.problem.empty()) told.push_back(s.address + ": " + s.problem);
    }
    return told;
  }

  std::map<std::string, std::string> files;
  std::string stopAt;
  std::stop_source stop;
  std::vector<std::string> asked;
};

TEST(SiteSitemaps, AreThoseNamedAndTheUsualOnes) {
  FakeSite site;
  site.files = {
      {"http://cdn/s.txt", "HTTP://H/a b#c\nhttp://other/\nmailto:a@h"},
      {"http://h/sitemap.xml", "<html/>"},
      {"http://h/docs/sitemap.xml", urlset("<url><loc>p</loc></url><url><loc>http://[</loc></url>")}};
  EXPECT_THAT(
      site.read("http://h/docs/start.html",
                {"http://cdn/s.txt#x", "http://cdn/s.txt", "gone.xml", "ftp://h/s"}),
      ElementsAre("http://h/a%20b by http://cdn/s.txt", "http://other/ by http://cdn/s.txt",
                  "http://h/docs/p by http://h/docs/sitemap.xml", "http://h/docs/gone.xml: 404 - Not Found"));
  EXPECT_THAT(site.asked, ElementsAre("http://cdn/s.txt", "http://h/docs/gone.xml", "http://h/sitemap.xml",
                                      "http://h/docs/sitemap.xml"));
}

TEST(SiteSitemaps, FollowIndexesWithinTheSiteAndBounds) {
  FakeSite site;
  site.files = {
      {"http://h/sitemap.xml", indexOf({"https://www.h/1", "http://h:81/foreign", "/2", "/sitemap.xml"})},
      {"https://www.h/1", indexOf({"pages", "2", "deep"})},
      {"https://www.h/pages", urlset("<url><loc>/p</loc></url>")},
      {"https://www.h/deep", indexOf({"/deeper"})}};
  EXPECT_THAT(
      site.read("http://h/", {}),
      ElementsAre("https://www.h/p by https://www.h/pages",
                  "http://h/sitemap.xml: It names sitemaps of another site, which are not read",
                  "https://www.h/2: 404 - Not Found",
                  "https://www.h/deep: It is an index within an index of indexes, which is not followed",
                  "http://h/2: 404 - Not Found"));
  site.stopAt = "https://www.h/pages";
  site.asked.clear();
  EXPECT_THAT(site.read("http://h/", {}),
              ElementsAre("http://h/sitemap.xml: It names sitemaps of another site, which are not read"));
  EXPECT_EQ(site.asked.back(), site.stopAt);

  FakeSite endless;
  std::vector<std::string> many;
  for (std::size_t i = 0; i < kMaxSitemapFiles; ++i) many.push_back("/" + std::to_string(i));
  endless.files = {{"http://h/sitemap.xml", indexOf(many)}};
  EXPECT_EQ(endless.read("http://h/", {}).front(),
            "http://h/sitemap.xml: No more than 1,000 sitemaps of a site are read");
  EXPECT_EQ(endless.asked.size(), kMaxSitemapFiles);
}

}  // namespace
}  // namespace crawler
