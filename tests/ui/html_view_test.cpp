// The HTML sitemap viewer and style editor: opening, layouts, the browser, and the style controls.
#include <QColorDialog>
#include <QRadioButton>
#include <filesystem>

#include "html_editor/style.h"
#include "html_editor/underline.h"
#include "html_steps.h"
#include "platform/qt_text.h"

namespace window_tests {

namespace fs = std::filesystem;
using html_editor::EntryClass;
using html_editor::Underline;
using samples::with;

class HtmlViewTest : public QObject {
  Q_OBJECT

 private slots:
  /// The window system is not to see another window when the web view comes: it would flicker, and could come
  /// up somewhere else and without the keyboard.
  void opensTheFirstDocumentInTheSameWindow() {
    HtmlDesk desk;
    desk.open();
    QVERIFY(desk.select(kShop));
    for (const int view : {4, 5, 6, 7, 1}) desk.go(view);
    QVERIFY(desk.window().findChild<QWebEngineView*>() == nullptr);  // it costs half a second
    const WId before = desk.window().winId();
    desk.go(2);
    QVERIFY(desk.shown());
    QCOMPARE(desk.window().winId(), before);
    QVERIFY(desk.window().isActiveWindow());
    QCOMPARE(desk.document(), desk.onDisk());
    QVERIFY(desk.isClean() && desk.nothingIsSelected());
    QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links.length === 12")));
    QVERIFY(desk.webView().isVisible());
  }

  void showsPagesWhereThereIsNoSitemap() {
    const std::string whole = samples::document(3, samples::blocks(2));
    struct Case {
      const char* name;
      std::string document;
      const char* shown;
      bool isDocument = false;
      std::uintmax_t bytes = 0;  // where it is larger than the text
    };
    const Case cases[] = {
        {"never scanned", "", "No Sitemap Is Available"},
        {"too large", whole, "This Sitemap Is Too Large To Show", false, (50u << 20) + 1},
        {"a scan that was killed", whole.substr(0, whole.rfind("<div")), "Page 1", true},
    };
    HtmlDesk desk;
    desk.open();
    QVERIFY(desk.select(kShop));
    for (const Case& c : cases) {
      desk.writeFile("Shop", "sitemap3c.html", c.document);
      if (c.bytes > 0) fs::resize_file(desk.controls.siteFolder("Shop") / "sitemap3c.html", c.bytes);
      desk.go(1);
      desk.go(2);
      QVERIFY(desk.shown());
      const QString text = desk.inPage(QStringLiteral("document.body.innerText.trim()")).toString();
      QVERIFY2(text.startsWith(QLatin1String(c.shown)), c.name);
      QVERIFY2(desk.areAll(c.isDocument, {"ptFontSize", "plUnderlineMatrix", "vibButton"}), c.name);
      QCOMPARE(desk.enabled("sitemapTypePopup"), !c.document.empty());  // another layout may be there
      QCOMPARE(desk.control<QLabel>("htmlNotice").isVisible(), c.isDocument);
      QVERIFY(desk.isClean());
    }
    desk.go(1);
    desk.control<QTableView>("siteListTable").clearSelection();
    desk.go(3);
    QVERIFY(desk.shown());
    QVERIFY(desk.inPageComesTrue(QStringLiteral("document.body.innerText.includes('Please Select A Site')")));
  }

  void opensAnotherLayout() {
    HtmlDesk desk(samples::blocks(100));
    desk.openAt(2);
    desk.inPage(QStringLiteral("scrollTo(0, 300)"));
    QVERIFY(desk.clickLink(QStringLiteral("Page 50")));
    QVERIFY(desk.choose("sitemapTypePopup", QStringLiteral("Single Column, Pages Only")));
    QVERIFY(desk.shown());
    QCOMPARE(desk.document(), desk.onDisk("sitemap1cpo.html"));
    QVERIFY(desk.isClean() && desk.nothingIsSelected());
    QVERIFY(desk.control<QMenu>("layoutMenu").actions().at(5)->isChecked());
    QVERIFY(desk.inPageComesTrue(QStringLiteral("scrollY === 0")));
    // Where one is missing the others are on offer.
    fs::remove(desk.controls.siteFolder("Shop") / "sitemap2c.html");
    QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
    QVERIFY(desk.shown() && !desk.enabled("ptFontSize"));
    QVERIFY(desk.choose("sitemapTypePopup", kThreeColumns));
    QCOMPARE(desk.document(), desk.onDisk());
  }

