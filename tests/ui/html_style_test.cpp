// The style controls of the HTML sitemap: what they show, and what they make of the document.
#include <QCheckBox>
#include <QColorDialog>
#include <QRadioButton>

#include "html_editor/style.h"
#include "html_editor/underline.h"
#include "html_steps.h"

namespace window_tests {

using html_editor::EntryClass;
using html_editor::Underline;
using samples::with;

namespace {

const QString kHexComplaint = QStringLiteral(
    "The colour much be 6 characters, (7 with begining #) please check the colour hex value you entered.");

}  // namespace

class HtmlStyleTest : public QObject {
  Q_OBJECT

 private slots:
  void writesEveryProperty();
  void showsWhatTheDocumentTells();
  void readsColours();
  void loadsForeignHeadsAnew();
};

/// However a control is changed, also by programs for users who cannot see it.
void HtmlStyleTest::writesEveryProperty() {
  HtmlDesk desk;
  desk.openAt(3);
  for (const EntryClass entries : {EntryClass::pageTitle, EntryClass::pageLink}) {
    const bool title = entries == EntryClass::pageTitle;
    const auto name = [&](const char* rest) { return (title ? "pt" : "pl") + std::string(rest); };
    const auto style = [&] { return html_editor::readStyle(desk.document(), entries); };
    const auto other = [&] {
      return html_editor::readStyle(desk.document(), title ? EntryClass::pageLink : EntryClass::pageTitle);
    };
    const auto before = other();
    QVERIFY(desk.choose(name("FontFace").c_str(), QStringLiteral("Courier New, Courier, mono")));
    QCOMPARE(style().family, "Courier New, Courier, mono");
    QVERIFY(desk.choose(name("FontSize").c_str(), QStringLiteral("1.4em")));
    QCOMPARE(style().size, "1.4em");
    for (int i = 0; i < 2; ++i) {
      const bool was = style().bold;
      desk.control<QCheckBox>(name("BoldButton").c_str()).toggle();
      QCOMPARE(style().bold, !was);
    }
    desk.control<QCheckBox>(name("ItalicButton").c_str()).toggle();
    QVERIFY(style().italic);
    for (const auto& [button, mode] :
         {std::pair("UnderlineAll", Underline::all), std::pair("UnderlineNone", Underline::none),
          std::pair("UnderlineOnHover", Underline::onHover)}) {
      desk.control<QRadioButton>(name(button).c_str()).toggle();
      QVERIFY(html_editor::readUnderline(desk.document(), entries) == mode);
    }
    const auto after = other();
    QVERIFY(after.family == before.family && after.size == before.size && after.italic == before.italic);
  }
  QVERIFY(
      desk.inPageComesTrue(QStringLiteral("{ const style = getComputedStyle(document.links[1]);"
                                          "style.fontSize + style.fontStyle === '22.4pxitalic' }")));
  QVERIFY(desk.isDirty());
  desk.control<QCheckBox>("ptItalicButton").toggle();
  desk.control<QCheckBox>("plItalicButton").toggle();
  for (const char* popup : {"ptFontFace", "plFontFace"})
    QVERIFY(desk.choose(popup, QStringLiteral("Times New Roman, Times, serif")));
  QVERIFY(desk.choose("ptFontSize", QStringLiteral("1.1em")));
  QVERIFY(desk.choose("plFontSize", QStringLiteral("1em")));
  QVERIFY(desk.isClean());  // back to what is on disk
}

void HtmlStyleTest::showsWhatTheDocumentTells() {
  HtmlDesk desk;
  std::string document =
      with(desk.onDisk(), "font-weight: bold;\n\t\tfont-style: normal;\n\t\tcolor: #000000",
           "font-weight: 600;\n\t\tfont-style: italic;\n\t\tcolor: #12abEF");
  document = with(document, "font-size: 1.1em", "font-size: 77%");
  document = with(document, ".vskPageLink a:hover { text-decoration:underline }",
                  ".vskPageLink a:hover { text-decoration:none }");
  desk.writeFile("Shop", "sitemap3c.html", document);
  desk.openAt(2);
  QVERIFY(!desk.control<QCheckBox>("ptBoldButton").isChecked());
  QVERIFY(desk.control<QCheckBox>("ptItalicButton").isChecked());
  QCOMPARE(desk.control<QComboBox>("ptFontSize").placeholderText(), QStringLiteral("77%"));
  QCOMPARE(desk.text("ptColourField"), QStringLiteral("#12abEF"));
  QCOMPARE(desk.control<QPushButton>("ptColourwell").accessibleDescription(), QStringLiteral("#12ABEF"));
  QVERIFY(desk.control<QRadioButton>("plUnderlineNone").isChecked());
  QVERIFY(desk.isClean());
  QCOMPARE(desk.document(), document);
}

void HtmlStyleTest::readsColours() {
  HtmlDesk desk;
  desk.openAt(2);
  const auto colour = [&](EntryClass entries) {
    return html_editor::readStyle(desk.document(), entries).colour;
  };
  QVERIFY(desk.type("ptColourField", QStringLiteral("#ABC")));
  QVERIFY(answer(message(kHexComplaint), kOk));
  QVERIFY(answer(message(kHexComplaint), QStringLiteral("Reset")));
  QCOMPARE(desk.text("ptColourField"), QStringLiteral("#000000"));
  QVERIFY(desk.isClean() && noSheetLeft());
  desk.go(3);
  // A colour typed for links goes into the rule of the titles.
  QVERIFY(desk.type("plColourField", QStringLiteral("00FF80")));
  QCOMPARE(desk.control<QPushButton>("plColourwell").accessibleDescription(), QStringLiteral("#00FF80"));
  QCOMPARE(colour(EntryClass::pageTitle), "#00FF80");
  QCOMPARE(colour(EntryClass::pageLink), "#0000FF");
  for (const QString& button : {kCancel, kOk}) {
    QVERIFY(desk.click("plColourwell"));
    auto* dialog = qobject_cast<QColorDialog*>(topSheet());
    QVERIFY(dialog);
    dialog->setCurrentColor(QColor(255, 127, 0));
    QVERIFY(answer(dialog, button));
    QCOMPARE(colour(EntryClass::pageLink), button == kOk ? "#FF7F00" : "#0000FF");
  }
  QCOMPARE(desk.text("plColourField"), QStringLiteral("#FF7F00"));
  // Going through a field is no edit.
  const std::string before = desk.document();
  desk.field("plColourField").setFocus();
  QTest::keyClick(&desk.field("plColourField"), Qt::Key_Return);
  QCOMPARE(desk.document(), before);
}

/// A head that is not ours may have other sheets in other places. Each edit comes while the one before is on
/// its way to the screen, and the last click says where the document stands then.
void HtmlStyleTest::loadsForeignHeadsAnew() {
  for (const bool foreign : {true, false}) {
    HtmlDesk desk(samples::blocks(300));
    if (foreign)
      desk.writeFile("Shop", "sitemap3c.html",
                     with(desk.onDisk(), "<title>", "<!-- <style></style> --><style>p {}</style><title>"));
    desk.openAt(2);
    desk.inPage(QStringLiteral("scrollTo(0, 700)"));
    QVERIFY(desk.clickLink(QStringLiteral("Link 150")));
    desk.inPage(QStringLiteral("scrollTo(0, 1200)"));
    for (const char* size : {"0.8em", "0.9em", "1.3em", "1.4em"})
      QVERIFY(desk.choose("ptFontSize", QLatin1String(size)));
    QVERIFY(desk.shown());
    QVERIFY(desk.inPageComesTrue(
        QStringLiteral("getComputedStyle(document.links[0]).fontSize === '22.4px' && scrollY === 700")));
  }
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlStyleTest>(argc, argv);
}

#include "html_style_test.moc"
