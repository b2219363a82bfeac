#include "platform/uri.h"

#include <sstream>

#include <gtest/gtest.h>

#include "platform/idna.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

using Part = std::optional<std::string_view>;
constexpr std::nullopt_t kNone = std::nullopt;

TEST(SplitUri, SplitsEveryText) {
  struct Case {
    const char* text;
    Part scheme;
    Part authority;
    const char* path;
    Part query;
    Part fragment;
    const char* host;
  };
  const Case cases[] = {
      {"http://u:p@h.test:80/a/b?q#f", "http", "u:p@h.test:80", "/a/b", "q", "f", "h.test"},
      {"http://h/#", "http", "h", "/", kNone, "", "h"},
      {"http://h?q", "http", "h", "", "q", kNone, "h"},
      {"http:a", "http", kNone, "a", kNone, kNone, ""},
      {"?a#b#c?d", kNone, kNone, "", "a", "b#c?d", ""},
      {"a b:c", "a b", kNone, "c", kNone, kNone, ""},
      {"http://[::1]:8080/", "http", "[::1]:8080", "/", kNone, kNone, "[::1]"},
      {"http://safe.test@evil.test@h/", "http", "safe.test@evil.test@h", "/", kNone, kNone, "h"},
      {"http://:80/", "http", ":80", "/", kNone, kNone, ""},
      {"http://[::1/", "http", "[::1", "/", kNone, kNone, "["},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const UriParts parts = splitUri(c.text);
    EXPECT_EQ(parts.scheme, c.scheme);
    EXPECT_EQ(parts.authority, c.authority);
    EXPECT_EQ(parts.path, c.path);
    EXPECT_EQ(parts.query, c.query);
    EXPECT_EQ(parts.fragment, c.fragment);
    EXPECT_EQ(parts.host(), c.host);
  }
}

TEST(OriginOf, TellsServersApart) {
  const std::pair<const char*, const char*> cases[] = {
      {"HTTP://u:p@H.test:80/a?b", "http://h.test"},
      {"https://h.test:443", "https://h.test"},
      {"http://h.test:443/", "http://h.test:443"},
      {"http://h.test@[::1]:8/", "http://[::1]:8"},
      {"ftp://h.test/", ""},
      {"http:///h.test", ""},
  };
  for (const auto& [url, origin] : cases) EXPECT_EQ(originOf(url), origin) << url;
}

TEST(IsUriReference, GoesByTheGrammar) {
  // Separated by blanks.
  std::istringstream accepted(
      "a / //h // ? # ./a:b /a:b a/b:c http: http:// http://h:/ http://h:99999/ http://%C3%A4.test/ "
      "http://u:p:q@h/ http://@h/ http://[::1]/ http://[2001:db8::7:1.2.3.4]:80 http://[vF.a:b!]/ "
      "a+1.-b:c /a//b/;x=1,2/@:!$&'()*+-._~ ?a=/?:@ #/?:@! urn:isbn:1-2 ..%2f%2F");
  std::istringstream rejected(
      "\xC3\xA4 % %4 a%4 %4g %%41 a\"b <a> \\a a^b a`b {a} a|b /a[1] ?a[]=1 #[a] #a#b :a 1a:b -a:b a_b:c "
      "a%41:c a\x7F http://h:8o/ http://h:80:80/ http://h:-1/ http://a@b@c/ http://a[b]/ http://[::1/ "
      "http://::1]/ http://[]/ http://[::1]x/ http://[1.2.3.4]/ http://[::1%25eth0]/ http://[v.x]/ "
      "http://[v1.]/ http://[v1.%41]/ http://[1::2::3]/");
  std::string text;
  while (accepted >> text) EXPECT_TRUE(isUriReference(text)) << text;
  while (rejected >> text) EXPECT_FALSE(isUriReference(text)) << text;
  EXPECT_TRUE(isUriReference(""));
  for (const std::string_view blank : {"a b"sv, " a"sv, "a\n"sv, "a\0"sv})
    EXPECT_FALSE(isUriReference(blank));
}

TEST(WithAsciiHost, WritesOtherScriptsAsTheNameSystemDoes) {
  const std::pair<const char*, const char*> cases[] = {
      {"http://h.example/\xC3\xBC", "http://h.example/\xC3\xBC"},
      {"http://b\xC3\xBC"
       "cher.example:81/\xC3\xBC?b\xC3\xBC",
       "http://xn--bcher-kva.example:81/\xC3\xBC?b\xC3\xBC"},
      {"http://me@STRA\xC3\x9F"
       "E.example",
       "http://me@xn--strae-oqa.example"},
      {"http://\xE2\x80\x8B/", "http://\xE2\x80\x8B/"},    // nothing is left of a blank without width
      {"http://b\xE2\x81\x88/", "http://b\xE2\x81\x88/"},  // U+2048 means "?!"
  };
  for (const auto& [url, expected] : cases) EXPECT_EQ(withAsciiHost(url), expected);
}

}  // namespace
}  // namespace platform
