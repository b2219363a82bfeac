// The HTML sitemap viewer and style editor: opening, layouts, leaving, the browser, and what is kept of
// edits.
#include <QDesktopServices>
#include <QDockWidget>
#include <QLabel>
#include <QTabWidget>
#include <QUrl>
#include <filesystem>

#include "html_editor/fixed_pages.h"
#include "html_editor/layouts.h"
#include "html_steps.h"
#include "platform/qt_text.h"
#include "scan_steps.h"
#include "store/site_record.h"

namespace window_tests {

namespace fs = std::filesystem;
using platform::toQString;
using samples::with;

namespace {

const QString kLayoutQuestion = QStringLiteral(
    "Changes have been made to the look of this sitemap, would you like to save these changes?");
const QString kSaveBeforeQuestion = QStringLiteral(
    "Changes have been made to this sitemap, would you like to save the changes you have made?");
const QString kScriptQuestion =
    QStringLiteral("This sitemap holds text that a browser may run as a program.");
const QString kTwoColumns = QStringLiteral("Two Columns, All Links");
const QString kThreeColumns = QStringLiteral("Three Columns, All Links");

constexpr const char* kEditControls[] = {
    "ptFontSize",    "ptColourwell",      "ptColourField",   "ptFontFace",     "ptUnderlineMatrix",
    "ptBoldButton",  "ptItalicButton",    "plFontSize",      "plColourwell",   "plColourField",
    "plFontFace",    "plUnderlineMatrix", "plBoldButton",    "plItalicButton", "saveChangesButton",
    "siteTypeLabel", "vibButton",         "sitemapTypePopup"};

/// Notes what would be opened in other programs.
class Opener : public QObject {
  Q_OBJECT

 public:
  Opener() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
  ~Opener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

  QList<QUrl> opened;

 public slots:
  void open(const QUrl& url) { opened.append(url); }
};

bool edit(const HtmlDesk& desk) {
  return desk.click("ptItalicButton") && desk.isDirty();
}

std::string edited(const std::string& document) {
  return with(document, "font-style: normal;\n\t\tcolor: #000000", "font-style: italic;\n\t\tcolor: #000000");
}

}  // namespace

class HtmlViewTest : public QObject {
  Q_OBJECT

 private slots:
  void opensTheFirstDocument();
  void startsNoEngineBeforeItIsNeeded();
  void keepsItsWindow();
  void opensWhatAScanWrote();
  void showsPagesWhereThereIsNoSitemap_data();
  void showsPagesWhereThereIsNoSitemap();
  void opensEveryLayout_data();
  void opensEveryLayout();
  void asksBeforeAnotherLayout_data();
  void asksBeforeAnotherLayout();
  void offersOtherLayoutsWhenOneIsMissing();
  void asksWhenLeft_data();
  void asksWhenLeft();
  void takesTheDocumentToTheStyleEditor_data();
  void takesTheDocumentToTheStyleEditor();
  void loadsAnewForTheViewerOnceAnswered_data();
  void loadsAnewForTheViewerOnceAnswered();
  void savesWhenAskedForAgain();
  void asksBeforeTheWindowCloses_data();
  void asksBeforeTheWindowCloses();
  void asksBeforeAScan_data();
  void asksBeforeAScan();
  void followsTheSiteInHand();
  void viewsInTheBrowser();
  void asksBeforeViewing_data();
  void asksBeforeViewing();
  void warnsOfScriptsOnce();
  void tellsWhenThePreviewCannotBeWritten();
  void offersWhatACrashLeft_data();
  void offersWhatACrashLeft();
  void forgetsTheCopyOnceSaved();
  void scrollsToTheTopWhenOpened();
  void movesWithTheTabKeyAsOneReads_data();
  void movesWithTheTabKeyAsOneReads();
  void saysWhyControlsAreDisabled();
};

void HtmlViewTest::opensTheFirstDocument() {
  HtmlDesk desk;
  desk.openAt(2);
  const fs::path file = desk.controls.siteFolder("Shop") / "sitemap3c.html";
  QCOMPARE(desk.document(), desk.onDisk());
  QCOMPARE(desk.text("urlToLoad"), toQString("file://" + file.native()));
  QCOMPARE(desk.window().state().qzvskUTLLoc, file.native());
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kThreeColumns);
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2 - Shop"));
  QVERIFY(desk.isClean());
  QVERIFY(desk.nothingIsSelected());
  for (const char* name : kEditControls) {
    QVERIFY2(desk.enabled(name) == (QByteArray(name) != "saveChangesButton"), name);
  }
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === 12")));
  QVERIFY(desk.webView().isVisible());
}

