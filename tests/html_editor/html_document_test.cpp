// The document in hand: what each step does to it, its file and its kept copy, and what it asks first.
#include "html_editor/html_document.h"

#include <fstream>
#include <functional>

#include <gtest/gtest.h>

#include "html_editor/layouts.h"
#include "html_editor/sample_document.h"
#include "store/site_record.h"
#include "support/temp_folder.h"

namespace html_editor {
namespace {

using samples::blocks;
using samples::with;

class HtmlDocumentTest : public testing::Test {
 protected:
  HtmlDocumentTest() {
    std::filesystem::create_directories(folder());
    write("sitemap3c.html", samples::document(3, blocks(6)));
    write("sitemap2c.html", samples::document(2, blocks(6)));
    write("S.qzVSK", with(store::newSiteRecord("S", "http://a.test/"), "<totalLinks>0", "<totalLinks>99"));
  }

  std::filesystem::path folder() const { return m_controls.siteFolder("S"); }
  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder() / name, std::ios::binary) << text;
  }
  std::string read(const std::string& name) const { return platform::readFile(folder() / name).text; }
  bool hasCopy(const std::string& name, const std::string& original) const {
    return m_copies.load(folder() / name, original).has_value();
  }
  /// An edit of the document in hand, kept as a copy as well.
  std::string edit() {
    const std::string edited = document.text() + "<!-- edited -->";
    document.restyle(edited);
    document.keepCopy();
    return edited;
  }

  support::TempFolder m_home;
  store::GlobalControls m_controls{m_home.path()};
  store::SharedState state;
  RecoveryCopies m_copies{store::StateFolder(std::filesystem::path(m_home.path()) / "state")};
  HtmlDocument document{state, m_controls, m_copies};
  const sitemaps::Layout& two = *sitemaps::layoutNamed("2c");
  const std::string three = samples::document(3, blocks(6));
  const std::string twoColumns = samples::document(2, blocks(6));
};

TEST_F(HtmlDocumentTest, AsksAboutWhatIsUnsaved) {
  using Questions = std::vector<Question>;
  const auto questions = [&] {
    return Questions{document.toSwitch(), document.toLeave(), document.toPreview(), document.toDelete()};
  };
  const Questions ofSaved = {Question::none, Question::none, Question::none, Question::deleteLink};
  document.firstLoad("S");
  EXPECT_EQ(questions(), ofSaved);
  EXPECT_EQ(document.toSave(), Question::save);
  edit();
  const Questions ofEdited = {Question::beforeLayout, Question::beforeLeaving, Question::beforePreview,
                              Question::beforeDeletion};
  EXPECT_EQ(questions(), ofEdited);
  EXPECT_EQ(document.toSave(), Question::save);
  EXPECT_TRUE(state.qzvskNeedsSave);
  std::filesystem::remove(folder() / "sitemap3c.html");
  EXPECT_EQ(questions(), ofEdited);
  EXPECT_EQ(document.toSave(), Question::none);
  document.restyle(three);  // an edit that is taken back is none
  EXPECT_EQ(questions(), ofSaved);
}

