// The style controls of the HTML sitemap: what they read from a document and what they write into it.
#include <QButtonGroup>
#include <QCheckBox>
#include <QColorDialog>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>

#include "html_editor/colours.h"
#include "html_editor/style.h"
#include "html_editor/underline.h"
#include "html_steps.h"
#include "platform/qt_text.h"

namespace window_tests {

using html_editor::EntryClass;
using html_editor::readStyle;
using html_editor::readUnderline;
using html_editor::Underline;
using platform::toQString;
using samples::with;

namespace {

const QString kHexComplaint = QStringLiteral(
    "The colour much be 6 characters, (7 with begining #) please check the colour hex value you entered.");
const QString kReset = QStringLiteral("Reset");

/// Which of the two sets of controls, and where its tab is in the viewer.
struct Entries {
  const char* prefix;
  EntryClass entries;
  int tab;
};

constexpr Entries kBoth[] = {{"pt", EntryClass::pageTitle, 0}, {"pl", EntryClass::pageLink, 1}};

class StyleDesk : public HtmlDesk {
 public:
  explicit StyleDesk(const Entries& which, int view = 2) : m_which(which) {
    openAt(view);
    showTab();
  }

  void showTab() const {
    auto& tabs = control<QTabWidget>("styleTabs");
    if (tabs.count() > m_which.tab) tabs.setCurrentIndex(m_which.tab);
  }
  QByteArray name(const char* control) const { return QByteArray(m_which.prefix) + control; }
  template <typename Control>
  Control& styleControl(const char* rest) const {
    return control<Control>(name(rest).constData());
  }
  html_editor::EntryStyle style() const { return readStyle(document(), m_which.entries); }
  html_editor::EntryStyle otherStyle() const {
    return readStyle(document(),
                     m_which.entries == EntryClass::pageTitle ? EntryClass::pageLink : EntryClass::pageTitle);
  }
  bool clickOn(const char* rest) const { return click(name(rest).constData()); }
  bool chooseIn(const char* rest, const QString& item) const { return choose(name(rest).constData(), item); }
  bool typeColour(const QString& text) const { return type(name("ColourField").constData(), text); }
  QString colourText() const { return text(name("ColourField").constData()); }
  /// The colour that the well shows.
  QString well() const { return styleControl<QPushButton>("Colourwell").accessibleDescription(); }
  QString wellPixel() const {
    const auto& button = styleControl<QPushButton>("Colourwell");
    const QImage patch = button.icon().pixmap(button.iconSize()).toImage();
    return patch.pixelColor(patch.rect().center()).name().toUpper();
  }
  /// A property of the first entry of this class as the web view draws it.
  QString drawn(const char* property) const {
    return inPage(QStringLiteral("getComputedStyle(document.querySelector('.%1 a')).%2")
                      .arg(m_which.entries == EntryClass::pageTitle ? QLatin1String("vskPageTitle")
                                                                    : QLatin1String("vskPageLink"),
                           QLatin1String(property)))
        .toString();
  }
  bool comesToBeDrawn(const char* property, const QString& value) const {
    return comesTrue([&] { return drawn(property) == value; });
  }

 private:
  Entries m_which;
};

void addClassRows() {
  QTest::addColumn<int>("which");
  QTest::addColumn<int>("view");
  QTest::newRow("page titles in the viewer") << 0 << 2;
  QTest::newRow("page links in the viewer") << 1 << 2;
  QTest::newRow("page titles in the style editor") << 0 << 3;
  QTest::newRow("page links in the style editor") << 1 << 3;
}

}  // namespace

class HtmlStyleTest : public QObject {
  Q_OBJECT

