#include "crawler/left_out.h"

#include <gtest/gtest.h>

namespace crawler {
namespace {

struct Found {
  LinkReason reason;
  int times = 1;
  std::size_t which = 0;
  const char* name = "";
};

LeftOut leftOutBy(const std::vector<Found>& all) {
  LeftOutCounter counter;
  for (const Found& found : all) {
    for (int i = 0; i < found.times; ++i)
      counter.count(found.reason, "http://h/x", "http://h/", found.which, found.name);
  }
  return counter.result();
}

TEST(LeftOut, IsOneSentenceWhateverTheOrder) {
  using enum LinkReason;
  struct Case {
    const char* name;
    std::vector<Found> found;
    const char* sentence;
    bool mayMissPages;
  };
  const Case cases[] = {
      {"nothing", {}, "", false},
      {"nothing that matters",
       {{otherHost, 9}, {empty}, {redirected}, {sameAsIndex}, {otherType}},
       "",
       false},
      {"one", {{foreignExtension}}, "Left out: 1 link by its ending (for example http://h/x).", true},
      {"as the start has it",
       {{aboveStart}, {otherPort, 2}},
       "Left out: 2 links to another port (for example http://h/x), 1 above the start folder (http://h/x).",
       false},
      {"two filters, and pages",
       {{noIndex, 2}, {filter, 2, 5, "#"}, {filter, 1, 0, "a"}},
       "Left out: 2 links by the filter \"#\" (for example http://h/x), 1 by the filter \"a\" (http://h/x), "
       "2 pages as "
       "they ask to be left out (http://h/x).",
       true},
      {"another reason",
       {{tooLong}, {robots, 1, 0, "/p"}, {otherPort, 4}, {foreignExtension, 12}},
       "Left out: 12 links by their ending (for example http://h/x), 1 by the robots.txt rule \"/p\" "
       "(http://h/x), 1 as "
       "its address is too long (http://h/x) and 4 more for another reason.",
       true},
      {"other reasons",
       {{surplusPage}, {surplusLink}, {tooLong, 2}, {notFollowed}, {noIndex}, {otherHost, 50}},
       "Left out: 2 links as their addresses are too long (for example http://h/x), 1 as too many stand on "
       "one page "
       "(http://h/x), 1 as there are more pages than a scan can remember (http://h/x) and 2 more for other "
       "reasons.",
       true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const LeftOut leftOut = leftOutBy(c.found);
    EXPECT_EQ(leftOut.sentence(), c.sentence);
    EXPECT_EQ(leftOut.mayMissPages(), c.mayMissPages);
  }
}

TEST(LeftOut, StaysBounded) {
  LeftOutCounter counter;
  const std::string accents = "x" + std::string(LeftOutCounter::kTextBytes, '\xC3');
  for (std::size_t i = 0; i < 150; ++i) {
    const std::string number = std::to_string(i);
    counter.count(LinkReason::robots, "http://h/" + number, accents, i, number);
    counter.count(LinkReason::robots, "http://h/" + number, accents, 3, "3");
    counter.count(LinkReason::foreignExtension, std::string(1'999, 'x') + "\u00E4" + number, "");
  }
  const std::vector<LeftOutGroup> groups = counter.result().groups;
  ASSERT_EQ(groups.size(), 102u);
  EXPECT_EQ(groups[0].count, 150);
  ASSERT_EQ(groups[0].examples.size(), 1u);  // the same address, as far as it is kept
  EXPECT_EQ(groups[0].examples[0].address, std::string(1'999, 'x'));
  EXPECT_EQ(groups[2].which, "3");
  EXPECT_EQ(groups[2].count, 151);
  ASSERT_EQ(groups[2].examples.size(), 10u);
  EXPECT_EQ(groups[2].examples[9].page.size(), LeftOutCounter::kTextBytes);
  EXPECT_EQ(groups[101].reasonText(), "by further robots.txt rules");
  EXPECT_EQ(groups[101].count, 50);
  EXPECT_EQ(groups[101].examples.size(), 10u);
  EXPECT_LT(LeftOut{{groups[0]}}.sentence().size(), 200u);
}

}  // namespace
}  // namespace crawler
