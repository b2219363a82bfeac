#include "crawler/exclusions.h"

#include <optional>
#include <random>

#include <gtest/gtest.h>

#include "crawler/robots.h"
#include "platform/text.h"

namespace crawler {
namespace {

using platform::foldCase;

TEST(Robots, OnlyExactDisallowLinesCount) {
  EXPECT_EQ(
      robotsRules("User-agent: other\nDisallow: /private\nDisallow:/tight\ndisallow: /small\n"
                  "Disallow:  /two\nDisallow: \nDisallow: /cr\r\n Disallow: /indented\nDisallow: /last"),
      (std::vector<std::string>{"/private", " /two", "", "/cr\r", "/last"}));
}

TEST(Exclusions, FindWhatOneLookForEachTextFinds) {
  std::minstd_rand random(1);
  const auto word = [&](std::size_t most) {
    std::string text;
    while (text.size() < most && random() % 8 != 0) text += "aAb/"[random() % 4];
    return text;
  };
  for (int round = 0; round < 2'000; ++round) {
    std::vector<std::string> texts(random() % 12);
    for (std::string& text : texts) text = word(8);
    const std::string link = word(40);
    std::optional<std::size_t> expected;
    for (std::size_t i = texts.size(); i-- > 0;) {
      const bool stands = foldCase(link).find(foldCase(texts[i])) != std::string::npos;
      if (!texts[i].empty() && stands) expected = i;
    }
    ASSERT_EQ(Exclusions(texts).find(link), expected) << link << " in round " << round;
  }
}

/// Each of the texts nearly stands at every place of the link.
TEST(Exclusions, TakeNoLongerForManyTexts) {
  std::vector<std::string> texts;
  for (int i = 0; i < 60'000; ++i) texts.push_back("/a/a/a/a/" + std::to_string(i));
  const Exclusions exclusions(texts);
  std::string link = "http://h";
  while (link.size() < 8'000) link += "/a";
  // One look for each text alone would take half an hour.
  for (int i = 0; i < 300; ++i) ASSERT_EQ(exclusions.find(link), std::nullopt);
  EXPECT_EQ(exclusions.find(link + "/59999/"), 5u);
}

}  // namespace
}  // namespace crawler
