#include "store/site_input.h"

#include <string>

#include <gtest/gtest.h>

namespace {

const std::string kForbidden = "\nThe site name cannot contain the following characters: / \\ . or ?";
const std::string kBlankName = "The site name field cannot be left blank.";
const std::string kBlankUrl = "\nThe site URL field cannot be left blank.";
const std::string kFtp = "\nURLs must begin http:// or https://\nftp:// etc scans are not available.";

TEST(CheckSiteName, TellsEveryFault) {
  struct Case {
    const char* name;
    std::string typed;
    std::string error;
  };
  const Case cases[] = {
      {"plain", "My shop, 2nd", ""},
      {"beyond ASCII",
       "B\xC3\xBC"
       "cher",
       ""},
      {"empty", "", kBlankName},
      {"blank in front wears it down", " shop", kBlankName},
      {"blank behind wears it down", "shop ", kBlankName},
      {"blanks alone", "   ", kBlankName},
      {"tab is no blank", "\tshop", ""},
      {"two kinds, one of them twice", "a.b/c.d", kForbidden + kForbidden},
      {"all kinds", "/\\.?", kForbidden + kForbidden + kForbidden + kForbidden},
      {"faults behind a blank are gone with it", " a.b", kBlankName},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto checked = store::checkSiteName(c.typed);
    EXPECT_EQ(checked.error, c.error);
    if (c.error.empty()) {
      EXPECT_EQ(checked.text, c.typed);
    }
  }
}

TEST(CheckSiteUrl, CompletesTheUrl) {
  struct Case {
    const char* name;
    const char* typed;
    const char* url;
  };
  const Case cases[] = {
      {"no scheme", "www.example.com", "http://www.example.com/"},
      {"page file", "example.com/index.php", "http://example.com/index.php"},
      {"page file with a query", "http://a.test/x.PHP5?y=1", "http://a.test/x.PHP5?y=1"},
      {"extension inside the host", "http://www.htmlworks.com", "http://www.htmlworks.com"},
      {"query without a page file", "http://a.test/?q=1", "http://a.test/?q=1/"},
      {"slash is there", "https://a.test/b/", "https://a.test/b/"},
      {"scheme in upper case", "HTTP://example.com", "http://HTTP://example.com/"},
      {"ftp in upper case is no ftp", "FTP://a.test", "http://FTP://a.test/"},
      {"typed twice", "http://http://example.com", "http://example.com/"},
      {"typed three times", "http://http://http://a.test", "http://http://a.test/"},
      {"blank inside", "http://example.com/my page", "http://example.com/my%20page/"},
      {"blank inside https", "https://a.test/my page", "http://https://a.test/my%20page/"},
      {"beyond ASCII is no URI", "http://a.test/\xC3\xBC", "http://a.test/\xC3\xBC/"},
      {"stray percent behind ftp", "ftp://a.test/100%", "http://ftp://a.test/100%/"},
      {"port looks like a scheme", "example.com:8080", "http://example.com:8080/"},
      {"path alone", "/a/b", "http:///a/b/"},
      {"other scheme", "mailto:x@a.test", "http://mailto:x@a.test/"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto checked = store::checkSiteUrl(c.typed);
    EXPECT_EQ(checked.error, "");
    EXPECT_EQ(checked.text, c.url);
  }
}

TEST(CheckSiteInput, CollectsErrorsInOrder) {
  struct Case {
    const char* name;
    const char* siteName;
    const char* url;
    std::string error;
  };
  const Case cases[] = {
      {"both blank", "", "", kBlankName + kBlankUrl},
      {"URL worn down", "shop", " a.test", kBlankUrl},
      {"ftp", "shop", "ftp://a.test", kFtp},
      {"ftps and a bad name", "a?", "ftps://a.test", kForbidden + kFtp},
      {"good", "shop", "a.test", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(store::checkSiteInput(c.siteName, c.url).error, c.error);
  }
}

}  // namespace
