#include <gtest/gtest.h>

#include "crawler/simple_link_rules.h"

namespace crawler {
namespace {

TEST(LinkBases, AreCutBackToFolders) {
  EXPECT_EQ(siteBaseOf("http://h/dir/page.html"), "http://h/dir/");
  EXPECT_EQ(pageBaseOf("http://h/dir/page.html"), "http://h/dir/");
  EXPECT_EQ(pageBaseOf("http://h/v1.2/"), "http://h/v1.2/");
  // A page without a file name is its own folder; a site's base always ends with a slash.
  EXPECT_EQ(siteBaseOf("http://h/list?x=a/b"), "http://h/list?x=a/");
  EXPECT_EQ(pageBaseOf("http://h/list?x=a/b"), "http://h/list?x=a/b");
  // The cut goes back to the last slash of the whole text, wherever it stands.
  EXPECT_EQ(pageBaseOf("http://h/list.php?x=a/b"), "http://h/list.php?x=a/");
  EXPECT_EQ(siteBaseOf("http://h.example"), "http://");
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
      {"blank", " c.html", "http://h:8080/a/ c.html"},
      {"begins like a scheme", "httpd.html", "httpd.html"},
      {"ftp", "ftp://h/p", "ftp://h/p"},
      {"scheme in capitals is relative", "HTTP://h/p.html", "http://h:8080/a/HTTP://h/p.html"},
      {"mail to nobody", "mailto:", ""},
      {"script", "javascript:void(0)", "http://h:8080/a/javascript:void(0)"},
  };
  const LinkBase base{"http://h:8080/", "http://h:8080/a/", "http://h:8080/a/b.html"};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(rebuildHREF(c.href, base), c.expected);
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
  for (const char* page : {"http://h/index.html", "http://h/a/index.aspx", "http://h/b/index.pdf",
                           "http://h/?x/index.html", "http://h/p.html/index.html", "mailto:h/index.html"}) {
    known.append(page);
  }
  for (const char* folder : {"http://h/", "http://h", "http://h/a", "http://h/a/"}) {
    EXPECT_TRUE(isFolderOfKnownIndex(folder, known, pageExtensions())) << folder;
  }
  for (const char* other : {"http://h/b/", "http://h/?x", "http://h/p.html", "mailto:h", "http://h/a/#top"}) {
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
    EXPECT_TRUE(findPage(link, known, pageExtensions())) << link;
  }
  for (const char* link : {"http://h/index.pdf", "http://h/myindex.html", "http://WWW.w/p.html", "https://h/",
                           // One spelling at a time: neither form alone is known.
                           "http://www.h/index.html"}) {
    EXPECT_FALSE(findPage(link, known, pageExtensions())) << link;
  }
}

}  // namespace
}  // namespace crawler
