// Links of the HTML sitemap, clicked, edited and deleted.
#include <QLabel>
#include <QStatusBar>
#include <filesystem>

#include "html_editor/style.h"
#include "html_steps.h"
#include "platform/qt_text.h"
#include "store/site_record.h"

namespace window_tests {

namespace fs = std::filesystem;
using platform::toQString;
using samples::link;
using samples::page;
using samples::with;

namespace {

const QString kTitleBlank =
    QStringLiteral("The title field cannot be left blank, please enter a title for this page.");
const QString kLinkBlank =
    QStringLiteral("The link field cannot be left blank, please enter the link for this page.");
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
  void fillsTheFields();
  void isClickedWithTheMouseAndTheKeyboard();
  void selectsNothingWithoutALabel();
  void readsLinksOfEverySort_data();
  void readsLinksOfEverySort();
  void selectsNothingOnAFixedPage();
  void edits_data();
  void edits();
  void editsTwiceInARow();
  void editsBothFieldsAtOnce();
  void abandonsAnEditWhenTheViewIsLeft();
  void savesStylesAlongWithAnEdit();
  void saysWhenTheLinkIsNotThere();
  void asksAboutABlankField_data();
  void asksAboutABlankField();
  void deletes_data();
  void deletes();
  void deletesInAnotherLayout();
  void cancelsADeletion();
  void asksBeforeDeletingFromAnUnsavedDocument_data();
  void asksBeforeDeletingFromAnUnsavedDocument();
  void deletesNoOtherLinkThanTheOneAskedAbout();
  void rebuildsWithoutTheEmptyCell_data();
  void rebuildsWithoutTheEmptyCell();
  void keepsItsPlace();
};

void HtmlLinksTest::fillsTheFields() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.nothingIsSelected());
  QVERIFY(desk.clickLink(kAskAboutLink));
  QCOMPARE(desk.text("titleEditInput"), kAskAboutLink);
  QCOMPARE(desk.text("linkEditInput"), QStringLiteral("http://a.test/2/link"));
  QVERIFY(desk.enabled("deleteButton") && desk.enabled("titleEditInput") && desk.enabled("linkEditInput"));
  QVERIFY(desk.isClean());
  QVERIFY(
      desk.inPageComesTrue(QStringLiteral("document.querySelectorAll('a[style*=outline]').length === 1 && "
                                          "document.querySelector('a[style*=outline]').textContent === "
                                          "'Link 2'")));
  QVERIFY(desk.clickLink(QStringLiteral("Page 3")));
  QCOMPARE(desk.text("linkEditInput"), QStringLiteral("http://a.test/3"));
  QVERIFY(
      desk.inPageComesTrue(QStringLiteral("Array.from(document.links).filter(each => each.style.outline)"
                                          ".map(each => each.textContent).join() === 'Page 3'")));
}

void HtmlLinksTest::isClickedWithTheMouseAndTheKeyboard() {
  HtmlDesk desk;
  desk.openAt(2);
  clickWithMouse(desk, QStringLiteral("Link 3"), Qt::MiddleButton);
  clickWithMouse(desk, QStringLiteral("Link 3"), Qt::RightButton);
  QVERIFY(QApplication::activePopupWidget() == nullptr);
  clickWithMouse(desk, QStringLiteral("Link 2"), Qt::LeftButton);
  QVERIFY(comesTrue([&] { return desk.text("titleEditInput") == QLatin1String("Link 2"); }));
  desk.inPage(QStringLiteral("document.links[7].focus()"));
  QTest::keyClick(desk.webView().focusProxy(), Qt::Key_Return);
  QVERIFY(comesTrue([&] { return desk.text("titleEditInput") == QLatin1String("Link 4"); }));
  QVERIFY(desk.inPageComesTrue(QStringLiteral("location.protocol === 'veskel-document:'")));
}