void HtmlViewTest::startsNoEngineBeforeItIsNeeded() {
  HtmlDesk desk;
  desk.open();
  QVERIFY(desk.select(kShop));
  for (const int view : {4, 5, 6, 7, 1}) desk.go(view);
  QVERIFY(desk.window().findChild<QWebEngineView*>() == nullptr);
}

/// The window system is not to see another window when the web view comes: it would flicker, and could come
/// up somewhere else and without the keyboard.
void HtmlViewTest::keepsItsWindow() {
  HtmlDesk desk;
  desk.open();
  QVERIFY(desk.select(kShop));
  const WId before = desk.window().winId();
  desk.go(2);
  QVERIFY(desk.shown());
  QCOMPARE(desk.window().winId(), before);
  QVERIFY(desk.window().isActiveWindow());
}

void HtmlViewTest::opensWhatAScanWrote() {
  const support::SiteServer site(smallSite());
  Desk plain;
  openWithShop(plain, site.url());
  QVERIFY(scan(plain));
  plain.control<QAction>("htmlTBI").trigger();
  QVERIFY(comesTrue([&] { return plain.control<QWidget>("sitemapBusy").isHidden(); }));
  auto& view = plain.control<QWebEngineView>("scanWebView");
  QVERIFY(inPage(view, QStringLiteral("document.links[0].getAttribute('href')"))
              .toString()
              .startsWith(toQString(site.url() + "---LINKID:0---")));
  QCOMPARE(plain.window().state().qzvskHTMLString, plain.file("Shop", "sitemap3c.html"));
}

void HtmlViewTest::showsPagesWhereThereIsNoSitemap_data() {
  QTest::addColumn<bool>("select");
  QTest::addColumn<int>("view");
  QTest::addColumn<QString>("text");
  const QString never =
      QStringLiteral("No Sitemap Is Available\nPlease scan this website to create the html sitemap.");
  QTest::newRow("never scanned") << true << 2 << never;
  QTest::newRow("never scanned, style editor") << true << 3 << never;
  QTest::newRow("no site, style editor")
      << false << 3 << QStringLiteral("Please Select A Site To View It's Sitemap");
}

void HtmlViewTest::showsPagesWhereThereIsNoSitemap() {
  QFETCH(const bool, select);
  QFETCH(const int, view);
  QFETCH(const QString, text);
  HtmlDesk desk(kNeverScanned);
  desk.writeFile("Shop", "sitemap3c.html", "");  // as good as none
  desk.open();
  if (select) QVERIFY(desk.select(kShop));
  desk.window().state().qzvskHTMLString = "of another site";
  desk.go(view);
  QVERIFY(desk.shown());
  QCOMPARE(desk.inPage(QStringLiteral("document.body.innerText.trim()")).toString(), text);
  for (const char* name : kEditControls) QVERIFY2(!desk.enabled(name), name);
  QVERIFY(desk.nothingIsSelected());
  QVERIFY(desk.isClean());
  QCOMPARE(desk.document(), "of another site");
  QVERIFY(topSheet() == nullptr);
  // After a scan, it is there.
  desk.writeDocuments(samples::blocks(1));
  desk.go(1);
  QVERIFY(desk.select(kShop));
  desk.go(view);
  QVERIFY(desk.shown());
  QVERIFY(desk.enabled("ptFontSize"));
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === 2")));
}

void HtmlViewTest::opensEveryLayout_data() {
  QTest::addColumn<QString>("title");
  QTest::addColumn<QString>("label");
  QTest::addColumn<int>("layout");
  for (const html_editor::LayoutItem& item : html_editor::sitemapTypeItems) {
    const auto* layout = html_editor::layoutOfTitle(item.title);
    QTest::newRow(std::string(item.title).c_str())
        << toQString(item.title) << toQString(item.representedObject)
        << static_cast<int>(layout - sitemaps::kLayouts.data());
  }
}

