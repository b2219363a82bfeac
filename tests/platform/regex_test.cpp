#include "platform/regex.h"

#include <atomic>
#include <thread>

#include <gmock/gmock.h>

#include "support/repeated.h"

namespace platform {
namespace {

using testing::ElementsAre;

using support::repeated;

TEST(Regex, TellsWhereAndWhichGroups) {
  const std::string text = "ab <i>c</i> <b>d</b>";
  const std::optional<RegexMatch> match = Regex("<(b)(x)?>(.*?)</\\1>").find(text, 1);
  ASSERT_TRUE(match);
  EXPECT_EQ(match->offset, 12u);
  EXPECT_EQ(match->whole, "<b>d</b>");
  EXPECT_THAT(match->groups, ElementsAre("b", "", "d"));
  EXPECT_EQ(match->whole.data(), text.data() + 12);
  EXPECT_THAT(Regex("(a)|(b)|(c)").find("a")->groups, ElementsAre("a", "", ""));
}

TEST(Regex, Finds) {
  struct Case {
    const char* name;
    const char* pattern;
    RegexCase mode;
    std::string_view text;
    std::size_t from;
    std::optional<std::size_t> expected;
  };
  constexpr RegexCase kSensitive = RegexCase::sensitive;
  constexpr RegexCase kInsensitive = RegexCase::insensitive;
  const Case cases[] = {
      {"case of other scripts", "\xC3\x84", kInsensitive, "x\xC3\xA4", 0, 1},
      {"a dot stops at a line feed", "a.b", kSensitive, "a\nb", 0, std::nullopt},
      {"the start is that of the text", "^b", kSensitive, "ab", 1, std::nullopt},
      {"beginning behind the end", "$", kSensitive, "ab", 3, std::nullopt},
      {"beginning within a character", ".", kSensitive, "\xE2\x82\xAC.", 1, 3},
      {"behind a bad byte", "x", kSensitive, "a\xFF\xC3x", 0, 3},
      {"not across a bad byte", "a.*c", kSensitive, "a\xFFxc", 0, std::nullopt},
      {"past a NUL", "b", kSensitive, std::string_view("a\0b", 3), 0, 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::optional<RegexMatch> match = Regex(c.pattern, c.mode).find(c.text, c.from);
    EXPECT_EQ(match ? std::optional(match->offset) : std::nullopt, c.expected);
  }
}

// A search goes through a text in windows, whose bounds must not show.
TEST(Regex, FindsAtEveryPlaceOfALongText) {
  const Regex word("\\bneedle\\b");
  const Regex euro("\xE2\x82\xAC");
  for (std::size_t offset = 4080; offset < 4110; ++offset) {
    const std::string hay(offset, '.');
    EXPECT_EQ(word.find(hay + "needle" + hay)->offset, offset);
    const std::string wide = repeated("\xC3\xA4", offset / 2) + std::string(offset % 2, '.');
    EXPECT_EQ(euro.find(wide + "\xE2\x82\xAC")->offset, offset);
  }
}

TEST(Regex, CopesWithMegabytes) {
  const std::string filling = repeated("some text, ", 100'000);
  const Regex lazy("(?s)<a>.*?</a>");
  EXPECT_EQ(lazy.find("<a>" + filling + "</a>")->whole.size(), filling.size() + 7);
  EXPECT_EQ(lazy.find("<a>" + filling + "\xFF" + filling + "<a>x</a>")->offset, 2 * filling.size() + 4);
  // Each round of such a group is remembered, so this asks for a large stack.
  const std::string pieces = repeated("ab\"cd\"", 10'000);
  EXPECT_EQ(Regex("<(?:[^\"<>]|\"[^\"]*\")*>").find("<" + pieces + ">")->whole.size(), pieces.size() + 2);
}

/// Each has a match that is not come to: unbounded, a search would take minutes, hours or all memory.
TEST(Regex, GivesUpOnHostileText) {
  const std::string goingBack = std::string(1'000, 'a') + "b";
  EXPECT_FALSE(Regex("(a+)+$").find(goingBack + "\na"));
  const std::string manyStarts = repeated("<a b></b>" + std::string(100, ' '), 10'000);
  EXPECT_FALSE(Regex("(?s)<(\\w+) .*?(?:x|y)\\1>").find(manyStarts + "<c xc>"));
  EXPECT_FALSE(Regex("(?:x|y|xy)*z").find(repeated("xy", 1'000'000) + "z"));
}

TEST(Regex, IsSharedByThreads) {
  const Regex pattern("(\\d+)-(\\d+)");
  std::atomic<int> wrong{0};
  std::vector<std::jthread> threads;
  for (std::size_t i = 0; i < 4; ++i) {
    threads.emplace_back([&, text = std::string(i * 7, ' ') + "12-" + std::to_string(i)] {
      for (int round = 0; round < 2000; ++round) {
        const std::optional<RegexMatch> match = pattern.find(text);
        if (!match || match->offset + 4 != text.size() || match->groups[0] != "12") ++wrong;
      }
    });
  }
  threads.clear();
  EXPECT_EQ(wrong, 0);
}

TEST(RegexDeathTest, AFaultyPatternEndsTheProgramUnlessItIsOfOthers) {
  const std::string manyGroups = repeated("(a)", 32);
  EXPECT_DEATH(Regex("a(b"), "Faulty pattern a\\(b: missing closing parenthesis");
  EXPECT_DEATH(Regex{manyGroups}, "too many groups");
  EXPECT_EQ(Regex::compile("a.c")->find("xabc")->whole, "abc");
  for (const std::string& faulty : {std::string("a(b"), std::string("\xFF"), manyGroups})
    EXPECT_FALSE(Regex::compile(faulty)) << faulty;
}

TEST(FindText, FindsWhatAViewFinds) {
  const std::string text("ab\0abab", 7);
  for (const std::string& what : {std::string(), std::string("ab"), std::string("b\0a", 3), text + "a"}) {
    for (std::size_t from = 0; from <= text.size() + 1; ++from) {
      EXPECT_EQ(findText(text, what, from), text.find(what, from)) << what << " from " << from;
    }
  }
  EXPECT_EQ(findText({}, "a"), std::string::npos);
}

TEST(ReplaceText, ReplacesLiterally) {
  EXPECT_EQ(replaceText("a.b.c abc", ".b", "$1"), "a$1.c abc");
  EXPECT_EQ(replaceText("aaaaa", "aa", "aab"), "aabaaba");
  EXPECT_EQ(replaceText("abc", "", "x"), "abc");
}

}  // namespace
}  // namespace platform