void HtmlLinksTest::selectsNothingWithoutALabel() {
  HtmlDesk desk({{page(0, "http://a.test/", "Start"), link(2, "http://a.test/b", "")}});
  desk.openAt(2);
  QVERIFY(desk.clickLink(QStringLiteral("Start")));
  desk.inPage(QStringLiteral("document.links[1].click()"));
  QVERIFY(comesTrue([&] { return !desk.enabled("deleteButton"); }));
  // The fields stay as they were.
  QCOMPARE(desk.text("titleEditInput"), QStringLiteral("Start"));
}

void HtmlLinksTest::readsLinksOfEverySort_data() {
  QTest::addColumn<QByteArray>("url");
  QTest::addColumn<QByteArray>("title");  // as in the document
  QTest::addColumn<QByteArray>("label");
  const auto row = [](const char* name, const char* url, const char* title, const char* label) {
    QTest::newRow(name) << QByteArray(url) << QByteArray(title) << QByteArray(label);
  };
  row("a host in upper case", "HTTP://A.Test/X", "Title", "Title");
  row("a fragment alone", "#x", "Title", "Title");
  row("no URL at all", "http://[", "Title", "Title");
  row("a script", "javascript:document.body.remove()", "Title", "Title");
  row("spaces around it", " a b ", "Title", "Title");
  row("an ampersand", "a?b=1&c=2", "Tom &amp; Jerry", "Tom & Jerry");
  row("a bare ampersand", "a?b=1&c=2", "Tom & Jerry", "Tom & Jerry");
  row("pattern characters", "a?b=(c)[d]+$1\\2", "C++ (1) $2 \\3 [4]", "C++ (1) $2 \\3 [4]");
  row("two spaces", "a", "two  spaces", "two  spaces");
  row("other scripts", "\xE4\xB8\xAD", "\xC3\xBC\xE4\xB8\xAD\xF0\x9F\x98\x80",
      "\xC3\xBC\xE4\xB8\xAD\xF0\x9F\x98\x80");
}

void HtmlLinksTest::readsLinksOfEverySort() {
  QFETCH(const QByteArray, url);
  QFETCH(const QByteArray, title);
  QFETCH(const QByteArray, label);
  HtmlDesk desk({{page(0, "http://a.test/", "Start"), link(2, url.toStdString(), title.toStdString())}});
  desk.openAt(2);
  const std::string before = desk.onDisk();
  desk.inPage(QStringLiteral("document.links[1].click()"));
  QVERIFY(comesTrue([&] { return desk.enabled("deleteButton"); }));
  QCOMPARE(desk.text("titleEditInput").toUtf8(), label);
  QCOMPARE(desk.text("linkEditInput").toUtf8(), url);
  QVERIFY(desk.type("titleEditInput", QStringLiteral("R&D")));
  QVERIFY(desk.shown());
  QCOMPARE(desk.onDisk(), with(before, title.toStdString() + "<!-- LINKID: 2", "R&amp;D<!-- LINKID: 2"));
}

void HtmlLinksTest::selectsNothingOnAFixedPage() {
  HtmlDesk desk(kNeverScanned);
  desk.openAt(2);
  desk.inPage(
      QStringLiteral("{ const link = document.body.appendChild(document.createElement('a'));"
                     "link.href = 'x---LINKID:1---'; link.textContent = 'x'; link.click(); }"));
  // The click arrives in the order of things; a question behind it is answered later.
  desk.inPage(QStringLiteral("new Promise(done => setTimeout(done))"));
  QVERIFY(desk.nothingIsSelected());
}

void HtmlLinksTest::edits_data() {
  QTest::addColumn<QByteArray>("field");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QByteArray>("anchor");
  QTest::newRow("title") << QByteArray("titleEditInput") << QStringLiteral("A & B <i>")
                         << QByteArray(
                                "<a href=\"http://a.test/2/link---LINKID:22---\">A &amp; B <i>"
                                "<!-- LINKID: 22 --></a>");
  QTest::newRow("target") << QByteArray("linkEditInput") << QStringLiteral("http://b.test/?a=1&b=$1")
                          << QByteArray(
                                 "<a href=\"http://b.test/?a=1&b=$1---LINKID:22---\">Link 2"
                                 "<!-- LINKID: 22 --></a>");
}