void HtmlViewTest::opensEveryLayout() {
  QFETCH(const QString, title);
  QFETCH(const QString, label);
  QFETCH(const int, layout);
  const sitemaps::Layout& expected = sitemaps::kLayouts[static_cast<std::size_t>(layout)];
  HtmlDesk desk(samples::blocks(300));
  desk.openAt(2);
  desk.inPage(QStringLiteral("scrollTo(0, 500)"));
  QVERIFY(desk.clickLink(QStringLiteral("Link 100")));
  QVERIFY(desk.choose("sitemapTypePopup", title));
  QVERIFY(desk.shown());
  QCOMPARE(desk.document(), documentOf(expected, samples::blocks(300)));
  QVERIFY(desk.text("urlToLoad").endsWith(QLatin1Char('/') + toQString(expected.fileName)));
  QVERIFY(desk.window().state().qzvskUTLLoc.ends_with("/" + std::string(expected.fileName)));
  QCOMPARE(desk.label("siteTypeLabel"), label);
  QVERIFY(!desk.control<QLabel>("siteTypeLabel").isVisible());
  QVERIFY(desk.isClean());
  QVERIFY(desk.nothingIsSelected());
  const int links = expected.listing == sitemaps::Listing::allLinks ? 600 : 300;
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === %1 && scrollY === 0").arg(links)));
  // A rebuild goes to the file that the title names: the same one.
  QVERIFY(desk.onDisk() == documentOf(sitemaps::kLayouts[5], samples::blocks(300)));
}

void HtmlViewTest::asksBeforeAnotherLayout_data() {
  QTest::addColumn<bool>("save");
  QTest::newRow("saving") << true;
  QTest::newRow("discarding") << false;
}

void HtmlViewTest::asksBeforeAnotherLayout() {
  QFETCH(const bool, save);
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.onDisk();
  QVERIFY(edit(desk));
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QMessageBox* sheet = message(kLayoutQuestion);
  QVERIFY(sheet);
  QVERIFY(hasButtons(*sheet, {kSaveChanges, kDiscard}));
  pressEscape(*sheet);  // is no answer
  QVERIFY(answer(message(kLayoutQuestion), save ? kSaveChanges : kDiscard));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), desk.onDisk("sitemap2c.html"));
  QVERIFY(desk.isClean());
  QCOMPARE(desk.onDisk(), save ? edited(before) : before);
  QVERIFY(desk.othersAreUntouched());
}

void HtmlViewTest::offersOtherLayoutsWhenOneIsMissing() {
  HtmlDesk desk;
  fs::remove(desk.controls.siteFolder("Shop") / "sitemap2c.html");
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(desk.shown());
  QVERIFY(
      desk.inPageComesTrue(QStringLiteral("document.body.innerText.includes('No Sitemap Is Available')")));
  for (const char* name : kEditControls) {
    QVERIFY2(desk.enabled(name) == (QByteArray(name) == "sitemapTypePopup"), name);
  }
  QVERIFY(desk.isClean());
  QVERIFY(desk.choose("sitemapTypePopup", kThreeColumns));
  QVERIFY(desk.shown());
  QCOMPARE(desk.document(), desk.onDisk());
  QVERIFY(desk.enabled("ptFontSize"));
  QVERIFY(!fs::exists(desk.controls.siteFolder("Shop") / "sitemap2c.html"));
}

void HtmlViewTest::asksWhenLeft_data() {
  QTest::addColumn<int>("view");
  QTest::addColumn<bool>("save");
  for (const int view : {1, 4, 5, 6}) {
    QTest::addRow("saving, to view %d", view) << view << true;
    QTest::addRow("discarding, to view %d", view) << view << false;
  }
}

