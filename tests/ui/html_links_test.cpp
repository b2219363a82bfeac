// Links of the HTML sitemap, clicked, edited and deleted.
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QStatusBar>

#include "html_steps.h"

namespace window_tests {

using samples::link;
using samples::page;
using samples::with;

namespace {

const QString kTitleBlank =
    QStringLiteral("The title field cannot be left blank, please enter a title for this page.");
const QString kDeleteThis = QStringLiteral("Delete This Link");
const QString kDeleteLink = QStringLiteral("Delete Link");
const QString kCancelDeletion = QStringLiteral("Cancel Deletion");
const QString kSaveFirst = QStringLiteral(
    "Changes have been made to this sitemap, would you like to save the changes you have made before "
    "deleting this link?");
const QString kAskAboutLink = QStringLiteral("Link 2");

std::string without(const std::string& document, const std::string& entry) {
  return with(document, "\n\t\t\t" + entry, "");
}

const std::string kLink2 = link(22, "http://a.test/2/link", "Link 2");
const std::string kPage2 = page(20, "http://a.test/2", "Page 2");

/// A real click of the mouse on the first link with this text.
void clickWithMouse(const HtmlDesk& desk, const QString& label, Qt::MouseButton button) {
  const QVariantList place =
      desk.inPage(QStringLiteral("{ const box = Array.from(document.links).find(each => "
                                 "each.textContent.includes('%1')).getBoundingClientRect();"
                                 "[box.x + box.width / 2, box.y + box.height / 2] }")
                      .arg(label))
          .toList();
  QTest::mouseClick(desk.webView().focusProxy(), button, {},
                    QPoint(place.value(0).toInt(), place.value(1).toInt()));
}

}  // namespace

class HtmlLinksTest : public QObject {
  Q_OBJECT

 private slots:
  void selectsWhatIsClicked();
  void readsLinksOfEverySort();
  void edits();
  void editsBothFieldsAtOnce();
  void offersToDeleteWhenAFieldIsBlank();
  void deletes();
  void asksBeforeDeletingFromAnUnsavedDocument();
  void deletesNoOtherLinkThanTheOneAskedAbout();
  void rebuildsWithoutTheEmptyCell();
  void keepsItsPlace();
};

void HtmlLinksTest::selectsWhatIsClicked() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.nothingIsSelected());
  const QString marked = QStringLiteral(
      "Array.from(document.links).filter(each => each.style.outline)"
      ".map(each => each.textContent).join() === '%1'");
  clickWithMouse(desk, QStringLiteral("Link 3"), Qt::MiddleButton);
  clickWithMouse(desk, kAskAboutLink, Qt::LeftButton);
  QVERIFY(comesTrue([&] { return desk.text("titleEditInput") == kAskAboutLink; }));
  QCOMPARE(desk.text("linkEditInput"), QStringLiteral("http://a.test/2/link"));
  QVERIFY(desk.enabled("deleteButton") && desk.enabled("titleEditInput") && desk.enabled("linkEditInput"));
  QVERIFY(desk.inPageComesTrue(marked.arg(kAskAboutLink)));
  desk.inPage(QStringLiteral("document.links[7].focus()"));
  QTest::keyClick(desk.webView().focusProxy(), Qt::Key_Return);
  QVERIFY(comesTrue([&] { return desk.text("titleEditInput") == QLatin1String("Link 4"); }));
  QVERIFY(desk.inPageComesTrue(marked.arg(QLatin1String("Link 4"))));
  // The other button selects too, and offers what can be done.
  clickWithMouse(desk, QStringLiteral("Page 3"), Qt::RightButton);
  const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
  QVERIFY(comesTrue([&] { return menu() != nullptr; }));
  QCOMPARE(desk.text("titleEditInput"), QStringLiteral("Page 3"));
  menu()->actions().first()->trigger();
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://a.test/3"));
  menu()->close();
  desk.webView().setFocus();
  QTest::keyClick(desk.webView().focusProxy(), Qt::Key_Delete);
  QVERIFY(answer(message(kDeleteQuestion), kCancel));
  QVERIFY(desk.isClean());
}

void HtmlLinksTest::readsLinksOfEverySort() {
  struct Case {
    const char* name;
    const char* url;
    const char* title;  // as in the document
    const char* label;
  };
  const Case cases[] = {
      {"a host in upper case", "HTTP://A.Test/X", "Title", "Title"},
      {"a fragment alone", "#x", "Title", "Title"},
      {"no URL at all", "http://[", "Title", "Title"},
      {"a script", "javascript:document.body.remove()", "Title", "Title"},
      {"spaces around it, and ampersands", " a?b=1&c=2 ", "Tom &amp;  Jerry", "Tom &  Jerry"},
      {"other scripts", "\xE4\xB8\xAD", "\xC3\xBC\xF0\x9F\x98\x80", "\xC3\xBC\xF0\x9F\x98\x80"},
  };
  samples::Block block = {page(0, "http://a.test/", "Start")};
  for (int i = 0; i < 6; ++i) block.push_back(link(i + 1, cases[i].url, cases[i].title));
  block.push_back(link(7, "http://a.test/b", ""));
  HtmlDesk desk({block});
  desk.openAt(2);
  for (int i = 0; i < 6; ++i) {
    desk.inPage(QStringLiteral("document.links[%1].click()").arg(i + 1));
    QVERIFY2(comesTrue([&] { return desk.text("linkEditInput").toUtf8() == cases[i].url; }), cases[i].name);
    QCOMPARE(desk.text("titleEditInput").toUtf8(), QByteArray(cases[i].label));
  }
  // Without a label there is nothing to select; the fields stay as they were.
  desk.inPage(QStringLiteral("document.links[7].click()"));
  QVERIFY(comesTrue([&] { return !desk.enabled("deleteButton"); }));
  QVERIFY(!desk.text("titleEditInput").isEmpty());
}