void HtmlLinksTest::edits() {
  QFETCH(const QByteArray, field);
  QFETCH(const QString, typed);
  QFETCH(const QByteArray, anchor);
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", QStringLiteral("Single Column, All Links")));
  QVERIFY(desk.shown());
  const std::string before = desk.document();
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.type(field.constData(), typed));
  QVERIFY(topSheet() == nullptr);
  const std::string old = "<a href=\"http://a.test/2/link---LINKID:22---\">Link 2<!-- LINKID: 22 --></a>";
  QCOMPARE(desk.onDisk("sitemap1c.html"), with(before, old, anchor.toStdString()));
  QCOMPARE(desk.document(), desk.onDisk("sitemap1c.html"));
  QVERIFY(desk.othersAreUntouched("sitemap1c.html"));
  QVERIFY(desk.isClean());
  QVERIFY(desk.nothingIsSelected());
  QVERIFY(desk.shown());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links[3].outerHTML.includes('LINKID:22')")));
}

void HtmlLinksTest::editsTwiceInARow() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.type("titleEditInput", QStringLiteral("First")));
  QVERIFY(desk.shown());
  QVERIFY(desk.clickLink(QStringLiteral("First")));
  QVERIFY(desk.type("linkEditInput", QStringLiteral("second")));
  QVERIFY(desk.shown());
  QCOMPARE(desk.onDisk(), with(before, kLink2, link(22, "second", "First")));
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

void HtmlLinksTest::abandonsAnEditWhenTheViewIsLeft() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.clickLink(kAskAboutLink));
  QLineEdit& title = desk.field("titleEditInput");
  title.setFocus();
  QTest::keyClicks(&title, QStringLiteral("half"));
  desk.go(3);
  QVERIFY(topSheet() == nullptr);
  QCOMPARE(desk.onDisk(), before);
  QVERIFY(desk.isClean());
  desk.go(2);
  QVERIFY(desk.shown());
  QVERIFY(desk.nothingIsSelected());
}

void HtmlLinksTest::savesStylesAlongWithAnEdit() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.click("ptBoldButton"));
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.type("titleEditInput", QStringLiteral("New")));
  QVERIFY(desk.isClean());
  QCOMPARE(desk.onDisk(), with(with(before, kLink2, link(22, "http://a.test/2/link", "New")),
                               "font-weight: bold", "font-weight: normal"));
}

void HtmlLinksTest::saysWhenTheLinkIsNotThere() {
  // Markup in a title is not in the text that a click tells of.
  const samples::Block other = {page(9, "http://a.test/", "Start")};
  HtmlDesk desk({other, {link(2, "http://a.test/b", "<b>Bold</b>")}, other});
  desk.openAt(2);
  const std::string before = desk.document();
  QString said;
  connect(&desk.control<QStatusBar>("statusBar"), &QStatusBar::messageChanged, this,
          [&](const QString& text) { said = text; });
  QVERIFY(desk.clickLink(QStringLiteral("Bold")));
  QVERIFY(desk.type("titleEditInput", QStringLiteral("New")));
  QVERIFY(said.startsWith(QLatin1String("Nothing was changed")));
  QCOMPARE(desk.onDisk(), before);
  QVERIFY(desk.shown());
  QVERIFY(desk.clickLink(QStringLiteral("Bold")));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QVERIFY(comesTrue([&] { return said.startsWith(QLatin1String("Nothing was removed")); }));
  QCOMPARE(desk.onDisk(), before);
}

void HtmlLinksTest::asksAboutABlankField_data() {
  QTest::addColumn<QByteArray>("field");
  QTest::addColumn<QString>("question");
  QTest::addColumn<bool>("remove");
  QTest::newRow("title, taken back") << QByteArray("titleEditInput") << kTitleBlank << false;
  QTest::newRow("title, deleted") << QByteArray("titleEditInput") << kTitleBlank << true;
  QTest::newRow("target, taken back") << QByteArray("linkEditInput") << kLinkBlank << false;
  QTest::newRow("target, deleted") << QByteArray("linkEditInput") << kLinkBlank << true;
}