void HtmlViewTest::asksWhenLeft() {
  QFETCH(const int, view);
  QFETCH(const bool, save);
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.onDisk();
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(edit(desk));
  desk.go(view);
  // The view is gone to while the question is up.
  QCOMPARE(desk.window().views().returnCurrentView(), view);
  QMessageBox* sheet = message(kLeaveQuestion);
  QVERIFY(sheet);
  QVERIFY(hasButtons(*sheet, {kSaveChanges, kDiscard}));
  pressEscape(*sheet);
  QVERIFY(answer(message(kLeaveQuestion), save ? kSaveChanges : kDiscard));
  QVERIFY(noSheetLeft());
  QVERIFY(!desk.window().state().qzvskNeedsSave);
  const std::string two = documentOf(sitemaps::kLayouts[3], samples::blocks(6));
  QCOMPARE(desk.onDisk("sitemap2c.html"), save ? edited(two) : two);
  QCOMPARE(desk.document(), desk.onDisk("sitemap2c.html"));
  QVERIFY(desk.othersAreUntouched("sitemap2c.html"));
  desk.go(2);
  QVERIFY(desk.shown());
  QCOMPARE(desk.document(), before);  // the first document again, whatever was shown
  QVERIFY(desk.isClean());
}

void HtmlViewTest::takesTheDocumentToTheStyleEditor_data() {
  QTest::addColumn<bool>("save");
  QTest::newRow("saving") << true;
  QTest::newRow("discarding") << false;
}

void HtmlViewTest::takesTheDocumentToTheStyleEditor() {
  QFETCH(const bool, save);
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(desk.shown());
  const std::string before = desk.document();
  desk.go(3);
  QCOMPARE(desk.document(), before);
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kTwoColumns);
  QVERIFY(comesTrue([&] {
    return desk.webView().isVisible() && desk.control<QWidget>("ptTabView").isVisible() &&
           desk.control<QWidget>("plTabView").isVisible();
  }));
  desk.go(2);
  QVERIFY(desk.shown());
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(edit(desk));
  desk.go(3);
  QVERIFY(answer(message(kLeaveQuestion), save ? kSaveChanges : kDiscard));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), save ? edited(before) : before);
  QCOMPARE(desk.onDisk("sitemap2c.html"), desk.document());
  QVERIFY(desk.isClean());
  QCOMPARE(desk.control<QAbstractButton>("ptItalicButton").isChecked(), save);
  QVERIFY(desk.inPageComesTrue(
      QStringLiteral(
          "(getComputedStyle(document.querySelector('.vskPageTitle a')).fontStyle === 'italic') === ") +
      (save ? QStringLiteral("true") : QStringLiteral("false"))));
  // And what is edited now is this one.
  QVERIFY(desk.click("plItalicButton"));
  QVERIFY(desk.isDirty());
}

void HtmlViewTest::loadsAnewForTheViewerOnceAnswered_data() {
  QTest::addColumn<bool>("save");
  QTest::newRow("saving") << true;
  QTest::newRow("discarding") << false;
}

void HtmlViewTest::loadsAnewForTheViewerOnceAnswered() {
  QFETCH(const bool, save);
  HtmlDesk desk;
  desk.openAt(3);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(edit(desk));
  const std::string unsaved = desk.document();
  desk.go(2);
  QMessageBox* sheet = message(kLeaveQuestion);
  QVERIFY(sheet);
  QCOMPARE(desk.document(), unsaved);  // which is what an answer saves
  QVERIFY(answer(sheet, save ? kSaveChanges : kDiscard));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.onDisk("sitemap2c.html") == unsaved, save);
  QCOMPARE(desk.document(), desk.onDisk("sitemap3c.html"));
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kThreeColumns);
  QVERIFY(desk.isClean());
  QVERIFY(desk.control<QTabWidget>("styleTabs").count() == 2 &&
          desk.control<QWidget>("ptTabView").isVisible());
}

void HtmlViewTest::savesWhenAskedForAgain() {
  for (const int view : {2, 3}) {
    HtmlDesk desk;
    desk.openAt(view);
    const std::string before = desk.onDisk();
    if (view == 2) QVERIFY(desk.clickLink(QStringLiteral("Link 2")));
    QVERIFY(edit(desk));
    desk.go(view);
    QVERIFY(topSheet() == nullptr);
    QCOMPARE(desk.onDisk(), edited(before));
    QCOMPARE(desk.document(), desk.onDisk());
    QVERIFY(desk.isClean());
    QVERIFY(desk.nothingIsSelected());
    QVERIFY(desk.othersAreUntouched());
  }
}

void HtmlViewTest::asksBeforeTheWindowCloses_data() {
  QTest::addColumn<int>("from");
  QTest::addColumn<bool>("save");
  QTest::newRow("saving") << 2 << true;
  QTest::newRow("discarding") << 2 << false;
  QTest::newRow("from the style editor") << 3 << true;
  QTest::newRow("from the broken pages, which ask nothing") << 7 << false;
}

