#include "platform/phrases.h"

#include <gtest/gtest.h>

#include "platform/http_client.h"

namespace {

using platform::filled;
using platform::Phrases;

/// A language that says everything backwards.
class Backwards : public platform::Language {
 public:
  std::string text(const char* english, const char* several, std::int64_t count) const override {
    const std::string text = several == nullptr || count == 1 ? english : several;
    return {text.rbegin(), text.rend()};
  }
  std::string number(std::int64_t) const override { return "number"; }
  std::string number(double, int) const override { return "decimal"; }
  std::string date(std::int64_t) const override { return "date"; }
  std::string dateAndTime(std::int64_t) const override { return "time"; }
};

/// The language of the program again, whatever a test has made of it.
class PhrasesTest : public testing::Test {
 protected:
  ~PhrasesTest() override { Phrases::speak(m_before); }

 private:
  const platform::Language& m_before = Phrases::language();
};

TEST_F(PhrasesTest, FillsPlacesWithValuesAsTheyAre) {
  struct Case {
    const char* name;
    const char* text;
    std::initializer_list<std::string_view> values;
    const char* expected;
  };
  const Case cases[] = {
      {"other order", "%2 of %1", {"a", "b"}, "b of a"},
      {"a value that looks like a place",
       "%1 and %2",
       {"%2", "http://a.test/%20"},
       "%2 and http://a.test/%20"},
      {"twice", "%1%1", {"a"}, "aa"},
      {"no value for it", "%1 %2", {"a"}, "a %2"},
      {"no place", "100 % and %", {"a"}, "100 % and %"},
      {"a digit behind it", "%10", {"a"}, "a0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(filled(c.text, c.values), c.expected);
  }
}

TEST_F(PhrasesTest, CountsInEnglish) {
  struct Case {
    std::int64_t count;
    const char* expected;
  };
  const Case cases[] = {
      {0, "0 pages, 0"}, {1, "one page"}, {-1, "-1 pages, -1"}, {12'345, "12345 pages, 12,345"}};
  for (const Case& c : cases) {
    EXPECT_EQ(Phrases::tr("one page", "%n pages, %Ln", c.count), c.expected);
  }
}

TEST_F(PhrasesTest, SaysReasonsOfBrokenPages) {
  static const Backwards backwards;
  Phrases::speak(backwards);
  struct Case {
    const char* name;
    const char* reason;
    const char* expected;
  };
  const Case cases[] = {
      {"a standard's phrase", "404 - Not Found", "404 - Not Found"},
      {"no answer", "0 - Too many redirects", "0 - stcerider ynam ooT"},
      {"unknown", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(platform::reasonInLanguage(c.reason), c.expected);
  }
  EXPECT_EQ(platform::failureText(platform::FetchFailure::tooManyRedirects), "Too many redirects")
      << "what goes into files stays English";
}

}  // namespace