 private slots:
  void readsTheStyle();
  void showsWhatIsOnNoList();
  void keepsWhatTheDocumentDoesNotTell();
  void writesEveryProperty_data() { addClassRows(); }
  void writesEveryProperty();
  void comesBackToClean();
  void boldOnAndOffStaysUnsavedWhereItWasSpelledOtherwise();
  void readsTypedColours_data();
  void readsTypedColours();
  void writesColoursOfLinksIntoTitles();
  void resetsTheColourField_data() { addClassRows(); }
  void resetsTheColourField();
  void choosesAColour_data() { addClassRows(); }
  void choosesAColour();
  void leavesTheColourWhenTheDialogIsCancelled();
  void commitsAColourWhenTheFieldIsLeft();
  void showsStylesOfForeignHeads();
  void goesBackToTheLastClickAfterAnEdit_data();
  void goesBackToTheLastClickAfterAnEdit();
  void editsInOneStrokeAfterAnother();
};

void HtmlStyleTest::readsTheStyle() {
  HtmlDesk desk;
  std::string document = desk.onDisk();
  document = with(
      document, "font-weight: bold;\n\t\tfont-style: normal;\n\t\tcolor: #000000;\n\t\tfont-size: 1.1em;",
      "font-weight: normal;\n\t\tfont-style: italic;\n\t\tcolor: #12abEF;\n\t\tfont-size: 0.8em;");
  document = with(document, "Times New Roman, Times, serif", "Georgia, Times New Roman, Times, serif");
  document = with(document, ".vskPageTitle a:visited { text-decoration:none }",
                  ".vskPageTitle a:visited { text-decoration:underline }");
  document = with(document, ".vskPageLink a:hover { text-decoration:underline }",
                  ".vskPageLink a:hover { text-decoration:none }");
  desk.writeFile("Shop", "sitemap3c.html", document);
  desk.openAt(2);
  QCOMPARE(desk.control<QComboBox>("ptFontFace").currentText(),
           QStringLiteral("Georgia, Times New Roman, Times, serif"));
  QCOMPARE(desk.control<QComboBox>("ptFontSize").currentText(), QStringLiteral("0.8em"));
  QVERIFY(!desk.control<QCheckBox>("ptBoldButton").isChecked());
  QVERIFY(desk.control<QCheckBox>("ptItalicButton").isChecked());
  QCOMPARE(desk.text("ptColourField"), QStringLiteral("#12abEF"));
  QCOMPARE(desk.control<QPushButton>("ptColourwell").accessibleDescription(), QStringLiteral("#12ABEF"));
  QVERIFY(desk.control<QRadioButton>("ptUnderlineAll").isChecked());
  QCOMPARE(desk.control<QComboBox>("plFontFace").currentText(),
           QStringLiteral("Times New Roman, Times, serif"));
  QCOMPARE(desk.control<QComboBox>("plFontSize").currentText(), QStringLiteral("1em"));
  QVERIFY(!desk.control<QCheckBox>("plBoldButton").isChecked());
  QVERIFY(!desk.control<QCheckBox>("plItalicButton").isChecked());
  QCOMPARE(desk.text("plColourField"), QStringLiteral("#0000FF"));
  QVERIFY(desk.control<QRadioButton>("plUnderlineNone").isChecked());
  QVERIFY(desk.isClean());
  QCOMPARE(desk.document(), document);
}

void HtmlStyleTest::showsWhatIsOnNoList() {
  HtmlDesk desk;
  desk.writeFile("Shop", "sitemap3c.html", with(desk.onDisk(), "font-size: 1.1em", "font-size: 77%"));
  desk.openAt(2);
  const auto& size = desk.control<QComboBox>("ptFontSize");
  QCOMPARE(size.currentIndex(), -1);
  QCOMPARE(size.placeholderText(), QStringLiteral("77%"));
  QVERIFY(desk.choose("ptFontSize", QStringLiteral("1.3em")));
  QCOMPARE(readStyle(desk.document(), EntryClass::pageTitle).size, "1.3em");
}

void HtmlStyleTest::keepsWhatTheDocumentDoesNotTell() {
  HtmlDesk desk;
  // The second layout has no rules at all; what the first one said stays where nothing else is told.
  desk.writeFile("Shop", "sitemap2c.html", "<html><head></head><body><p>By hand</p></body></html>");
  desk.openAt(2);
  QVERIFY(desk.click("ptUnderlineNone"));
  QVERIFY(desk.choose("sitemapTypePopup", QStringLiteral("Two Columns, All Links")));
  QVERIFY(answer(topSheet(), kDiscard));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.text("ptColourField"), QString());
  QCOMPARE(desk.control<QPushButton>("ptColourwell").accessibleDescription(), QStringLiteral("#000000"));
  QVERIFY(desk.control<QRadioButton>("ptUnderlineNone").isChecked());
  QCOMPARE(desk.control<QComboBox>("ptFontFace").currentIndex(), -1);
  const std::string before = desk.document();
  QVERIFY(desk.click("ptBoldButton"));
  QCOMPARE(desk.document(), before);  // there is no rule to change
  QVERIFY(desk.isClean());
}

