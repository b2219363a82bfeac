#include "report/address_answer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace report {
namespace {

using crawler::LeftOutExample;
using crawler::LinkReason;
using crawler::PageStanding;

std::shared_ptr<LatestReport> shop() {
  auto report = std::make_shared<LatestReport>();
  report->now.facts.id = 1;
  report->now.pages = {{.address = "http://shop.test/"},
                       {.address = "http://shop.test/tea/"},
                       {.address = "http://shop.test/gone",
                        .brokenReason = "404 - Not Found",
                        .standing = PageStanding::broken},
                       {.address = "http://shop.test/draft",
                        .standing = PageStanding::leftOut,
                        .leftOutBy = LinkReason::noIndex}};
  report->now.outside = {{.address = "http://away.test/x", .linkedFrom = 2}};
  report->leftOut.groups = {
      {LinkReason::foreignExtension, "", 1, {{"http://shop.test/list.aspx", "http://shop.test/"}}},
      {LinkReason::robots, "/admin", 3, {{"http://shop.test/admin", "http://shop.test/tea/"}}},
      {LinkReason::otherHost, "", 500, {}}};
  return report;
}

TEST(AddressAnswer, SaysWhyAnAddressIsNotListed) {
  struct Case {
    const char* name;
    const char* typed;
    const char* answer;  // the beginning of it
  };
  const Case cases[] = {
      {"listed", "http://shop.test/tea/", "In the sitemaps."},
      {"another spelling", " https://shop.test/tea#top ", "In the sitemaps."},
      {"broken", "http://shop.test/gone", "Broken: 404 - Not Found."},
      {"left out when fetched", "shop.test/draft",
       "Left out, as it asks to be left out. The pages themselves ask for it"},
      {"an example", "http://shop.test/admin",
       "Found on http://shop.test/tea/, but left out by the robots.txt rule \"/admin\". The site's "
       "robots.txt"},
      {"outside, and met", "http://away.test/x", "It lies outside of the site: 2 pages link to it"},
      {"outside, and not met", "https://other.test/", "It lies outside of the site, which is all below"},
      {"by a filter", "http://shop.test/PRIVATE/1",
       "The filter \"/private\" keeps it out. A filter of the site does this: delete it in the Filters "
       "beside"},
      {"an ending that was met", "http://shop.test/b/other.aspx?x=1",
       "Addresses that end in \".aspx\" are left out. Pages with"},
      {"a known ending", "http://shop.test/a.PDF", "Addresses that end in \".PDF\" are left out."},
      {"not met", "http://shop.test/new",
       "No page of the last complete scan links to it. Or it is one of 2 links that were left out"}};
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    EXPECT_THAT(whyNotListed(*shop(), {"#x", "/private"}, each.typed), testing::StartsWith(each.answer));
  }
}

TEST(AddressAnswer, TellsAddressesFromWords) {
  for (const char* address : {"http://shop.test/", "/tea", "tea.html", " shop.test "})
    EXPECT_TRUE(looksLikeAddress(address)) << address;
  for (const char* words : {"", "tea", "tea. And cups", "http: //"})
    EXPECT_FALSE(looksLikeAddress(words)) << words;
}

}  // namespace
}  // namespace report
