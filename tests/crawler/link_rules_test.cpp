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
      {"http://h/", "http://h/", "http://h/"},
      {"http://h/dir/page.html", "http://h/dir/", "http://h/dir/"},
      {"http://h/v1.2/", "http://h/v1.2/", "http://h/v1.2/"},
      // A page without a file name is its own folder; a site's base always ends with a slash.
      {"http://h/a/list", "http://h/a/", "http://h/a/list"},
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
      {"file beside the page", "c.html", "http://h:8080/a/c.html"},
      {"folder below", "d/e.html?x=1#y", "http://h:8080/a/d/e.html?x=1#y"},
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
      {"query only", "?p=2", "http://h:8080/a/?p=2"},
      {"absolute", "http://other/p", "http://other/p"},
      {"secure", "https://h/p", "https://h/p"},
      {"begins like a scheme", "httpd.html", "httpd.html"},
      {"ftp", "ftp://h/p", "ftp://h/p"},
      {"scheme in capitals is relative", "HTTP://h/p.html", "http://h:8080/a/HTTP://h/p.html"},
      {"mail", "mailto:x@h", "mailto:x@h"},
      {"mail to nobody", "mailto:", ""},
      {"mail in capitals is relative", "MAILTO:x@h", "http://h:8080/a/MAILTO:x@h"},
      {"script", "javascript:void(0)", "http://h:8080/a/javascript:void(0)"},
  };
  const LinkBase base{"http://h:8080/", "http://h:8080/a/", "http://h:8080/a/b.html"};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(rebuildHREF(c.href, base), c.expected);
  }
}

TEST(HasForeignExtension, LooksFromTheFirstDotOfThePath) {
  struct Case {
    const char* link;
    bool foreign;
  };
  const Case cases[] = {
      {"http://h/a.html", false},        {"http://h/a.php5", false},        {"http://h/doc.pdf", true},
      {"http://h/page.HTML", true},      {"http://h/v1.2/page.html", true}, {"http://h/a.tar.html", true},
      {"http://h/page.", true},          {"http://h.example.com/", false},  {"http://h.example.com", false},
      {"http://h/list.pdf?id=1", false}, {"http://h/list.pdf?", false},     {"http://h/a.html#v1.2", false},
      {"mailto:a.b@h.example", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.link);
    EXPECT_EQ(hasForeignExtension(c.link, pageExtensions()), c.foreign);
  }
}

TEST(IsFolderOfKnownIndex, ComparesWithQueuedIndexPages) {
  PageQueue known;
  known.append("http://h/index.html");
  known.append("http://h/a/index.aspx");
  known.append("http://h/b/index.pdf");
  struct Case {
    const char* link;
    bool folder;
  };
  const Case cases[] = {
      {"http://h/", true},         {"http://h", true},
      {"http://h/a", true},        {"http://h/a/", true},
      {"http://h/b/", false},      {"http://h/c/", false},
      {"http://h/?x", false},      {"http://h/index.html", false},
      {"mailto:http://h/", false}, {"http://h/a/#top", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.link);
    EXPECT_EQ(isFolderOfKnownIndex(c.link, known, pageExtensions()), c.folder);
  }
}

TEST(IsInternal, ComparesWithoutSchemeAndWww) {
  struct Case {
    const char* link;
    const char* base;
    bool internal;
  };
  const Case cases[] = {
      {"http://h/page.html", "http://h/", true},
      {"https://h/page.html", "http://h/", true},
      {"http://www.h/page.html", "http://h/", true},
      {"http://h/page.html", "http://www.h/", true},
      {"http://h", "http://h/", true},
      {"http://other/", "http://h/", false},
      {"http://h/other/", "http://h/dir/", false},
      {"http://h/dir", "http://h/dir/", true},
      {"http://h/directory/", "http://h/dir/", true},
      {"http://H/", "http://h/", false},
      {"mailto:xy@h/", "http://h/", false},
      {"x.html", "http://h/", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.link) + " in " + c.base);
    EXPECT_EQ(isInternal(c.link, c.base), c.internal);
  }
}

TEST(IsKnownPage, RecognisesOtherSpellings) {
  PageQueue known;
  known.append("http://h/");
  known.append("http://www.w/p.html");
  known.append("http://h/go?to=http://x/");
  struct Case {
    const char* link;
    bool knownPage;
  };
  const Case cases[] = {
      {"http://h/", true},
      {"http://h/index.html", true},
      {"http://h/index.php5", true},
      {"http://h/index.pdf", false},
      {"http://h/myindex.html", false},
      {"http://www.h/", true},
      {"http://www.h/index.html", false},  // one spelling at a time: neither form alone is known
      {"http://w/p.html", true},
      {"http://WWW.w/p.html", false},
      {"https://h/", false},
      {"http://www.h/go?to=http://www.x/", true},  // the mark is taken out wherever it stands
      {"http://h/go?to=http://x/", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.link);
    EXPECT_EQ(isKnownPage(c.link, known, pageExtensions()), c.knownPage);
  }
}

TEST(PageQueue, KeepsOrderAndTellsKnownFromNewAtAnySize) {
  PageQueue queue;
  constexpr int kCount = 5000;
  for (int i = 0; i < kCount; ++i) EXPECT_EQ(queue.append("http://h/" + std::to_string(i)), Queued::now);
  const std::string large(100'000, 'x');
  EXPECT_EQ(queue.append(large), Queued::now);
  EXPECT_EQ(queue.append(""), Queued::now);
  EXPECT_EQ(queue.append("http://h/17"), Queued::before);
  EXPECT_EQ(queue.append(""), Queued::before);
  ASSERT_EQ(queue.size(), kCount + 2u);
  EXPECT_EQ(queue[4999], "http://h/4999");
  EXPECT_EQ(queue[kCount], large);
  EXPECT_TRUE(queue.contains("http:", "//h/", "42"));
  EXPECT_TRUE(queue.contains("http://h/42", "", ""));
  EXPECT_FALSE(queue.contains("http://h/5000"));
  EXPECT_FALSE(queue.contains("http://h/4", "99", "9x"));
}

}  // namespace
}  // namespace crawler