void HtmlStyleTest::writesEveryProperty() {
  QFETCH(const int, which);
  QFETCH(const int, view);
  const StyleDesk desk(kBoth[which], view);
  const auto other = desk.otherStyle();
  QVERIFY(desk.chooseIn("FontFace", QStringLiteral("Courier New, Courier, mono")));
  QCOMPARE(desk.style().family, "Courier New, Courier, mono");
  QVERIFY(desk.comesToBeDrawn("fontFamily", QStringLiteral("\"Courier New\", Courier, mono")));
  QVERIFY(desk.chooseIn("FontSize", QStringLiteral("1.4em")));
  QCOMPARE(desk.style().size, "1.4em");
  QVERIFY(desk.comesToBeDrawn("fontSize", QStringLiteral("22.4px")));
  const bool wasBold = desk.style().bold;
  QVERIFY(desk.clickOn("BoldButton"));
  QCOMPARE(desk.style().bold, !wasBold);
  QVERIFY(desk.comesToBeDrawn("fontWeight", wasBold ? QStringLiteral("400") : QStringLiteral("700")));
  QVERIFY(desk.clickOn("ItalicButton"));
  QVERIFY(desk.style().italic);
  QVERIFY(desk.comesToBeDrawn("fontStyle", QStringLiteral("italic")));
  struct Mode {
    const char* button;
    Underline mode;
    const char* line;
  };
  constexpr Mode kModes[] = {{"UnderlineAll", Underline::all, "underline"},
                             {"UnderlineNone", Underline::none, "none"},
                             {"UnderlineOnHover", Underline::onHover, "none"}};
  for (const Mode& each : kModes) {
    QVERIFY(desk.clickOn(each.button));
    QVERIFY(readUnderline(desk.document(), kBoth[which].entries) == each.mode);
    QVERIFY(desk.comesToBeDrawn("textDecorationLine", QLatin1String(each.line)));
  }
  QVERIFY(desk.isDirty());
  QVERIFY(desk.otherStyle().family == other.family && desk.otherStyle().size == other.size &&
          desk.otherStyle().bold == other.bold && desk.otherStyle().italic == other.italic);
  QVERIFY(readUnderline(desk.document(), kBoth[1 - which].entries) == Underline::onHover);
  QCOMPARE(desk.onDisk(), documentOf(sitemaps::kLayouts[5], samples::blocks(6)));
}

void HtmlStyleTest::comesBackToClean() {
  const StyleDesk desk(kBoth[1]);
  QVERIFY(desk.isClean());
  QVERIFY(desk.clickOn("BoldButton"));
  QVERIFY(desk.isDirty());
  QVERIFY(desk.clickOn("BoldButton"));
  QVERIFY(desk.isClean());
  QVERIFY(desk.chooseIn("FontSize", QStringLiteral("0.9em")));
  QVERIFY(desk.isDirty());
  QVERIFY(desk.chooseIn("FontSize", QStringLiteral("1em")));
  QVERIFY(desk.isClean());
}

void HtmlStyleTest::boldOnAndOffStaysUnsavedWhereItWasSpelledOtherwise() {
  HtmlDesk desk;
  desk.writeFile("Shop", "sitemap3c.html", with(desk.onDisk(), "font-weight: bold", "font-weight: 600"));
  desk.openAt(2);
  QVERIFY(!desk.control<QCheckBox>("ptBoldButton").isChecked());
  QVERIFY(desk.click("ptBoldButton"));
  QVERIFY(desk.click("ptBoldButton"));
  QVERIFY(desk.isDirty());
}