  void viewsInTheBrowser() {
    const Opener opener;
    HtmlDesk desk;
    desk.writeFile("Shop", "sitemap3c.html", with(desk.onDisk(), "<a href", "<a onclick=\"x()\" href"));
    desk.openAt(2);
    const QString scripts = QStringLiteral("This sitemap holds text that a browser may run as a program.");
    QVERIFY(desk.click("vibButton"));
    QVERIFY(answer(message(scripts), kCancel));
    QVERIFY(noSheetLeft() && opener.opened.isEmpty());
    QVERIFY(desk.click("vibButton"));
    QVERIFY(answer(message(scripts), QStringLiteral("View in Browser")));
    const fs::path file = desk.controls.siteFolder("Shop") / "tmpMap.html";
    QCOMPARE(opener.opened, QList<QUrl>{QUrl::fromLocalFile(platform::toQString(file.native()))});
    QVERIFY(desk.onDisk("tmpMap.html").find("---LINKID:10---") == std::string::npos);
    fs::remove(file);
    fs::create_directories(file / "in the way");
    QVERIFY(desk.click("vibButton"));
    QVERIFY(answer(sheetNamed({}), kOk));
    QCOMPARE(opener.opened.size(), 1);
  }

  void movesWithTheTabKeyAsOneReads() {
    const QString orders[] = {
        QStringLiteral("vibButton titleEditInput deleteButton ptFontFace ptColourField "),
        QStringLiteral("vibButton ptFontFace ptColourField plFontFace plColourField ")};
    HtmlDesk desk;
    desk.openAt(3);
    for (const int view : {2, 3}) {  // having been in both, since the controls move
      desk.go(view);
      const QWidget* start = &desk.control<QWidget>("sitemapTypePopup");
      QVERIFY(comesTrue([&] { return start->isVisible(); }));  // controls that move come up a moment later
      QString visited;
      for (const QWidget* each = start->nextInFocusChain(); each != start; each = each->nextInFocusChain()) {
        const QString name = each->objectName() + QLatin1Char(' ');
        if (each->isVisible() && name.size() > 1 && (orders[0] + orders[1]).contains(name)) visited += name;
      }
      QCOMPARE(visited, orders[view - 2]);
    }
  }

  /// However a control is changed, also by programs for users who cannot see it.
  void writesEveryProperty() {
    HtmlDesk desk;
    desk.openAt(3);
    for (const EntryClass entries : {EntryClass::pageTitle, EntryClass::pageLink}) {
      const bool title = entries == EntryClass::pageTitle;
      const auto name = [&](const char* rest) { return (title ? "pt" : "pl") + std::string(rest); };
      const auto style = [&] { return html_editor::readStyle(desk.document(), entries); };
      const bool wasBold = style().bold;
      QVERIFY(desk.choose(name("FontFace").c_str(), QStringLiteral("Courier New, Courier, mono")));
      QVERIFY(desk.choose(name("FontSize").c_str(), QStringLiteral("1.4em")));
      desk.control<QCheckBox>(name("BoldButton").c_str()).toggle();
      desk.control<QCheckBox>(name("ItalicButton").c_str()).toggle();
      QCOMPARE(style().family, "Courier New, Courier, mono");
      QCOMPARE(style().size, "1.4em");
      QVERIFY(style().italic && style().bold != wasBold);
      for (const auto& [button, mode] :
           {std::pair("UnderlineAll", Underline::all), std::pair("UnderlineNone", Underline::none),
            std::pair("UnderlineOnHover", Underline::onHover)}) {
        desk.control<QRadioButton>(name(button).c_str()).toggle();
        QVERIFY(html_editor::readUnderline(desk.document(), entries) == mode);
      }
      // The links', and then the titles' too.
      QCOMPARE(html_editor::readStyle(desk.document(), EntryClass::pageLink).italic, !title);
    }
    QVERIFY(
        desk.inPageComesTrue(QStringLiteral("getComputedStyle(document.links[1]).fontSize === '22.4px'")));
    QVERIFY(desk.isDirty());
  }

