// The file that follows every change of the rows.
#include "xml_editor/xml_sitemap.h"

#include <filesystem>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "sitemaps/xml_format.h"
#include "support/temp_folder.h"

namespace xml_editor {
namespace {

const std::string kHeader(sitemaps::kXmlHeader);

/// An entry as the editor writes it.
std::string entry(const std::string& loc, const std::string& lastmod = "2010-06-15") {
  return "<url>\n\t\t<loc>" + loc + "</loc>\n\t\t<lastmod>" + lastmod +
         "</lastmod>\n\t\t<changefreq>monthly</changefreq>\n\t\t<priority>0.5</priority>\n\t</url>";
}

class XmlSitemapTest : public testing::Test {
 protected:
  void write(const std::string& text) { ASSERT_TRUE(platform::replaceFile(file, text).ok()); }
  std::string onDisk() const { return platform::readFile(file).text; }
  void load(const std::string& text) {
    write(text);
    ASSERT_EQ(sitemap.load(file), Contents::entries);
  }
  void loadThree() { load(kHeader + entry("http://a/") + entry("b") + entry("c") + "</urlset>"); }
  Change change(std::size_t row, Field field, const std::string& value) {
    return sitemap.setValue(row, field, value, "2024-05-06");
  }

  support::TempFolder folder;
  const std::filesystem::path file = folder.path() / "sitemap.xml";
  XmlSitemap sitemap;
};

TEST_F(XmlSitemapTest, WritesAmpersandsOfAddressesBare) {
  load(kHeader + "\n\t" + entry("a?x=1&amp;y=&lt;2&gt;&apos;") + entry("b&c") + "\n</urlset>");
  EXPECT_EQ(shownValue(sitemap.rows()[0], Field::loc), "a?x=1&y=&lt;2&gt;'");
  EXPECT_TRUE(change(1, Field::lastmod, "2011-02-03&amp;").saved());
  const std::string written = kHeader + "\n\t" + entry("a?x=1&y=&lt;2&gt;'") + "\n\t" +
                              entry("b&c", "2011-02-03&amp;") + "\n</urlset>";
  EXPECT_EQ(onDisk(), written);
  // What was written reads as what was shown, and is written the same again.
  ASSERT_EQ(sitemap.load(file), Contents::entries);
  EXPECT_EQ(shownValue(sitemap.rows()[0], Field::loc), "a?x=1&y=&lt;2&gt;'");
  EXPECT_TRUE(sitemap.choose(0, Field::priority, "0.5").saved());
  EXPECT_EQ(onDisk(), written);
}

TEST_F(XmlSitemapTest, DeletesFirstLastAndOnlyRow) {
  loadThree();
  EXPECT_TRUE(sitemap.remove(0).saved());
  EXPECT_EQ(onDisk(), kHeader + "\n\t" + entry("b") + "\n\t" + entry("c") + "\n</urlset>");
  EXPECT_TRUE(sitemap.remove(1).saved());
  EXPECT_EQ(onDisk(), kHeader + "\n\t" + entry("b") + "\n</urlset>");
  EXPECT_TRUE(sitemap.remove(0).saved());
  EXPECT_EQ(onDisk(), kHeader + "\n\t</urlset>");
  EXPECT_EQ(sitemap.contents(), Contents::noEntries);
  EXPECT_EQ(sitemap.load(file), Contents::noEntries);
}

TEST_F(XmlSitemapTest, TakesEditedValuesOverAllOrNone) {
  const auto valued = [](const std::string& loc, const std::string& priority) {
    std::string text = entry(loc);
    return text.replace(text.find("0.5"), 3, priority);
  };
  sitemaps::EditedValues values;
  values.add(valued("http://a/", "0.1") + valued("b", "0.2") + valued("c?x&y", "0.3") + valued("d", "0.4"));
  load(kHeader + entry("http://a/") + valued("b", "0.9") + entry("c?x&amp;y") + "</urlset>");
  const std::string before = onDisk();
  {
    const platform::FolderLock scan(folder.path());
    const TakenOver refused = sitemap.takeOver(values);
    EXPECT_EQ(refused.change.status, ChangeStatus::scanned);
    EXPECT_EQ(refused.count, 0);
    EXPECT_EQ(sitemap.rows()[0], entry("http://a/"));
    EXPECT_EQ(onDisk(), before);
  }
  // What was edited in this one is later.
  EXPECT_EQ(sitemap.takeOver(values).count, 2);
  EXPECT_EQ(onDisk(), kHeader + "\n\t" + valued("http://a/", "0.1") + "\n\t" + valued("b", "0.9") + "\n\t" +
                          valued("c?x&y", "0.3") + "\n</urlset>");
  write("changed by another program");
  EXPECT_EQ(sitemap.takeOver(values).count, 0);
  EXPECT_EQ(onDisk(), "changed by another program");
}

TEST_F(XmlSitemapTest, ValuesThatAreNotTakenChangeNothing) {
  load(kHeader + entry("l") + "</urlset>");
  const std::string before = onDisk();
  const Change refused = change(0, Field::lastmod, "2010-01-15");
  EXPECT_EQ(refused.status, ChangeStatus::refused);
  EXPECT_EQ(refused.message, "The month must be a number between 01 and 12");
  // The address stands within the names of the elements, too.
  EXPECT_EQ(change(0, Field::loc, "x").status, ChangeStatus::incomplete);
  EXPECT_EQ(change(0, Field::lastmod, "2010-06-15\n").status, ChangeStatus::incomplete);
  EXPECT_EQ(sitemap.rows()[0], entry("l"));
  EXPECT_EQ(onDisk(), before);
}

TEST_F(XmlSitemapTest, ARowThatLacksAnElementKeepsTheFileAsItIs) {
  for (const Field field : kFields) {
    SCOPED_TRACE(elementName(field));
    const std::string name(elementName(field));
    std::string lacking = entry("b");
    const std::size_t start = lacking.find("<" + name + ">");
    lacking.erase(start, lacking.find("</" + name + ">") + name.size() + 3 - start);
    load(kHeader + entry("a") + lacking + entry("c") + "</urlset>");
    const std::string before = onDisk();
    const auto rows = sitemap.rows();

    const Change changed = sitemap.choose(0, Field::priority, "1");
    EXPECT_EQ(changed.status, ChangeStatus::incomplete);
    EXPECT_EQ(changed.row, 1u);
    EXPECT_NE(changed.message.find(name), std::string::npos);
    const Change removed = sitemap.remove(0);
    EXPECT_EQ(removed.status, ChangeStatus::incomplete);
    EXPECT_EQ(removed.row, 1u) << "counted with the row that stays";
    EXPECT_EQ(sitemap.remove(2).row, 1u);
    EXPECT_EQ(sitemap.rows(), rows);
    EXPECT_EQ(onDisk(), before);

    EXPECT_TRUE(sitemap.remove(1).saved()) << "the row itself can go";
    EXPECT_EQ(onDisk(), kHeader + "\n\t" + entry("a") + "\n\t" + entry("c") + "\n</urlset>");
  }
}

TEST_F(XmlSitemapTest, OverwritesNobodysWork) {
  loadThree();
  const auto rows = sitemap.rows();
  write("<urlset/>");
  EXPECT_TRUE(sitemap.changedElsewhere());
  EXPECT_EQ(sitemap.choose(0, Field::priority, "1").question(), Question::readAnew);
  EXPECT_EQ(sitemap.remove(0).question(), Question::readAnew);
  EXPECT_EQ(onDisk(), "<urlset/>");
  EXPECT_EQ(sitemap.rows(), rows);

  loadThree();
  {
    const platform::FolderLock scan(folder.path());
    ASSERT_TRUE(scan.result().ok());
    const Change whileScanned = sitemap.choose(0, Field::priority, "1");
    EXPECT_EQ(whileScanned.status, ChangeStatus::scanned);
    EXPECT_EQ(whileScanned.question(), Question::none);
  }
  EXPECT_TRUE(sitemap.choose(0, Field::priority, "1").saved());
  EXPECT_TRUE(sitemap.choose(0, Field::priority, "0.1").saved()) << "our own work is known";

  std::filesystem::remove(file);
  EXPECT_FALSE(sitemap.changedElsewhere());
  EXPECT_TRUE(sitemap.remove(0).saved()) << "there is nothing to lose";
}

TEST_F(XmlSitemapTest, TellsOfFailedWrites) {
  loadThree();
  const auto rows = sitemap.rows();
  std::filesystem::remove_all(folder.path());
  const Change failed = sitemap.remove(1);
  EXPECT_EQ(failed.status, ChangeStatus::failed);
  EXPECT_NE(failed.message.find("No such file"), std::string::npos) << failed.message;
  EXPECT_EQ(sitemap.choose(1, Field::priority, "1").status, ChangeStatus::failed);
  EXPECT_EQ(sitemap.rows(), rows);
}

TEST_F(XmlSitemapTest, TellsWhatThereIsToShow) {
  const std::pair<std::filesystem::path, Contents> cases[] = {
      {{}, Contents::none},  // no site
      {folder.path() / "none.xml", Contents::missing},
      {folder.path(), Contents::unreadable},
  };
  for (const auto& [path, contents] : cases) {
    SCOPED_TRACE(path);
    loadThree();
    EXPECT_EQ(sitemap.load(path), contents);
    EXPECT_TRUE(sitemap.rows().empty()) << "nothing of the one before";
  }
}

}  // namespace
}  // namespace xml_editor