void HtmlViewTest::asksBeforeTheWindowCloses() {
  QFETCH(const int, from);
  QFETCH(const bool, save);
  HtmlDesk desk;
  desk.openAt(from == 3 ? 3 : 2);
  const std::string before = desk.onDisk();
  QVERIFY(edit(desk));
  if (from == 7) desk.go(7);
  desk.window().close();
  QVERIFY(desk.window().isVisible());
  QVERIFY(answer(message(kLeaveQuestion), save ? kSaveChanges : kDiscard));
  QVERIFY(comesTrue([&] { return !desk.window().isVisible(); }));
  QCOMPARE(desk.onDisk(), save ? edited(before) : before);
}

void HtmlViewTest::asksBeforeAScan_data() {
  QTest::addColumn<bool>("save");
  QTest::newRow("saving") << true;
  QTest::newRow("discarding") << false;
}

/// The menu reaches the site from here too. A scan writes the document anew: nothing may be left of the old
/// one that a later save would put in its place.
void HtmlViewTest::asksBeforeAScan() {
  QFETCH(const bool, save);
  const support::SiteServer site(smallSite());
  HtmlDesk desk;
  desk.writeFile("Shop", "Shop.qzVSK", store::newSiteRecord("Shop", site.url()));
  desk.openAt(2);
  QVERIFY(edit(desk));
  desk.control<QAction>("scanMI").trigger();
  QVERIFY(site.requests().empty());
  QVERIFY(answer(message(kLeaveQuestion), save ? kSaveChanges : kDiscard));
  QVERIFY(comesTrue([&] { return !site.requests().empty(); }));
  QVERIFY(scanHasEnded(desk) && desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), desk.onDisk());
  QVERIFY(desk.document().find(site.url()) != std::string::npos);
  QVERIFY(desk.isClean());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.body.innerText.includes('Start')")));
}

void HtmlViewTest::followsTheSiteInHand() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(edit(desk));
  desk.control<QAction>("editMI").trigger();
  QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
  QVERIFY(comesTrue([] { return topSheet() != nullptr; }));
  pressEscape(*topSheet());
  QVERIFY(noSheetLeft());
  // The editor leaves no site in hand.
  QVERIFY(desk.window().state().qzvskCurSite.empty());
  QVERIFY(desk.shown());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.body.innerText.includes('Please Select A Site')")));
  QVERIFY(!desk.enabled("ptFontSize"));
}

void HtmlViewTest::viewsInTheBrowser() {
  const Opener opener;
  HtmlDesk desk({{samples::page(0, "http://a.test/", "Tom &amp; Jerry"),
                  samples::link(1, "http://a.test/b", "B"), samples::link(77, "http://a.test/c", "C")}});
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.click("vibButton"));
  const fs::path file = desk.controls.siteFolder("Shop") / "tmpMap.html";
  QCOMPARE(opener.opened, QList<QUrl>{QUrl::fromLocalFile(toQString(file.native()))});
  std::string expected = with(before, "---LINKID:0---", "");
  expected = with(expected, "---LINKID:1---", "");
  QCOMPARE(desk.onDisk("tmpMap.html"), expected);  // 77 is above the number of links
  QCOMPARE(desk.document(), before);
  QCOMPARE(desk.onDisk(), before);
}

void HtmlViewTest::asksBeforeViewing_data() {
  QTest::addColumn<bool>("save");
  QTest::newRow("saving") << true;
  QTest::newRow("discarding") << false;
}

void HtmlViewTest::asksBeforeViewing() {
  QFETCH(const bool, save);
  const Opener opener;
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(edit(desk));
  QVERIFY(desk.click("vibButton"));
  QMessageBox* sheet = message(kSaveBeforeQuestion);
  QVERIFY(sheet);
  QVERIFY(hasButtons(*sheet, {kSaveChanges, kDiscardChanges}));
  QVERIFY(opener.opened.isEmpty());
  QVERIFY(answer(sheet, save ? kSaveChanges : kDiscardChanges));
  QVERIFY(comesTrue([&] { return !opener.opened.isEmpty(); }));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), save ? edited(before) : before);
  QCOMPARE(desk.onDisk(), desk.document());
  QVERIFY(desk.isClean());
  QCOMPARE(desk.control<QAbstractButton>("ptItalicButton").isChecked(), save);
  QCOMPARE(desk.onDisk("tmpMap.html").find("font-style: italic") != std::string::npos, save);
}

