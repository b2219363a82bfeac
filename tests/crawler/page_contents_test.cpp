#include "crawler/page_contents.h"

#include <gtest/gtest.h>

#include "crawler/titles.h"

namespace crawler {
namespace {

TEST(PageTitle, IsThatOfTheFirstTitleElement) {
  EXPECT_EQ(readPageContents("<title></title><title>Two</title>").title, "Could not find page title");
}

TEST(LinkTitle, FollowsTheRules) {
  struct Case {
    const char* anchor;
    const char* title;
  };
  const Case cases[] = {
      {"<a href=x> </a>", " "},
      {"<a href=x name=top></a>", "top"},
      {"<a href=x name=top>Text</a>", "Text"},
      {"<a href=x></a>", "No Link Name Found"},
      {"<a href=x><span></span><img alt=Logo></a>", "No Link Name Found"},
      {"<a href=x><img src=i alt=\"Logo\"></a>", "Logo"},
      {"<a href=x><img src=i alt='Logo \"A\"'></a>", "Logo \"A\""},
      {"<a href=x><img src=i alt='Tom &amp; Jerry'></a>", "Tom &amp; Jerry"},
      {"<a href=x><img alt=\"\" title=\"Logo\"></a>", "Image Link With No Alt Tag"},
      {"<a href=x><img title=\"Logo\"></a>", "Logo"},
      {"<a href=x><img title=\"\"></a>", "Image Link With No Title or Alt Tags"},
      {"<a href=x><img src=i></a>", "Could not find link title"},
      {"<a href=x><img data-alt=\"Data\"></a>", "Data"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.anchor);
    const PageContents contents = readPageContents(c.anchor);
    ASSERT_EQ(contents.anchors.size(), 1u);
    EXPECT_EQ(contents.anchors[0].href, "x");
    EXPECT_EQ(contents.anchors[0].title, c.title);
  }
}

}  // namespace
}  // namespace crawler