void HtmlLinksTest::asksAboutABlankField() {
  QFETCH(const QByteArray, field);
  QFETCH(const QString, question);
  QFETCH(const bool, remove);
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.type(field.constData(), {}));
  QMessageBox* sheet = message(question);
  QVERIFY(sheet);
  QVERIFY(hasButtons(*sheet, {kOk, kDeleteThis}));
  QVERIFY(desk.nothingIsSelected());
  QVERIFY(answer(sheet, remove ? kDeleteThis : kOk));
  if (remove) QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.onDisk(), remove ? without(before, kLink2) : before);
  QVERIFY(desk.isClean());
  QVERIFY(desk.nothingIsSelected());
}

void HtmlLinksTest::deletes_data() {
  QTest::addColumn<QString>("label");
  QTest::addColumn<QByteArray>("removed");
  QTest::addColumn<QByteArray>("demoted");  // becomes
  QTest::addColumn<QByteArray>("promoted");
  QTest::newRow("a link") << QStringLiteral("Link 2") << QByteArray(kLink2.c_str()) << QByteArray()
                          << QByteArray();
  QTest::newRow("a page, whose first link takes its place")
      << QStringLiteral("Page 2") << QByteArray(kPage2.c_str()) << QByteArray(kLink2.c_str())
      << QByteArray(page(22, "http://a.test/2/link", "Link 2").c_str());
}

void HtmlLinksTest::deletes() {
  QFETCH(const QString, label);
  QFETCH(const QByteArray, removed);
  QFETCH(const QByteArray, demoted);
  QFETCH(const QByteArray, promoted);
  HtmlDesk desk;
  // The search for the next heading goes up to the count of the record.
  desk.writeFile("Shop", "Shop.qzVSK",
                 with(desk.record("Shop"), "<totalLinks>0</totalLinks>", "<totalLinks>43</totalLinks>"));
  desk.openAt(2);
  std::string expected = without(desk.document(), removed.toStdString());
  if (!promoted.isEmpty()) expected = with(expected, demoted.toStdString(), promoted.toStdString());
  QVERIFY(desk.clickLink(label));
  QVERIFY(desk.click("deleteButton"));
  QMessageBox* sheet = message(kDeleteQuestion);
  QVERIFY(sheet);
  QCOMPARE(sheet->informativeText(), QStringLiteral("This could take a while for large sites."));
  QVERIFY(hasButtons(*sheet, {kDeleteLink, kCancel}));
  QVERIFY(answer(sheet, kDeleteLink));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.onDisk(), expected);
  QCOMPARE(desk.document(), expected);
  QVERIFY(desk.othersAreUntouched());
  QVERIFY(desk.isClean());
  QVERIFY(desk.nothingIsSelected());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === 11")));
}

void HtmlLinksTest::deletesInAnotherLayout() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", QStringLiteral("Single Column, Pages Only")));
  QVERIFY(desk.shown());
  const std::string before = desk.document();
  QVERIFY(desk.clickLink(QStringLiteral("Page 2")));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.onDisk("sitemap1cpo.html"), without(before, kPage2));
  QVERIFY(desk.othersAreUntouched("sitemap1cpo.html"));
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(),
           QStringLiteral("Single Column, Pages Only"));
}

void HtmlLinksTest::cancelsADeletion() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kDeleteQuestion), kCancel));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk(), before);
  QCOMPARE(desk.text("titleEditInput"), kAskAboutLink);  // still selected
  QVERIFY(desk.click("deleteButton"));
  pressEscape(*message(kDeleteQuestion));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk(), before);
}

void HtmlLinksTest::asksBeforeDeletingFromAnUnsavedDocument_data() {
  QTest::addColumn<QString>("button");
  QTest::addColumn<bool>("styled");
  QTest::addColumn<bool>("deleted");
  QTest::newRow("saving") << kSaveChanges << true << true;
  QTest::newRow("discarding") << kDiscardChanges << false << true;
  QTest::newRow("cancelling") << kCancelDeletion << false << false;
}

