#include <string>

#include <gtest/gtest.h>

#include "cli/cli_context.h"

namespace {

TEST(Printable, LeavesNothingThatATerminalObeys) {
  struct Case {
    const char* name;
    const char* text;
    const char* shown;
  };
  const Case cases[] = {
      {"beyond ASCII", "~\u00A0\u00FC\u672C\U0001F600", "~\u00A0\u00FC\u672C\U0001F600"},
      {"escape sequence", "a\x1B[2Jb", "a\uFFFD[2Jb"},
      {"line ends and delete", "a\r\n\x7F", "a\uFFFD\uFFFD\uFFFD"},
      {"one-character escape", "\u009B31m", "\uFFFD31m"},
      {"reversed text, line separator", "a\u202Eb\u2066c\u2028", "a\uFFFDb\uFFFDc\uFFFD"},
      {"not UTF-8", "a\x9B\xFF", "a\uFFFD\uFFFD"},
      {"cut off", "a\xE2\x82", "a\uFFFD"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(cli::printable(c.text), c.shown);
  }
}

}  // namespace