void HtmlViewTest::warnsOfScriptsOnce() {
  const Opener opener;
  HtmlDesk desk({{samples::page(0, "http://a.test/", "<img src=x onerror=alert(1)>")}});
  desk.openAt(2);
  QVERIFY(desk.click("vibButton"));
  QMessageBox* sheet = message(kScriptQuestion);
  QVERIFY(sheet);
  QVERIFY(answer(sheet, kCancel));
  QVERIFY(noSheetLeft());
  QVERIFY(opener.opened.isEmpty());
  QCOMPARE(desk.onDisk("tmpMap.html"), "(missing)");
  QVERIFY(desk.click("vibButton"));
  QVERIFY(answer(message(kScriptQuestion), QStringLiteral("View in Browser")));
  QVERIFY(noSheetLeft());
  QCOMPARE(opener.opened.size(), 1);
  QVERIFY(desk.click("vibButton"));
  QCOMPARE(opener.opened.size(), 2);
  // Another document is another question.
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(desk.click("vibButton"));
  QVERIFY(answer(message(kScriptQuestion), QStringLiteral("View in Browser")));
  QVERIFY(noSheetLeft());
  QCOMPARE(opener.opened.size(), 3);
}

void HtmlViewTest::tellsWhenThePreviewCannotBeWritten() {
  const Opener opener;
  HtmlDesk desk;
  fs::create_directories(desk.controls.siteFolder("Shop") / "tmpMap.html" / "in the way");
  desk.openAt(2);
  QVERIFY(desk.click("vibButton"));
  auto* sheet = qobject_cast<QMessageBox*>(topSheet());
  QVERIFY(sheet && sheet->text().startsWith(QLatin1String("Could not write the copy for the browser")));
  QVERIFY(answer(sheet, kOk));
  QVERIFY(opener.opened.isEmpty());
}

void HtmlViewTest::offersWhatACrashLeft_data() {
  QTest::addColumn<bool>("restore");
  QTest::newRow("restored") << true;
  QTest::newRow("discarded") << false;
}

void HtmlViewTest::offersWhatACrashLeft() {
  QFETCH(const bool, restore);
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(edit(desk));
  const fs::path copies = desk.reasons.state().ofSite("Shop");
  QVERIFY(comesTrue([&] { return fs::exists(copies) && !fs::is_empty(copies); }));
  desk.close();  // nobody is asked
  desk.openAt(2);
  QMessageBox* sheet = message(kKeptQuestion);
  QVERIFY(sheet);
  QVERIFY(hasButtons(*sheet, {kRestoreChanges, kDiscardChanges}));
  QCOMPARE(desk.document(), before);
  pressEscape(*sheet);
  QVERIFY(answer(message(kKeptQuestion), restore ? kRestoreChanges : kDiscardChanges));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), restore ? edited(before) : before);
  QCOMPARE(desk.onDisk(), before);
  QVERIFY(restore ? desk.isDirty() : desk.isClean());
  QCOMPARE(desk.control<QAbstractButton>("ptItalicButton").isChecked(), restore);
  QCOMPARE(fs::is_empty(copies), !restore);  // until it is saved it may be lost again
  if (!restore) return;
  desk.go(1);
  QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
  QVERIFY(noSheetLeft());
  QVERIFY(fs::is_empty(copies));
  QCOMPARE(desk.onDisk(), edited(before));
}

void HtmlViewTest::forgetsTheCopyOnceSaved() {
  HtmlDesk desk;
  desk.openAt(2);
  const fs::path copies = desk.reasons.state().ofSite("Shop");
  const auto copyIsKept = [&] { return fs::exists(copies) && !fs::is_empty(copies); };
  QVERIFY(edit(desk));
  QVERIFY(comesTrue(copyIsKept));
  QVERIFY(desk.click("ptItalicButton"));  // back to what is on disk
  QVERIFY(!copyIsKept());
  QVERIFY(edit(desk));
  QVERIFY(comesTrue(copyIsKept));
  desk.go(2);  // saves
  QVERIFY(!copyIsKept());
  QVERIFY(desk.click("ptItalicButton"));
  QVERIFY(comesTrue(copyIsKept));
  desk.go(6);
  QVERIFY(answer(message(kLeaveQuestion), kDiscard));
  QVERIFY(noSheetLeft());
  QVERIFY(!copyIsKept());
}

