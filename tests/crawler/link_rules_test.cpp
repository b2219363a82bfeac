#include <gtest/gtest.h>

#include "crawler/simple_link_rules.h"

namespace crawler {
namespace {

TEST(LinkBases, AreCutBackToFolders) {
  struct Case {
    const char* url;
    const char* site;
    const char* page;
  };
  const Case cases[] = {
      {"http://h/v1.2/", "http://h/v1.2/", "http://h/v1.2/"},
      {"http://h/dir/page.html", "http://h/dir/", "http://h/dir/"},
      // A page without a file name is its own folder; a site's base always ends with a slash.
      {"http://h/list?x=a/b", "http://h/list?x=a/", "http://h/list?x=a/b"},
      // The cut goes back to the last slash of the whole text, wherever it stands.
      {"http://h/list.php?x=a/b", "http://h/list.php?x=a/", "http://h/list.php?x=a/"},
      {"http://h/p.html#s/1", "http://h/p.html#s/", "http://h/p.html#s/"},
      {"http://h.example", "http://", "http://h.example"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.url);
    EXPECT_EQ(siteBaseOf(c.url), c.site);
    EXPECT_EQ(pageBaseOf(c.url), c.page);
  }
}

TEST(RebuildHref, MakesEveryFormAbsolute) {
  struct Case {
    const char* name;
    const char* href;
    const char* expected;
  };
  const Case cases[] = {
      {"file beside the page", "c.html?x=1#y", "http://h:8080/a/c.html?x=1#y"},
      {"one folder up", "../x.html", "http://h:8080/x.html"},
      {"past the root", "../../x.html", "http://x.html"},
      {"far past the root", "../../../../../x.html", "x.html"},
      {"up, and nothing else, past everything", "../../../../../", "http://h:8080/"},
      {"dot segments inside stay", "d/../e.html", "http://h:8080/a/d/../e.html"},
      {"from the root loses the port", "/y.html", "http://h/y.html"},
      {"without a scheme is from the root too", "//other/y.html", "http://h//other/y.html"},
      {"fragment", "#top", "http://h:8080/a/b.html"},
      {"dot slash drops the rest", "./z.html", "http://h:8080/a/"},
      {"empty", "", "http://h:8080/a/"},
      {"blank", " c.html", "http://h:8080/a/ c.html"},
      {"absolute", "https://other/p", "https://other/p"},
      {"begins like a scheme", "httpd.html", "httpd.html"},
      {"ftp", "ftp://h/p", "ftp://h/p"},
      {"scheme in capitals is relative", "HTTP://h/p.html", "http://h:8080/a/HTTP://h/p.html"},
      {"mail", "mailto:x@h", "mailto:x@h"},
      {"mail to nobody", "mailto:", ""},
      {"script", "javascript:void(0)", "http://h:8080/a/javascript:void(0)"},
  };
  const LinkBase base{"http://h:8080/", "http://h:8080/a/", "http://h:8080/a/b.html"};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(rebuildHREF(c.href, base), c.expected);
  }
}

TEST(SimpleLinkRules, FollowLinksFromTheRootAtTheStandardPortAlone) {
  for (const std::string start : {"http://h/", "http://h:8080/"}) {
    SCOPED_TRACE(start);
    PageQueue known;
    known.append(start);
    SimpleLinkRules rules(start, {}, {}, 100);
    rules.enterPage(start + "a/b.html");
    const JudgedLink link = rules.judge(rules.makeAbsolute("/d.html").value_or(""), known);
    EXPECT_EQ(link.reason, start == "http://h/" ? LinkReason::none : LinkReason::outside);
    EXPECT_EQ(rules.keyOfNewPage(link.address, known), "http://h/d.html");
  }
}

TEST(HasForeignExtension, LooksFromTheFirstDotOfThePath) {
  for (const char* foreign : {"http://h/doc.pdf", "http://h/page.HTML", "http://h/v1.2/page.html",
                              "http://h/a.tar.html", "http://h/page."}) {
    EXPECT_TRUE(hasForeignExtension(foreign, pageExtensions())) << foreign;
  }
  for (const char* page : {"http://h/a.html", "http://h/a.php5", "http://h.example.com", "http://h/list.pdf?",
                           "http://h/a.html#v1.2", "mailto:a.b@h.example"}) {
    EXPECT_FALSE(hasForeignExtension(page, pageExtensions())) << page;
  }
}

TEST(IsFolderOfKnownIndex, ComparesWithQueuedIndexPages) {
  PageQueue known;
  known.append("http://h/index.html");
  known.append("http://h/a/index.aspx");
  known.append("http://h/b/index.pdf");
  for (const char* folder : {"http://h/", "http://h", "http://h/a", "http://h/a/"}) {
    EXPECT_TRUE(isFolderOfKnownIndex(folder, known, pageExtensions())) << folder;
  }
  for (const char* other : {"http://h/b/", "http://h/c/", "http://h/?x", "http://h/index.html",
                            "mailto:http://h/", "http://h/a/#top"}) {
    EXPECT_FALSE(isFolderOfKnownIndex(other, known, pageExtensions())) << other;
  }
}

TEST(IsInternal, ComparesWithoutSchemeAndWww) {
  for (const char* link : {"http://h/dir/page.html", "https://h/dir/", "http://www.h/dir/", "http://h/dir",
                           "http://h/directory/"}) {
    EXPECT_TRUE(isInternal(link, "http://h/dir/")) << link;
  }
  for (const char* link :
       {"http://other/dir/", "http://h/other/", "http://H/dir/", "mailto:xy@h/dir/", "x.html"}) {
    EXPECT_FALSE(isInternal(link, "http://h/dir/")) << link;
  }
  EXPECT_TRUE(isInternal("http://h/page.html", "http://www.h/"));
}

TEST(IsKnownPage, RecognisesOtherSpellings) {
  PageQueue known;
  known.append("http://h/");
  known.append("http://www.w/p.html");
  known.append("http://h/go?to=http://x/");
  for (const char* link : {"http://h/", "http://h/index.php5", "http://www.h/", "http://w/p.html",
                           // The mark is taken out wherever it stands.
                           "http://www.h/go?to=http://www.x/"}) {
    EXPECT_TRUE(isKnownPage(link, known, pageExtensions())) << link;
  }
  for (const char* link : {"http://h/index.pdf", "http://h/myindex.html", "http://WWW.w/p.html", "https://h/",
                           // One spelling at a time: neither form alone is known.
                           "http://www.h/index.html"}) {
    EXPECT_FALSE(isKnownPage(link, known, pageExtensions())) << link;
  }
}

TEST(PageQueue, KeepsOrderAndTellsKnownFromNewAtAnySize) {
  PageQueue queue;
  constexpr int kCount = 5000;
  for (int i = 0; i < kCount; ++i) EXPECT_EQ(queue.append("http://h/" + std::to_string(i)), Queued::now);
  const std::string large(100'000, 'x');
  EXPECT_EQ(queue.append(large), Queued::now);
  EXPECT_EQ(queue.append("http://h/17"), Queued::before);
  ASSERT_EQ(queue.size(), kCount + 1u);
  EXPECT_EQ(queue[4999], "http://h/4999");
  EXPECT_EQ(queue[kCount], large);
  EXPECT_TRUE(queue.contains("http:", "//h/", "42"));
  EXPECT_FALSE(queue.contains("http://h/4", "99", "9x"));
}

}  // namespace
}  // namespace crawler