void HtmlStyleTest::readsTypedColours_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("field");
  QTest::addColumn<QString>("written");  // empty: nothing is
  QTest::addColumn<QString>("well");
  QTest::addColumn<int>("complaints");
  const QString black = QStringLiteral("#000000");
  const auto row = [](const char* name, const char* typed, const char* field, const char* written,
                      const char* well, int complaints) {
    QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(field)
                        << QString::fromLatin1(written) << QString::fromLatin1(well) << complaints;
  };
  row("six digits", "abc123", "#abc123", "#abc123", "#ABC123", 0);
  row("with its sign", "#abc123", "#abc123", "#abc123", "#ABC123", 0);
  row("seven digits", "abc1234", "abc1234", "abc1234", "#000000", 0);
  row("three digits", "#ABC", "#ABC", "", "#000000", 2);
  row("nothing", "", "", "", "#000000", 2);
  row("eight digits", "#ABCDEF12", "#ABCDEF12", "#ABCDEF12", "#000000", 1);
  row("no digits", "purple", "#purple", "", "#000000", 1);
  row("digits and words", "#ABCDEF red", "#ABCDEF red", "#ABCDEF red", "#ABCDEF", 1);
}

void HtmlStyleTest::readsTypedColours() {
  QFETCH(const QString, typed);
  QFETCH(const QString, field);
  QFETCH(const QString, written);
  QFETCH(const QString, well);
  QFETCH(const int, complaints);
  const StyleDesk desk(kBoth[0]);
  const std::string before = desk.document();
  QVERIFY(desk.typeColour(typed));
  for (int i = 0; i < complaints; ++i) {
    QMessageBox* sheet = message(kHexComplaint);
    QVERIFY(sheet);
    QVERIFY(hasButtons(*sheet, {kOk, kReset}));
    QVERIFY(answer(sheet, kOk));
  }
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.colourText(), field);
  QCOMPARE(desk.well(), well);
  QCOMPARE(desk.wellPixel(), well);
  if (written.isEmpty()) {
    QCOMPARE(desk.document(), before);
    QVERIFY(desk.isClean());
  } else {
    QCOMPARE(desk.style().colour, platform::toUtf8(written));
    QVERIFY(desk.isDirty());
  }
}

void HtmlStyleTest::writesColoursOfLinksIntoTitles() {
  const StyleDesk desk(kBoth[1]);
  QVERIFY(desk.typeColour(QStringLiteral("00FF80")));
  QCOMPARE(desk.colourText(), QStringLiteral("#00FF80"));
  QCOMPARE(desk.well(), QStringLiteral("#00FF80"));
  QCOMPARE(desk.style().colour, "#0000FF");
  QCOMPARE(desk.otherStyle().colour, "#00FF80");
}

void HtmlStyleTest::resetsTheColourField() {
  QFETCH(const int, which);
  QFETCH(const int, view);
  const StyleDesk desk(kBoth[which], view);
  const std::string before = desk.document();
  const QString well = desk.well();
  QVERIFY(desk.typeColour(QStringLiteral("purple")));
  QVERIFY(answer(message(kHexComplaint), kReset));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.colourText(), well);
  QCOMPARE(desk.document(), before);
}

void HtmlStyleTest::choosesAColour() {
  QFETCH(const int, which);
  QFETCH(const int, view);
  const StyleDesk desk(kBoth[which], view);
  const auto other = desk.otherStyle().colour;
  QVERIFY(desk.clickOn("Colourwell"));
  auto* dialog = qobject_cast<QColorDialog*>(topSheet());
  QVERIFY(dialog);
  QCOMPARE(dialog->currentColor().name().toUpper(), desk.well());
  dialog->setCurrentColor(QColor(255, 127, 0));
  QVERIFY(answer(dialog, kOk));
  QCOMPARE(desk.well(), QStringLiteral("#FF7F00"));
  QCOMPARE(desk.wellPixel(), QStringLiteral("#FF7F00"));
  QCOMPARE(desk.colourText(), QStringLiteral("#FF7F00"));
  QCOMPARE(desk.style().colour, "#FF7F00");
  QCOMPARE(desk.otherStyle().colour, other);
  QVERIFY(desk.isDirty());
  QVERIFY(desk.comesToBeDrawn("color", QStringLiteral("rgb(255, 127, 0)")));
}