void HtmlViewTest::scrollsToTheTopWhenOpened() {
  HtmlDesk desk(samples::blocks(300));
  desk.openAt(2);
  desk.inPage(QStringLiteral("scrollTo(0, 500)"));
  QVERIFY(desk.clickLink(QStringLiteral("Link 100")));
  desk.go(2);
  QVERIFY(desk.inPageComesTrue(QStringLiteral("scrollY === 0")));
  desk.inPage(QStringLiteral("scrollTo(0, 500)"));
  QVERIFY(desk.clickLink(QStringLiteral("Link 100")));
  desk.go(6);
  desk.go(2);
  QVERIFY(desk.shown());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("scrollY === 0")));
}

void HtmlViewTest::movesWithTheTabKeyAsOneReads_data() {
  QTest::addColumn<int>("view");
  QTest::addColumn<QStringList>("order");
  const QStringList titles = {QStringLiteral("ptFontFace"),        QStringLiteral("ptFontSize"),
                              QStringLiteral("ptBoldButton"),      QStringLiteral("ptItalicButton"),
                              QStringLiteral("ptColourField"),     QStringLiteral("ptColourwell"),
                              QStringLiteral("ptUnderlineOnHover")};
  QStringList links = titles;
  for (QString& each : links) each.replace(0, 2, QStringLiteral("pl"));
  const QStringList bar = {QStringLiteral("sitemapTypePopup"), QStringLiteral("vibButton"),
                           QStringLiteral("saveChangesButton")};
  QTest::newRow("viewer") << 2
                          << bar +
                                 QStringList{QStringLiteral("titleEditInput"),
                                             QStringLiteral("linkEditInput"),
                                             QStringLiteral("deleteButton")} +
                                 titles + QStringList{QStringLiteral("urlToLoad")};
  QTest::newRow("style editor") << 3 << bar + titles + links;
}

void HtmlViewTest::movesWithTheTabKeyAsOneReads() {
  QFETCH(const int, view);
  QFETCH(const QStringList, order);
  HtmlDesk desk;
  // Having been in both, since the controls move.
  desk.openAt(5 - view);
  desk.go(view);
  QVERIFY(desk.shown());
  QVERIFY(edit(desk));
  if (view == 2) QVERIFY(desk.clickLink(QStringLiteral("Link 2")));
  QVERIFY(comesTrue([&] { return desk.webView().isVisible(); }));
  QStringList visited;
  const QWidget* start = &desk.control<QWidget>("sitemapTypePopup");
  const QWidget* each = start;
  do {
    const bool stops = each->isVisible() && each->isEnabled() && (each->focusPolicy() & Qt::TabFocus) != 0;
    if (stops && order.contains(each->objectName())) visited.append(each->objectName());
    each = each->nextInFocusChain();
  } while (each != start);
  QCOMPARE(visited, order);
}

void HtmlViewTest::saysWhyControlsAreDisabled() {
  HtmlDesk desk(kNeverScanned);
  desk.openAt(2);
  for (const char* name : kEditControls) QVERIFY2(!desk.control<QWidget>(name).toolTip().isEmpty(), name);
  const QString why = desk.control<QWidget>("vibButton").toolTip();
  QCOMPARE(desk.control<QWidget>("ptFontSize").toolTip(), why);
  desk.writeDocuments(samples::blocks(1));
  desk.go(1);
  desk.go(2);
  QVERIFY(desk.shown());
  QVERIFY(desk.control<QWidget>("vibButton").toolTip() != why);
  const QString saved = desk.control<QWidget>("saveChangesButton").toolTip();
  QVERIFY(!saved.isEmpty() && saved != why);
  QVERIFY(desk.click("ptItalicButton"));
  QVERIFY(desk.control<QWidget>("saveChangesButton").toolTip() != saved);
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlViewTest>(argc, argv);
}

#include "html_view_test.moc"