void HtmlLinksTest::asksBeforeDeletingFromAnUnsavedDocument() {
  QFETCH(const QString, button);
  QFETCH(const bool, styled);
  QFETCH(const bool, deleted);
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.click("ptBoldButton"));
  const std::string unsaved = desk.document();
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.click("deleteButton"));
  QMessageBox* sheet = message(kSaveFirst);
  QVERIFY(sheet);
  QCOMPARE(
      sheet->informativeText(),
      QStringLiteral("Once you have deleted a link it cannot be restored without re-scanning the site."));
  QVERIFY(hasButtons(*sheet, {kSaveChanges, kCancelDeletion, kDiscardChanges}));
  QVERIFY(answer(sheet, button));
  if (!deleted) {
    QVERIFY(noSheetLeft());
    QCOMPARE(desk.onDisk(), before);
    QCOMPARE(desk.document(), unsaved);
    QVERIFY(desk.isDirty());
    return;
  }
  const std::string expected = without(styled ? unsaved : before, kLink2);
  // There is no other question: this was it.
  QVERIFY(comesTrue([&] { return desk.onDisk() == expected; }));
  QVERIFY(topSheet() == nullptr);
  QVERIFY(desk.shown());
  QCOMPARE(desk.document(), expected);
  QVERIFY(desk.isClean());
  QCOMPARE(desk.control<QAbstractButton>("ptBoldButton").isChecked(), !styled);
}

/// Between the answer and the deletion half a second goes by, in which the user is free.
void HtmlLinksTest::deletesNoOtherLinkThanTheOneAskedAbout() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.click("ptBoldButton"));
  const std::string unsaved = desk.document();
  QVERIFY(desk.clickLink(kAskAboutLink));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kSaveFirst), kSaveChanges));
  desk.inPage(QStringLiteral("document.links[7].click()"));
  QVERIFY(comesTrue([&] { return desk.onDisk() == without(unsaved, kLink2); }));
  // And when the document is no longer there, nothing happens to the one that is.
  QVERIFY(desk.shown());
  QVERIFY(desk.click("ptBoldButton"));
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

void HtmlLinksTest::rebuildsWithoutTheEmptyCell_data() {
  QTest::addColumn<QString>("layout");
  QTest::addColumn<QByteArray>("file");
  QTest::newRow("three columns") << QStringLiteral("Three Columns, Pages Only")
                                 << QByteArray("sitemap3cpo.html");
  QTest::newRow("two columns") << QStringLiteral("Two Columns, Pages Only") << QByteArray("sitemap2cpo.html");
}

void HtmlLinksTest::rebuildsWithoutTheEmptyCell() {
  QFETCH(const QString, layout);
  QFETCH(const QByteArray, file);
  HtmlDesk desk(samples::blocks(7));
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", layout));
  QVERIFY(desk.shown());
  QVERIFY(desk.click("ptBoldButton"));
  QVERIFY(desk.clickLink(QStringLiteral("Page 2")));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(message(kSaveFirst), kSaveChanges));
  const std::string name = file.toStdString();
  QVERIFY(comesTrue([&] { return desk.onDisk(name).find("Page 2") == std::string::npos; }));
  QVERIFY(desk.shown());
  // Six pages in full rows, the style kept, and every entry still there.
  QVERIFY(desk.inPageComesTrue(QStringLiteral(
      "document.querySelectorAll('td').length === 6 &&"
      "Array.from(document.querySelectorAll('td')).every(each => each.querySelectorAll('a').length === 1) &&"
      "document.body.innerText.replace(/\\s+/g, ' ').trim() === 'Page 1 Page 3 Page 4 Page 5 Page 6 Page "
      "7'")));
  QVERIFY(!html_editor::readStyle(desk.document(), html_editor::EntryClass::pageTitle).bold);
  QCOMPARE(desk.document(), desk.onDisk(name));
  QVERIFY(desk.isClean());
  QVERIFY(desk.othersAreUntouched(name));
  // What was rebuilt can be edited on.
  QVERIFY(desk.clickLink(QStringLiteral("Page 3")));
  QVERIFY(desk.type("titleEditInput", QStringLiteral("Third")));
  QVERIFY(desk.onDisk(name).find("<a href=\"http://a.test/3---LINKID:30---\">Third<!-- LINKID: 30 --></a>") !=
          std::string::npos);
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
