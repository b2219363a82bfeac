#include "html_editor/colours.h"

#include <cstdio>

#include <gtest/gtest.h>

namespace html_editor {
namespace {

TEST(HexValue, TruncatesTowardZero) {
  EXPECT_EQ(getHEXValue({1, 0.5, 0}), "#FF7F00");
  EXPECT_EQ(getHEXValue({0.0039, 0.9999, 1}), "#00FEFF");
}

TEST(HexValue, EveryByteComesBack) {
  for (int value = 0; value < 256; ++value) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", static_cast<unsigned>(value),
                  static_cast<unsigned>(255 - value), static_cast<unsigned>(value));
    const auto colour = setHEXValue(text);
    ASSERT_TRUE(colour.has_value());
    EXPECT_EQ(getHEXValue(*colour), text);
    // As a colour dialog hands it over: sixteen bits in a float.
    const float part = static_cast<float>(value * 257) / 65535.0F;
    EXPECT_EQ(getHEXValue({part, 1.0 - part, part}).substr(1, 2), std::string(text).substr(1, 2));
  }
}

TEST(HexValue, IsReadFromSixLeadingDigitsOnly) {
  struct Case {
    const char* text;
    std::optional<Colour> colour;
  };
  const Colour abc123 = {0xAB / 255.0, 0xC1 / 255.0, 0x23 / 255.0};
  const Case cases[] = {
      {"#abc123", abc123}, {"ABC123", abc123}, {"#abc123 x", abc123}, {"#abc123g", abc123}, {"##abc123", {}},
      {"#abc12", {}},      {"#abc1234", {}},   {" #abc123", {}},      {"#+bc123", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(setHEXValue(c.text), c.colour);
  }
}

TEST(HexField, ComplainsOfLengthAndDigitsSeparately) {
  struct Case {
    const char* typed;
    const char* shown;
    bool accepted;
    bool changesWell;
    int complaints;
  };
  const Case cases[] = {
      {"abc123", "#abc123", true, true, 0},
      {"1abc123", "1abc123", true, false, 0},  // seven digits
      {"#ABC", "#ABC", false, false, 2},
      {"#abc12", "##abc12", false, false, 1},  // six characters, five of them digits
      {"x#ABCDEF", "x#ABCDEF", true, false, 1},
      // seven characters in thirteen bytes
      {"#\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9", "#\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9", false, false, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.typed);
    const HexFieldAnswer answer = checkHexField(c.typed);
    EXPECT_EQ(answer.text, c.shown);
    EXPECT_EQ(answer.accepted, c.accepted);
    EXPECT_EQ(answer.well.has_value(), c.changesWell);
    EXPECT_EQ(answer.complaints, c.complaints);
  }
}

}  // namespace
}  // namespace html_editor
