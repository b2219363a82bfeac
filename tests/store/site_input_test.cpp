#include "store/site_input.h"

#include <string>

#include <gtest/gtest.h>

namespace {

const std::string kForbidden = "\nThe site name cannot contain the following characters: / \\ . or ?";
const std::string kBlankName = "The site name field cannot be left blank.";
const std::string kBlankUrl = "\nThe site URL field cannot be left blank.";
const std::string kFtp = "\nURLs must begin http:// or https://\nftp:// etc scans are not available.";

TEST(CheckSiteInput, TellsEveryFault) {
  struct Case {
    const char* name;
    std::string siteName;
    const char* url;
    std::string error;
  };
  const Case cases[] = {
      {"good", "My shop, 2nd", "a.test", ""},
      {"both blank", "", "", kBlankName + kBlankUrl},
      {"blanks in front wear down", " shop", " a.test", kBlankName + kBlankUrl},
      {"blanks behind wear down", "shop ", "a.test ", kBlankName + kBlankUrl},
      {"each kind once", "/\\.?/", "a.test", kForbidden + kForbidden + kForbidden + kForbidden},
      {"faults behind a blank are gone with it", " a.b", "a.test", kBlankName},
      {"ftps and a bad name", "a?", "ftps://a.test", kForbidden + kFtp},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto checked = store::checkSiteInput(c.siteName, c.url);
    EXPECT_EQ(checked.error, c.error);
    EXPECT_TRUE(checked.name == c.siteName || !c.error.empty());
  }
}

TEST(CheckSiteUrl, CompletesTheUrl) {
  struct Case {
    const char* name;
    const char* typed;
    const char* url;
  };
  const Case cases[] = {
      {"page file with a query", "http://a.test/x.PHP5?y=1", "http://a.test/x.PHP5?y=1"},
      {"query without a page file", "http://a.test/?q=1", "http://a.test/?q=1/"},
      {"slash is there", "https://a.test/b/", "https://a.test/b/"},
      {"scheme in upper case", "HTTP://example.com", "http://HTTP://example.com/"},
      {"typed twice", "http://http://example.com", "http://example.com/"},
      {"blank inside", "http://example.com/my page", "http://example.com/my%20page/"},
      {"blank inside https", "https://a.test/my page", "http://https://a.test/my%20page/"},
      {"port looks like a scheme", "example.com:8080", "http://example.com:8080/"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto checked = store::checkSiteUrl(c.typed);
    EXPECT_EQ(checked.error, "");
    EXPECT_EQ(checked.text, c.url);
  }
}

}  // namespace
