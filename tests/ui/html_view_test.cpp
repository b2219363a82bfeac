// The HTML sitemap viewer and style editor: opening, layouts, the browser, and what is kept of edits.
#include <QDesktopServices>
#include <QLabel>
#include <QTableView>
#include <QUrl>
#include <filesystem>

#include "html_editor/layouts.h"
#include "html_steps.h"
#include "platform/qt_text.h"

namespace window_tests {

namespace fs = std::filesystem;
using platform::toQString;

namespace {

const QString kSaveBeforeQuestion = QStringLiteral(
    "Changes have been made to this sitemap, would you like to save the changes you have made?");
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

}  // namespace

class HtmlViewTest : public QObject {
  Q_OBJECT

 private slots:
  void opensTheFirstDocument();
  void keepsItsWindow();
  void showsPagesWhereThereIsNoSitemap();
  void opensEveryLayout();
  void viewsInTheBrowser();
  void offersWhatACrashLeft();
  void movesWithTheTabKeyAsOneReads();
};

void HtmlViewTest::opensTheFirstDocument() {
  HtmlDesk desk;
  desk.open();
  QVERIFY(desk.select(kShop));
  for (const int view : {4, 5, 6, 7, 1}) desk.go(view);
  QVERIFY(desk.window().findChild<QWebEngineView*>() == nullptr);  // it costs half a second
  desk.go(2);
  QVERIFY(desk.shown());
  QCOMPARE(desk.document(), desk.onDisk());
  QVERIFY(desk.text("urlToLoad").startsWith(QLatin1String("file:///")));
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2 - Shop"));
  QVERIFY(desk.isClean() && desk.nothingIsSelected());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === 12")));
  QVERIFY(desk.webView().isVisible());
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

void HtmlViewTest::showsPagesWhereThereIsNoSitemap() {
  const std::string whole = samples::document(3, samples::blocks(6));
  const std::string opening = whole.substr(0, whole.find("<body>") + 6);
  struct Case {
    const char* name;
    std::string document;
    const char* shown;  // empty: the document
  };
  const Case cases[] = {
      {"never scanned", "", "No Sitemap Is Available"},
      {"a scan that was turned away", opening, "The Last Scan Did Not Finish"},
      {"no pages", opening + "</body></html>", "This Sitemap Is Empty"},
      {"too large", whole + std::string(50u << 20, ' '), "This Sitemap Is Too Large To Show"},
      {"a scan that was killed", whole.substr(0, whole.rfind("<div")), ""},
      {"whole", whole, ""},
  };
  HtmlDesk desk;
  desk.open();
  QVERIFY(desk.select(kShop));
  for (const Case& c : cases) {
    desk.writeFile("Shop", "sitemap3c.html", c.document);
    for (const int view : {2, 3}) {
      desk.go(1);
      desk.go(view);
      QVERIFY(desk.shown());
      const bool isDocument = *c.shown == '\0';
      const QString text = desk.inPage(QStringLiteral("document.body.innerText.trim()")).toString();
      QVERIFY2(text.startsWith(isDocument ? QStringLiteral("Page 1") : QLatin1String(c.shown)), c.name);
      for (const char* name : {"ptFontSize", "plUnderlineMatrix", "vibButton"})
        QVERIFY2(desk.enabled(name) == isDocument, c.name);
      QCOMPARE(desk.enabled("sitemapTypePopup"), !c.document.empty());
      QCOMPARE(desk.control<QLabel>("htmlNotice").isVisible(), c.name == cases[4].name);
      QVERIFY(desk.isClean());
    }
  }
  desk.control<QAction>("scanTBI").trigger();
  desk.control<QTableView>("siteListTable").clearSelection();
  desk.go(3);
  QVERIFY(desk.shown());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.body.innerText.includes('Please Select A Site')")));
}

void HtmlViewTest::opensEveryLayout() {
  HtmlDesk desk(samples::blocks(300));
  desk.openAt(2);
  for (const html_editor::LayoutItem& item : html_editor::sitemapTypeItems) {
    const sitemaps::Layout& layout = *html_editor::layoutOfEntry(item.representedObject);
    desk.inPage(QStringLiteral("scrollTo(0, 500)"));
    QVERIFY(desk.clickLink(QStringLiteral("Page 100")));
    QVERIFY(desk.choose("sitemapTypePopup", toQString(item.title)));
    QVERIFY(desk.shown());
    QCOMPARE(desk.document(), documentOf(layout, samples::blocks(300)));
    QVERIFY(desk.text("urlToLoad").endsWith(QLatin1Char('/') + toQString(layout.fileName)));
    QCOMPARE(desk.label("siteTypeLabel"), toQString(item.representedObject));
    QVERIFY(desk.isClean() && desk.nothingIsSelected());
    QVERIFY(desk.inPageComesTrue(QStringLiteral("scrollY === 0")));
  }
  // Where one is missing the others are on offer.
  fs::remove(desk.controls.siteFolder("Shop") / "sitemap2c.html");
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(desk.shown());
  QVERIFY(desk.isClean() && !desk.enabled("ptFontSize"));
  QVERIFY(desk.choose("sitemapTypePopup", kThreeColumns));
  QVERIFY(desk.shown());
  QCOMPARE(desk.document(), desk.onDisk());
}

void HtmlViewTest::viewsInTheBrowser() {
  const Opener opener;
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  const fs::path file = desk.controls.siteFolder("Shop") / "tmpMap.html";
  for (const QString& button : {kDiscardChanges, kSaveChanges}) {
    QVERIFY(desk.edit());
    QVERIFY(desk.click("vibButton"));
    QVERIFY(answer(message(kSaveBeforeQuestion), button));
    QVERIFY(desk.shown() && noSheetLeft());
    QCOMPARE(desk.document(), button == kSaveChanges ? edited(before) : before);
    QCOMPARE(desk.onDisk(), desk.document());
    QCOMPARE(opener.opened.size(), button == kSaveChanges ? 2 : 1);
  }
  QCOMPARE(opener.opened.last(), QUrl::fromLocalFile(toQString(file.native())));
  QVERIFY(desk.onDisk("tmpMap.html").find("font-style: italic") != std::string::npos);
  QVERIFY(desk.onDisk("tmpMap.html").find("---LINKID:10---") == std::string::npos);
  fs::remove(file);
  fs::create_directories(file / "in the way");
  QVERIFY(desk.click("vibButton"));
  QVERIFY(answer(sheetNamed({}), kOk));
  QCOMPARE(opener.opened.size(), 2);
}

void HtmlViewTest::offersWhatACrashLeft() {
  HtmlDesk desk;
  const auto copyIsKept = [&] {
    const fs::path copies = desk.reasons.state().ofSite("Shop");
    return fs::exists(copies) && !fs::is_empty(copies);
  };
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.edit());
  QVERIFY(comesTrue(copyIsKept));
  QVERIFY(desk.click("ptItalicButton"));  // back to what is on disk
  QVERIFY(!copyIsKept());
  for (const QString& button : {kDiscardChanges, kRestoreChanges}) {
    QVERIFY(desk.edit());
    QVERIFY(comesTrue(copyIsKept));
    desk.close();  // nobody is asked
    desk.openAt(2);
    QMessageBox* sheet = message(kKeptQuestion);
    QVERIFY(sheet);
    pressEscape(*sheet);  // is no answer
    QCOMPARE(desk.document(), before);
    QVERIFY(answer(message(kKeptQuestion), button));
    QVERIFY(desk.shown() && noSheetLeft());
    QCOMPARE(copyIsKept(), button == kRestoreChanges);  // until it is saved it may be lost again
  }
  QVERIFY(desk.isDirty());
  desk.go(2);  // saves
  QVERIFY(!copyIsKept());
  QCOMPARE(desk.onDisk(), edited(before));
}

void HtmlViewTest::movesWithTheTabKeyAsOneReads() {
  const QString style = QStringLiteral(
      "%1FontFace %1FontSize %1BoldButton %1ItalicButton %1ColourField "
      "%1Colourwell %1UnderlineOnHover ");
  const QString bar = QStringLiteral("sitemapTypePopup vibButton saveChangesButton ");
  const QString titles = style.arg(QLatin1String("pt"));
  const QString orders[] = {
      bar + QStringLiteral("titleEditInput linkEditInput deleteButton ") + titles,
      bar + titles + style.arg(QLatin1String("pl")),
  };
  HtmlDesk desk;
  desk.openAt(3);
  for (const int view : {2, 3}) {  // having been in both, since the controls move
    desk.go(view);
    QVERIFY(desk.shown());
    QVERIFY(desk.edit());
    if (view == 2) QVERIFY(desk.clickLink(QStringLiteral("Link 2")));
    QString visited;
    const QWidget* start = &desk.control<QWidget>("sitemapTypePopup");
    QVERIFY(comesTrue([&] { return start->isVisible(); }));  // controls that move come up a moment later
    const QWidget* each = start;
    do {
      const bool stops = each->isVisible() && each->isEnabled() && (each->focusPolicy() & Qt::TabFocus) != 0;
      const QString name = each->objectName() + QLatin1Char(' ');
      if (stops && !each->objectName().isEmpty() && orders[view - 2].contains(name)) visited += name;
      each = each->nextInFocusChain();
    } while (each != start);
    QCOMPARE(visited, orders[view - 2]);
    desk.click("ptItalicButton");
  }
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlViewTest>(argc, argv);
}

#include "html_view_test.moc"