TEST_F(HtmlDocumentTest, LeavesNothingOfAnEditButWhereItBelongs) {
  struct Case {
    const char* name;
    std::function<void()> step;
    bool written;    // to the document that was edited
    bool textStays;  // in hand
    bool copyStays;
  };
  const Case cases[] = {
      {"saved", [&] { EXPECT_TRUE(document.save().ok()); }, true, true, false},
      {"saved before another step", [&] { EXPECT_TRUE(document.saveOrKeep().ok()); }, true, true, false},
      {"discarded", [&] { document.discard(); }, false, false, false},
      {"read back", [&] { document.readBack(); }, false, false, false},
      {"taken back", [&] { document.restyle(twoColumns); }, false, false, false},
      {"the program ends", [&] { document.firstLoad("S"); }, false, false, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    write("sitemap2c.html", twoColumns);
    document.firstLoad("S");
    document.switchTo(two);
    const std::string edited = edit();
    c.step();
    EXPECT_FALSE(document.changed());
    EXPECT_EQ(read("sitemap2c.html"), c.written ? edited : twoColumns);
    EXPECT_EQ(read("sitemap3c.html"), three);
    EXPECT_EQ(document.text() == edited, c.textStays);
    EXPECT_EQ(hasCopy("sitemap2c.html", twoColumns), c.copyStays);
    document.dropCopy(folder() / "sitemap2c.html");
  }
}

/// A text whose first document is missing must not be written as that.
TEST_F(HtmlDocumentTest, IsNotSavedIntoAnotherFile) {
  document.firstLoad("S");
  document.switchTo(two);
  edit();
  std::filesystem::remove(folder() / "sitemap3c.html");
  document.firstLoad("S");
  EXPECT_FALSE(document.isThere());
  EXPECT_EQ(document.toLeave(), Question::none);
  EXPECT_EQ(document.toSave(), Question::none);
  EXPECT_FALSE(state.qzvskNeedsSave);
  document.firstLoad("");
  EXPECT_EQ(document.toLeave(), Question::none);
}

TEST_F(HtmlDocumentTest, OverwritesNobodysWork) {
  for (const bool busy : {true, false}) {
    SCOPED_TRACE(busy ? "a scan" : "another program");
    const char* const reason = busy ? "The site is being scanned." : "Another program has changed it.";
    write("sitemap3c.html", three);
    document.firstLoad("S");
    const std::string edited = edit();
    std::optional<platform::FolderLock> scan;
    if (busy) scan.emplace(folder());
    if (!busy) write("sitemap3c.html", "theirs");
    EXPECT_EQ(document.saveOrKeep().error, reason);
    EXPECT_EQ(document.text(), edited);  // and is still in hand
    const Saving saving = document.save();
    EXPECT_EQ(saving.result.error, reason);
    EXPECT_EQ(saving.unsaved, edited);
    EXPECT_EQ(document.text(), busy ? three : "theirs");
    EXPECT_EQ(read("sitemap3c.html"), document.text());
    EXPECT_TRUE(hasCopy("sitemap3c.html", three));  // for the next time
    EXPECT_FALSE(document.changed());
  }
}

TEST_F(HtmlDocumentTest, OffersKeptChangesOfItsOwnFile) {
  document.firstLoad("S");
  const std::string edited = edit();
  document.firstLoad("S");
  EXPECT_EQ(document.keptChanges(), edited);
  const std::filesystem::path first = document.file();
  document.switchTo(two);
  EXPECT_EQ(document.keptChanges(), std::nullopt);
  EXPECT_FALSE(document.restore(first, edited));
  EXPECT_EQ(document.text(), twoColumns);
  document.firstLoad("S");
  EXPECT_TRUE(document.restore(first, edited));
  EXPECT_TRUE(document.changed());
  EXPECT_TRUE(document.save().ok());
  EXPECT_EQ(document.keptChanges(), std::nullopt);
}

TEST_F(HtmlDocumentTest, EditsAndRemovesTheSelectedLink) {
  document.firstLoad("S");
  EXPECT_FALSE(document.editLink("u", "T"));
  const std::string link = samples::link(22, "http://a.test/2/link", "Link 2");
  ASSERT_TRUE(document.select("http://a.test/2/link---LINKID:22---", "Link 2"));
  EXPECT_FALSE(document.select("", "T"));
  EXPECT_EQ(document.selection()->linkNumber, "22");
  EXPECT_TRUE(document.editLink("u", "R&D"));
  EXPECT_FALSE(document.selection());
  EXPECT_EQ(document.text(), with(three, link, samples::link(22, "u", "R&amp;D")));
  EXPECT_TRUE(document.changed());
  document.discard();
  document.select("http://a.test/2/link---LINKID:22---", "gone");
  EXPECT_FALSE(document.editLink("u", "T"));
  EXPECT_FALSE(document.changed());

  document.select("http://a.test/2---LINKID:20---", "Page 2");
  EXPECT_EQ(document.removeLink(*document.selection()), Removed::pageEntry);
  const std::string heading = samples::page(22, "http://a.test/2/link", "Link 2");
  EXPECT_EQ(
      document.text(),
      with(with(three, "\n\t\t\t" + samples::page(20, "http://a.test/2", "Page 2"), ""), link, heading));
  document.select("http://a.test/2/link---LINKID:22---", "Link 2");
  EXPECT_EQ(document.removeLink(*document.selection()), Removed::pageEntry);
  // The cell that is empty now has gone, and the table was built anew in this layout.
  EXPECT_NE(document.text().find("<td width=\"32%\">\n\t\t\t&nbsp;"), std::string::npos);
  EXPECT_EQ(document.text().find("a.test/2"), std::string::npos);
  EXPECT_NE(document.text().find("a.test/6"), std::string::npos);
}

}  // namespace
}  // namespace html_editor