void HtmlStyleTest::leavesTheColourWhenTheDialogIsCancelled() {
  const StyleDesk desk(kBoth[0]);
  const std::string before = desk.document();
  QVERIFY(desk.clickOn("Colourwell"));
  auto* dialog = qobject_cast<QColorDialog*>(topSheet());
  QVERIFY(dialog);
  dialog->setCurrentColor(Qt::red);
  QVERIFY(answer(dialog, kCancel));
  QCOMPARE(desk.document(), before);
  QCOMPARE(desk.well(), QStringLiteral("#000000"));
  QVERIFY(desk.isClean());
}

void HtmlStyleTest::commitsAColourWhenTheFieldIsLeft() {
  const StyleDesk desk(kBoth[0]);
  QLineEdit& field = desk.field("ptColourField");
  field.setFocus();
  field.selectAll();
  QTest::keyClicks(&field, QStringLiteral("112233"));
  QTest::keyClick(&field, Qt::Key_Tab);
  QCOMPARE(desk.style().colour, "#112233");
  // Going through a field that was not changed is no edit: its colour may be spelled as no user can type it.
  const std::string before = desk.document();
  desk.field("plColourField").setFocus();
  QTest::keyClick(&desk.field("plColourField"), Qt::Key_Return);
  QTest::keyClick(&desk.field("plColourField"), Qt::Key_Tab);
  QCOMPARE(desk.document(), before);
}

/// A head that is not ours may have other sheets in other places; it is loaded anew, and drawn as edited.
void HtmlStyleTest::showsStylesOfForeignHeads() {
  HtmlDesk desk;
  desk.writeFile("Shop", "sitemap3c.html",
                 with(desk.onDisk(), "<title>", "<!-- <style></style> --><style>p {}</style><title>"));
  desk.openAt(2);
  QVERIFY(desk.choose("ptFontSize", QStringLiteral("1.4em")));
  QVERIFY(desk.shown());
  QVERIFY(desk.inPageComesTrue(
      QStringLiteral("getComputedStyle(document.querySelector('.vskPageTitle a')).fontSize === '22.4px'")));
  QVERIFY(desk.inPage(QStringLiteral("document.querySelector('style').textContent")).toString() ==
          QStringLiteral("p {}"));
}

void HtmlStyleTest::goesBackToTheLastClickAfterAnEdit_data() {
  QTest::addColumn<bool>("foreign");
  QTest::newRow("style put in place") << false;
  QTest::newRow("document loaded anew") << true;
}

void HtmlStyleTest::goesBackToTheLastClickAfterAnEdit() {
  QFETCH(const bool, foreign);
  HtmlDesk desk(samples::blocks(300));
  if (foreign) desk.writeFile("Shop", "sitemap3c.html", with(desk.onDisk(), "<title>", "<!-- --><title>"));
  desk.openAt(2);
  desk.inPage(QStringLiteral("scrollTo(0, 700)"));
  QVERIFY(desk.clickLink(QStringLiteral("Link 150")));
  desk.inPage(QStringLiteral("scrollTo(0, 1200)"));
  QVERIFY(desk.choose("ptFontSize", QStringLiteral("0.9em")));
  QVERIFY(desk.shown());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("scrollY === 700")));
}

void HtmlStyleTest::editsInOneStrokeAfterAnother() {
  // Each edit comes while the one before is on its way to the screen.
  HtmlDesk desk;
  desk.writeFile("Shop", "sitemap3c.html", with(desk.onDisk(), "<title>", "<!-- --><title>"));
  desk.openAt(2);
  for (const char* size : {"0.8em", "0.9em", "1.2em", "1.3em", "1.4em"}) {
    QVERIFY(desk.choose("ptFontSize", QLatin1String(size)));
  }
  QVERIFY(desk.shown());
  QVERIFY(desk.inPageComesTrue(
      QStringLiteral("getComputedStyle(document.querySelector('.vskPageTitle a')).fontSize === '22.4px'")));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlStyleTest>(argc, argv);
}

#include "html_style_test.moc"