void HtmlLinksTest::edits() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", QStringLiteral("Single Column, All Links")));
  QVERIFY(desk.shown());
  std::string expected = with(desk.document(), kLink2, link(22, "http://a.test/2/link", "A &amp; B"));
  const auto isSaved = [&] {
    return desk.shown() && desk.onDisk("sitemap1c.html") == expected && desk.document() == expected &&
           desk.isClean() && desk.nothingIsSelected() && topSheet() == nullptr;
  };
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.type("titleEditInput", QStringLiteral("A & B")));
  QVERIFY(isSaved());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links[3].textContent === 'A & B'")));
  // With the style that was not saved yet, and by going on to another control.
  QVERIFY(desk.edit());
  expected = edited(with(expected, "http://a.test/2/link---", "http://b.test/?a=1&b=$1---"));
  QVERIFY(desk.clickLink(QStringLiteral("A & B")));
  desk.field("linkEditInput").setFocus();
  desk.field("linkEditInput").selectAll();
  QTest::keyClicks(&desk.field("linkEditInput"), QStringLiteral("http://b.test/?a=1&b=$1"));
  desk.control<QComboBox>("sitemapTypePopup").setFocus();
  QVERIFY(isSaved());
  QVERIFY(desk.othersAreUntouched("sitemap1c.html"));
  // What was begun is dropped when the view is left.
  QVERIFY(desk.clickLink(QStringLiteral("Link 3")));
  desk.field("titleEditInput").setFocus();
  QTest::keyClicks(&desk.field("titleEditInput"), QStringLiteral("half"));
  desk.go(3);
  QCOMPARE(desk.onDisk("sitemap1c.html"), expected);
  QVERIFY(desk.isClean());
}

/// Title and address are one edit.
void HtmlLinksTest::editsBothFieldsAtOnce() {
  std::vector<samples::Block> blocks = samples::blocks(6);
  blocks[1][1] = link(22, "u", "&lt;style>");
  HtmlDesk desk(blocks);
  desk.openAt(2);
  const std::string before = desk.onDisk();
  const std::string after = with(before, link(22, "u", "&lt;style>"), link(22, "u!", "&lt;style>?"));
  QVERIFY(desk.clickLink(QStringLiteral("<style>")));
  const auto typeBehind = [&](const char* name, const char* text) {
    desk.field(name).setFocus();
    QTest::keyClick(&desk.field(name), Qt::Key_End);
    QTest::keyClicks(&desk.field(name), QLatin1String(text));
  };
  typeBehind("titleEditInput", "?");
  typeBehind("linkEditInput", "!");
  desk.control<QPushButton>("deleteButton").setFocus();
  QCOMPARE(desk.onDisk(), before);
  desk.control<QComboBox>("sitemapTypePopup").setFocus();
  QCOMPARE(desk.onDisk(), after);
  QVERIFY(desk.shown());
  // To delete a link that was changed is to delete it.
  QVERIFY(desk.clickLink(QStringLiteral("<style>?")));
  typeBehind("titleEditInput", "x");
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QVERIFY(desk.shown());
  QCOMPARE(desk.onDisk(), without(after, link(22, "u!", "&lt;style>?")));
}

void HtmlLinksTest::offersToDeleteWhenAFieldIsBlank() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  for (const QString& button : {kOk, kDeleteThis}) {
    QVERIFY(desk.clickLink(kAskAboutLink));
    QVERIFY(desk.type("titleEditInput", {}));
    QVERIFY(desk.nothingIsSelected());
    QVERIFY(answer(message(kTitleBlank), button));
    if (button == kDeleteThis) QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
    QVERIFY(desk.shown() && noSheetLeft());
    QCOMPARE(desk.onDisk(), button == kOk ? before : without(before, kLink2));
  }
}