  /// Also one whose head is not ours: it is loaded anew with each edit, and keeps its place.
  void showsWhatTheDocumentTells() {
    HtmlDesk desk(samples::blocks(100));
    std::string document =
        with(desk.onDisk(), "font-weight: bold;\n\t\tfont-style: normal;\n\t\tcolor: #000000",
             "font-weight: 600;\n\t\tfont-style: italic;\n\t\tcolor: #12abEF");
    document = with(document, "font-size: 1.1em", "font-size: 77%");
    document = with(document, ".vskPageLink a:hover { text-decoration:underline }",
                    ".vskPageLink a:hover { text-decoration:none }");
    document = with(document, "<title>", "<!-- <style></style> --><style>p {}</style><title>");
    desk.writeFile("Shop", "sitemap3c.html", document);
    desk.openAt(2);
    QVERIFY(!desk.control<QCheckBox>("ptBoldButton").isChecked());
    QVERIFY(desk.control<QCheckBox>("ptItalicButton").isChecked());
    QCOMPARE(desk.control<QComboBox>("ptFontSize").placeholderText(), QStringLiteral("77%"));
    QCOMPARE(desk.text("ptColourField"), QStringLiteral("#12abEF"));
    QCOMPARE(desk.control<QPushButton>("ptColourwell").accessibleDescription(), QStringLiteral("#12ABEF"));
    QVERIFY(desk.control<QRadioButton>("plUnderlineNone").isChecked());
    QVERIFY(desk.isClean());
    desk.inPage(QStringLiteral("scrollTo(0, 300)"));
    QVERIFY(desk.clickLink(QStringLiteral("Link 50")));
    for (const char* size : {"0.8em", "0.9em", "1.4em"})
      QVERIFY(desk.choose("ptFontSize", QLatin1String(size)));
    QVERIFY(desk.shown());
    QVERIFY(desk.inPageComesTrue(
        QStringLiteral("getComputedStyle(document.links[0]).fontSize === '22.4px' && scrollY === 300")));
  }

  void readsColours() {
    HtmlDesk desk;
    desk.openAt(3);
    const auto colour = [&](EntryClass entries) {
      return html_editor::readStyle(desk.document(), entries).colour;
    };
    QVERIFY(desk.type("ptColourField", QStringLiteral("#ABC")));
    for (const QString& button : {kOk, QStringLiteral("Reset")}) {
      QVERIFY(
          answer(message(QStringLiteral("The colour much be 6 characters, (7 with begining #) please check "
                                        "the colour hex value you entered.")),
                 button));
    }
    QCOMPARE(desk.text("ptColourField"), QStringLiteral("#000000"));
    QVERIFY(desk.isClean() && noSheetLeft());
    // A colour typed for links goes into the rule of the titles.
    QVERIFY(desk.type("plColourField", QStringLiteral("00FF80")));
    QCOMPARE(desk.control<QPushButton>("plColourwell").accessibleDescription(), QStringLiteral("#00FF80"));
    QCOMPARE(colour(EntryClass::pageTitle), "#00FF80");
    QCOMPARE(colour(EntryClass::pageLink), "#0000FF");
    QVERIFY(desk.click("plColourwell"));
    auto* dialog = qobject_cast<QColorDialog*>(topSheet());
    QVERIFY(dialog);
    dialog->setCurrentColor(QColor(255, 127, 0));
    QVERIFY(answer(dialog, kOk));
    QCOMPARE(colour(EntryClass::pageLink), "#FF7F00");
    // Going through a field is no edit.
    const std::string before = desk.document();
    desk.field("plColourField").setFocus();
    QTest::keyClick(&desk.field("plColourField"), Qt::Key_Return);
    QCOMPARE(desk.document(), before);
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlViewTest>(argc, argv);
}

#include "html_view_test.moc"
