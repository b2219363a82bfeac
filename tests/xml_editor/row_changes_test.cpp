// What may be typed, and what an edit does to a row.
#include "xml_editor/row_changes.h"

#include <string>

#include <gtest/gtest.h>

#include "xml_editor/menu_values.h"

namespace xml_editor {
namespace {

constexpr const char* kForm = "The Last Updated date format must be yyyy-mm-dd (2024-05-06)";
constexpr const char* kMonth = "The month must be a number between 01 and 12";
constexpr const char* kDay = "The day must be a number between 01 and 31";

TEST(Refusal, HoldsDatesToTheirOddBounds) {
  struct Case {
    const char* value;
    const char* refused;
  };
  const Case cases[] = {
      {"2010-12-31", ""},
      {"2010-12-99", ""},  // the digits of the day are not looked at
      {"2010-01-15", kMonth},
      {"2010-13-15", kMonth},
      {"2010-11-15", kDay},  // the day is read from the month's second digit on
      {"2010-6-15", kForm},
      {"\xD9\xA2\xD9\xA0\xD9\xA1\xD9\xA0-\xD9\xA0\xD9\xA6-\xD9\xA1\xD9\xA5", kForm},  // Arabic digits
      {"2010-06-15T12:00:00Z", ""},
      {"\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"
       "07 2010-01-15",
       ""},                            // by characters, not bytes
      {"00000 7 2010-06-15", kMonth},  // a blank is no digit
      {"0000012345678901234567890-2010-06-15", kMonth},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.value);
    EXPECT_EQ(refusal(Field::lastmod, c.value, "2024-05-06"), c.refused);
  }
}

TEST(Refusal, RefusesNothingElseThanBlankFields) {
  EXPECT_EQ(refusal(Field::loc, "", ""), "The URL field cannot be left blank");
  EXPECT_EQ(refusal(Field::lastmod, "", "2024-05-06"), "The Last Updated field cannot be left blank");
  EXPECT_EQ(refusal(Field::priority, "", ""), "The Link Priority field cannot be left blank");
  EXPECT_EQ(refusal(Field::loc, " ", ""), "");
  EXPECT_EQ(refusal(Field::priority, "7", ""), "");
}

std::string rowWith(const std::string& loc, const std::string& lastmod = "2010-06-15") {
  return "<url>\n\t\t<loc>" + loc + "</loc>\n\t\t<lastmod>" + lastmod +
         "</lastmod>\n\t\t<changefreq>monthly</changefreq>\n\t\t<priority>0.5</priority>\n\t</url>";
}

TEST(WithValue, TakesWhatWasTypedLiterally) {
  for (const std::string value : {"http://b/?x=1&y=2", "$1", "\\1", "$0$&", "a+b(c)*[d]?^.|{2}", "<b>"}) {
    SCOPED_TRACE(value);
    EXPECT_EQ(withValue(rowWith("http://a/"), Field::loc, value), rowWith(value));
    EXPECT_EQ(shownValue(withValue(rowWith("http://a/"), Field::lastmod, value), Field::lastmod), value);
  }
}

TEST(WithValue, FindsOldAddressesWhateverTheyHold) {
  for (const std::string old : {"a+b(c)*[d]?^.|{2}", "$1", "\\1", "a?x=1&amp;y=2", "\xC3\xA9", ""}) {
    SCOPED_TRACE(old);
    EXPECT_EQ(withValue(rowWith(old), Field::loc, "http://new/"), rowWith("http://new/"));
  }
  // The old one goes wherever it stands.
  EXPECT_EQ(withValue(rowWith("2010"), Field::loc, "2011"), rowWith("2011", "2011-06-15"));
}

TEST(WithValue, SetsOtherElementsOnALineOfTheirOwn) {
  const std::string row = "<url><loc>a</loc><lastmod></lastmod><changefreq>x</changefreq></url>";
  EXPECT_EQ(withValue(row, Field::lastmod, "2010-06-15"),
            "<url><loc>a</loc>\n\t\t<lastmod>2010-06-15</lastmod><changefreq>x</changefreq></url>");
  EXPECT_EQ(withValue(row, Field::changefreq, "y"),
            "<url><loc>a</loc><lastmod></lastmod>\n\t\t<changefreq>y</changefreq></url>");
  EXPECT_EQ(withValue(row, Field::priority, "1"), row);  // there is none to change
}

TEST(FindElement, MatchesAsTheExpressionWould) {
  const auto valueIn = [](std::string_view row) {
    const auto found = findElement(row, Field::loc);
    return found ? std::string(found->value) : std::string("(none)");
  };
  EXPECT_EQ(valueIn("<loc>a</loc>b</loc>c\n</loc>"), "a</loc>b");  // to the last end tag of the line
  EXPECT_EQ(valueIn("<loc>a\n<loc>b</loc>"), "b");
  EXPECT_EQ(valueIn("<loc><loc>a</loc>"), "<loc>a");
  EXPECT_EQ(valueIn("</loc><loc>"), "(none)");
}

TEST(ShownValue, UnescapesAmpersandsOfAddressesAlone) {
  const std::string row = "<url><loc>a&amp;b&amp;amp;&lt;</loc><lastmod>&amp;</lastmod></url>";
  EXPECT_EQ(shownValue(row, Field::loc), "a&b&amp;&lt;");
  EXPECT_EQ(shownValue(row, Field::lastmod), "&amp;");
  EXPECT_EQ(shownValue(row, Field::priority), "");
}

TEST(ChosenValue, KnowsTheHighestPriorityInBothForms) {
  const auto chosen = [](const char* row, Field field) {
    const MenuValue* value = chosenValue(row, field);
    return value == nullptr ? std::string("none") : std::string(value->action);
  };
  EXPECT_EQ(chosen("<priority>1</priority>", Field::priority), "highestPriority");
  EXPECT_EQ(chosen("<priority>1.0</priority>", Field::priority), "highestPriority");
  EXPECT_EQ(chosen("<priority>0</priority>", Field::priority), "none");
  EXPECT_EQ(chosen("<url></url>", Field::changefreq), "none");
}

}  // namespace
}  // namespace xml_editor