void HtmlLinksTest::deletes() {
  HtmlDesk desk;
  // The search for the next heading goes up to the count of the record.
  desk.writeFile("Shop", "Shop.qzVSK",
                 with(desk.record("Shop"), "<totalLinks>0</totalLinks>", "<totalLinks>43</totalLinks>"));
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.clickLink(QStringLiteral("Page 2")));
  QVERIFY(desk.click("deleteButton"));
  QMessageBox* sheet = message(kDeleteQuestion);
  QVERIFY(sheet);
  QCOMPARE(sheet->informativeText(),
           QStringLiteral("Page 2\nhttp://a.test/2\n\nThis could take a while for large sites."));
  pressEscape(*sheet);
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk(), before);
  QVERIFY(desk.click("deleteButton"));  // it is still selected
  QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QVERIFY(desk.shown() && noSheetLeft());
  // The first link of the page takes its place.
  QCOMPARE(desk.onDisk(), with(without(before, kPage2), kLink2, page(22, "http://a.test/2/link", "Link 2")));
  QCOMPARE(desk.document(), desk.onDisk());
  QVERIFY(desk.othersAreUntouched());
  QVERIFY(desk.isClean() && desk.nothingIsSelected());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === 11")));
}

void HtmlLinksTest::asksBeforeDeletingFromAnUnsavedDocument() {
  for (const QString& button : {kSaveChanges, kDiscardChanges, kCancelDeletion}) {
    HtmlDesk desk;
    desk.openAt(2);
    const std::string before = desk.document();
    QVERIFY(desk.edit());
    QVERIFY(desk.clickLink(kAskAboutLink));
    QVERIFY(desk.click("deleteButton"));
    QVERIFY(answer(message(kSaveFirst), button));
    if (button == kCancelDeletion) {
      QVERIFY(noSheetLeft());
      QCOMPARE(desk.onDisk(), before);
      QCOMPARE(desk.document(), edited(before));
      continue;
    }
    const std::string expected = without(button == kSaveChanges ? edited(before) : before, kLink2);
    QVERIFY(comesTrue([&] { return desk.onDisk() == expected; }));
    QVERIFY(topSheet() == nullptr);  // that was the question
    QCOMPARE(desk.document(), expected);
    QVERIFY(desk.isClean());
  }
}

/// Between the answer and the deletion half a second goes by, in which the user is free.
void HtmlLinksTest::deletesNoOtherLinkThanTheOneAskedAbout() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.edit());
  const std::string unsaved = desk.document();
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kSaveFirst), kSaveChanges));
  desk.inPage(QStringLiteral("document.links[7].click()"));
  QVERIFY(comesTrue([&] { return desk.onDisk() == without(unsaved, kLink2); }));
  // And when the document is no longer there, nothing happens to the one that is.
  QVERIFY(desk.shown());
  QVERIFY(desk.edit());
  QVERIFY(desk.clickLink(QStringLiteral("Link 3")));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kSaveFirst), kDiscardChanges));
  QVERIFY(desk.choose("sitemapTypePopup", QStringLiteral("Two Columns, All Links")));
  // A sheet that follows another one keeps the same distance, so by now it would have happened.
  QVERIFY(desk.type("ptColourField", QStringLiteral("#ABC")));
  for (int i = 0; i < 2; ++i) QVERIFY(answer(sheetNamed({}), kOk));
  QCOMPARE(desk.onDisk(), without(unsaved, kLink2));
  QVERIFY(desk.othersAreUntouched());
}

void HtmlLinksTest::rebuildsWithoutTheEmptyCell() {
  HtmlDesk desk(samples::blocks(7));
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", QStringLiteral("Two Columns, Pages Only")));
  QVERIFY(desk.shown());
  QVERIFY(desk.edit());
  QVERIFY(desk.clickLink(QStringLiteral("Page 2")));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kSaveFirst), kSaveChanges));
  QVERIFY(comesTrue([&] { return desk.onDisk("sitemap2cpo.html").find("Page 2") == std::string::npos; }));
  QVERIFY(desk.shown());
  // Six pages in full rows, the style kept.
  QVERIFY(desk.inPageComesTrue(QStringLiteral(
      "Array.from(document.querySelectorAll('td')).every(each => each.querySelectorAll('a').length === 1) &&"
      "document.querySelectorAll('td').length === 6")));
  QVERIFY(desk.document().find("font-style: italic") != std::string::npos);
  QCOMPARE(desk.document(), desk.onDisk("sitemap2cpo.html"));
  QVERIFY(desk.isClean());
  QVERIFY(desk.othersAreUntouched("sitemap2cpo.html"));
}

void HtmlLinksTest::keepsItsPlace() {
  HtmlDesk desk(samples::blocks(300));
  desk.openAt(2);
  desk.inPage(QStringLiteral("scrollTo(0, 1500)"));
  QVERIFY(desk.clickLink(QStringLiteral("Link 150")));
  desk.inPage(QStringLiteral("scrollTo(0, 900)"));
  QVERIFY(desk.type("titleEditInput", QStringLiteral("New")));
  QVERIFY(desk.shown());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("scrollY === 1500")));
  desk.inPage(QStringLiteral("scrollTo(0, 700)"));
  QVERIFY(desk.clickLink(QStringLiteral("New")));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QVERIFY(desk.shown() && noSheetLeft());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === 599 && scrollY === 700")));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlLinksTest>(argc, argv);
}

#include "html_links_test.moc"
