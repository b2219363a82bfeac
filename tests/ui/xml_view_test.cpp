// The view of the XML sitemap: its table, menus, sheets and findings.
#include <QClipboard>
#include <QDate>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolButton>
#include <filesystem>

#include "platform/files.h"
#include "platform/qt_text.h"
#include "sitemaps/xml_format.h"
#include "window_test.h"

namespace window_tests {

namespace {

const QString kShop = QStringLiteral("Shop");
const QString kDeleteQuestion =
    QStringLiteral("Do you really want to delete the selected link?\nDeleting links cannot be undone!");

/// An entry as the editor writes it.
std::string entry(const std::string& loc, const std::string& lastmod = "2010-06-15",
                  const std::string& changefreq = "monthly", const std::string& priority = "0.5") {
  return "\t<url>\n\t\t<loc>" + loc + "</loc>\n\t\t<lastmod>" + lastmod + "</lastmod>\n\t\t<changefreq>" +
         changefreq + "</changefreq>\n\t\t<priority>" + priority + "</priority>\n\t</url>\n";
}

std::string sitemap(const std::string& entries) {
  return std::string(sitemaps::kXmlHeader) + "\n" + (entries.empty() ? "\t" : entries) + "</urlset>";
}

const std::string kThree = sitemap(entry("http://shop.test/?a=1&b=2") + entry("http://shop.test/b") +
                                   entry("http://shop.test/c", ""));

/// The window with the view of a site's sitemap, and what a user does there.
class XmlDesk : public Desk {
 public:
  explicit XmlDesk(const std::string& text = kThree, const std::string& url = "http://shop.test/") {
    makeSite("Shop", url);
    if (!text.empty()) writeFile("Shop", "sitemap.xml", text);
    open();
    select(kShop);
    control<QAction>("xmlTBI").trigger();
  }

  QTableView& table() const { return control<QTableView>("xmlTableView"); }
  std::string onDisk() const { return file("Shop", "sitemap.xml"); }
  QString cell(int row, int column) const { return table().model()->index(row, column).data().toString(); }
  int rows() const { return table().model()->rowCount(); }
  int currentRow() const { return table().currentIndex().row(); }
  void goTo(int row, int column) const {
    table().setFocus();
    table().setCurrentIndex(table().model()->index(row, column));
  }
  QPoint middle(int row, int column) const {
    return table().visualRect(table().model()->index(row, column)).center();
  }
  /// Near the end of the cell, where the arrow of a pop-up is.
  QPoint arrow(int row, int column) const {
    const QRect place = table().visualRect(table().model()->index(row, column));
    return {place.right() - place.height() / 2, place.center().y()};
  }
  void doubleClick(QPoint place) const {
    // The view looks at the click before, too.
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, place);
  }
  /// The editor of the cell, once it is open.
  QLineEdit* editor() const {
    const auto isOpen = [this] { return table().viewport()->findChild<QLineEdit*>() != nullptr; };
    return comesTrue(isOpen) ? table().viewport()->findChild<QLineEdit*>() : nullptr;
  }
  /// Opens the editor by its key, types a text in place of the old one, and presses a key.
  bool type(int row, int column, const QString& text, Qt::Key end = Qt::Key_Return) const {
    goTo(row, column);
    QTest::keyClick(&table(), Qt::Key_F2);
    QLineEdit* line = editor();
    if (line == nullptr) return false;
    line->selectAll();
    text.isEmpty() ? QTest::keyClick(line, Qt::Key_Delete) : QTest::keyClicks(line, text);
    QTest::keyClick(line, end);
    return comesTrue([this] { return table().viewport()->findChild<QLineEdit*>() == nullptr; });
  }
  /// The menu that is up.
  static QMenu* menu() {
    const auto isUp = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; };
    return comesTrue(isUp) ? qobject_cast<QMenu*>(QApplication::activePopupWidget()) : nullptr;
  }
  static QStringList checked(const QMenu& menu) {
    QStringList names;
    for (const QAction* action : menu.actions()) {
      if (action->isChecked()) names.append(action->objectName());
    }
    return names;
  }
};

}  // namespace

class XmlViewTest : public QObject {
  Q_OBJECT

 private slots:
  void showsTheEntries();
  void readsTheFileAnewWithEveryOpening();
  void saysWhatToDoWithoutEntries_data();
  void saysWhatToDoWithoutEntries();
  void followsTheSiteInHand();
  void writesWhatIsTyped();
  void takesNoEditorForAChangeThatWasLeftAlone();
  void keepsTheOldTextOfRefusedValues_data();
  void keepsTheOldTextOfRefusedValues();
  void writesTheChoiceOfEachMenuAction_data();
  void writesTheChoiceOfEachMenuAction();
  void popsTheMenuUpInTheCell();
  void enablesCommandsWithASelectionInThisViewOnly();
  void deletesOnlyWhenToldTo();
  void deletesByKeyDownToTheLastEntry();
  void deletesWhatIsSelectedInASearch();
  void searchesAddresses();
  void copiesAddresses();
  void tellsWhatCouldNotBeSaved();
  void leadsToTheEntryThatLacksAnElement();
  void saysThatOtherElementsAreDropped();
  void listsFindingsAndLeadsToThem();
  void checksAgainAfterAChange();
  void opensAndChangesLongSitemaps();
};

void XmlViewTest::showsTheEntries() {
  XmlDesk desk(sitemap(entry("http://shop.test/?a=1&amp;b=2", "2010-06-15", "never", "1") +
                       entry("http://shop.test/b", "", "sometimes", "0.55")));
  const QStringList titles = {QStringLiteral("URL"), QStringLiteral("Last Updated"),
                              QStringLiteral("Change Frequency"), QStringLiteral("Priority")};
  for (int column = 0; column < 4; ++column) {
    QCOMPARE(desk.table().model()->headerData(column, Qt::Horizontal).toString(), titles[column]);
  }
  QCOMPARE(desk.rows(), 2);
  QCOMPARE(desk.cell(0, 0), QStringLiteral("http://shop.test/?a=1&b=2"));
  QCOMPARE(desk.cell(0, 1), QStringLiteral("2010-06-15"));
  QCOMPARE(desk.cell(0, 2), QStringLiteral("never"));
  QCOMPARE(desk.cell(0, 3), QStringLiteral("1.0"));
  QCOMPARE(desk.cell(1, 1), QString());
  QCOMPARE(desk.cell(1, 2), QStringLiteral("sometimes"));
  QCOMPARE(desk.cell(1, 3), QStringLiteral("0.55"));
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("2 entries"));
  QVERIFY(desk.table().isVisible());
  QVERIFY(!desk.control<QLabel>("xmlNotice").isVisible());
  QVERIFY(!desk.control<QWidget>("xmlFindingsPanel").isVisible());
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2 - Shop"));
}

void XmlViewTest::readsTheFileAnewWithEveryOpening() {
  XmlDesk desk;
  QCOMPARE(desk.rows(), 3);
  desk.writeFile("Shop", "sitemap.xml", sitemap(entry("http://shop.test/new")));
  desk.control<QAction>("exportTBI").trigger();
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2"));
  QCOMPARE(desk.rows(), 3);
  desk.control<QAction>("xmlTBI").trigger();
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2 - Shop"));
  QCOMPARE(desk.rows(), 1);
  desk.writeFile("Shop", "sitemap.xml", kThree);
  desk.control<QAction>("xmlTBI").trigger();  // while it is shown
  QCOMPARE(desk.rows(), 3);
}

void XmlViewTest::saysWhatToDoWithoutEntries_data() {
  QTest::addColumn<std::string>("text");
  QTest::addColumn<QString>("hint");
  QTest::newRow("no file") << std::string()
                           << QStringLiteral("Shop has no XML sitemap yet. A scan writes it.");
  QTest::newRow("no entry") << sitemap("") << QStringLiteral("The XML sitemap of Shop has no entries.");
  QTest::newRow("something else") << std::string("\xFF\xFE\x00garbage")
                                  << QStringLiteral("The XML sitemap of Shop has no entries.");
}

void XmlViewTest::saysWhatToDoWithoutEntries() {
  QFETCH(const std::string, text);
  XmlDesk desk(text, "http://127.0.0.1:1/");
  QVERIFY(!desk.table().isVisible());
  QTEST(desk.label("xmlEmptyHint"), "hint");
  QVERIFY(topSheet() == nullptr);
  QVERIFY(!desk.control<QAction>("validateXmlMI").isEnabled());
  QVERIFY(desk.control<QPushButton>("xmlWindowViewFolder").isVisible());
  // The button leads to the scan of the site; no server is there.
  QVERIFY(desk.click("xmlScanButton"));
  QCOMPARE(desk.window().state().qzvskCurrentView, 1);
  QVERIFY(comesTrue([&] { return topSheet() != nullptr || !desk.enabled("scanSiteButton"); }));
  QVERIFY(comesTrue([] { return qobject_cast<QMessageBox*>(topSheet()) != nullptr; }));
  QVERIFY(answer(topSheet(), QStringLiteral("OK")));
}

void XmlViewTest::followsTheSiteInHand() {
  XmlDesk desk;
  QCOMPARE(desk.rows(), 3);
  desk.control<QTableView>("siteListTable").clearSelection();  // as when the site is deleted from the menu
  QCOMPARE(desk.rows(), 0);
  QCOMPARE(desk.label("xmlEmptyHint"), QStringLiteral("Select a site to see its XML sitemap."));
  QVERIFY(desk.click("xmlScanButton"));
  QCOMPARE(desk.window().state().qzvskCurrentView, 1);
  QVERIFY(topSheet() == nullptr);
}

void XmlViewTest::writesWhatIsTyped() {
  XmlDesk desk;
  QVERIFY(desk.type(1, 0, QStringLiteral("http://shop.test/$1?x&y")));
  QCOMPARE(desk.cell(1, 0), QStringLiteral("http://shop.test/$1?x&y"));
  QVERIFY(desk.type(2, 1, QStringLiteral("2011-02-03")));
  QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/?a=1&b=2") + entry("http://shop.test/$1?x&y") +
                                  entry("http://shop.test/c", "2011-02-03")));
  QVERIFY(topSheet() == nullptr);

  // The mouse opens the editor too, and Escape leaves everything as it is.
  const std::string before = desk.onDisk();
  desk.doubleClick(desk.middle(0, 0));
  QLineEdit* line = desk.editor();
  QVERIFY(line != nullptr);
  QCOMPARE(line->text(), QStringLiteral("http://shop.test/?a=1&b=2"));
  QCOMPARE(line->accessibleName(), QStringLiteral("URL"));
  QTest::keyClicks(line, QStringLiteral("other"));
  QTest::keyClick(line, Qt::Key_Escape);
  QVERIFY(comesTrue([&] { return desk.table().viewport()->findChild<QLineEdit*>() == nullptr; }));
  QCOMPARE(desk.onDisk(), before);
}

void XmlViewTest::takesNoEditorForAChangeThatWasLeftAlone() {
  XmlDesk desk;
  // Typed anew, this empty date would be refused.
  desk.goTo(2, 1);
  QTest::keyClick(&desk.table(), Qt::Key_F2);
  QVERIFY(desk.editor() != nullptr);
  QTest::keyClick(desk.editor(), Qt::Key_Return);
  QVERIFY(comesTrue([&] { return desk.table().viewport()->findChild<QLineEdit*>() == nullptr; }));
  QVERIFY(topSheet() == nullptr);
  QCOMPARE(desk.onDisk(), kThree);
}

void XmlViewTest::keepsTheOldTextOfRefusedValues_data() {
  QTest::addColumn<int>("column");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("title");
  const QString today = QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd"));
  QTest::newRow("address") << 0 << QString() << QStringLiteral("The URL field cannot be left blank");
  QTest::newRow("no date") << 1 << QString() << QStringLiteral("The Last Updated field cannot be left blank");
  QTest::newRow("form") << 1 << QStringLiteral("15/06/2010")
                        << QStringLiteral("The Last Updated date format must be yyyy-mm-dd (%1)").arg(today);
  QTest::newRow("month") << 1 << QStringLiteral("2010-01-15")
                         << QStringLiteral("The month must be a number between 01 and 12");
  QTest::newRow("day") << 1 << QStringLiteral("2010-11-15")
                       << QStringLiteral("The day must be a number between 01 and 31");
}

void XmlViewTest::keepsTheOldTextOfRefusedValues() {
  QFETCH(const int, column);
  QFETCH(const QString, typed);
  QFETCH(const QString, title);
  XmlDesk desk;
  const QString old = desk.cell(0, column);
  QVERIFY(desk.type(0, column, typed));
  QMessageBox* sheet = message(title);
  QVERIFY(sheet != nullptr);
  QVERIFY(hasButtons(*sheet, {QStringLiteral("OK")}));
  QVERIFY(sheet->informativeText().isEmpty());
  QVERIFY(answer(sheet, QStringLiteral("OK")));
  QCOMPARE(desk.cell(0, column), old);
  QCOMPARE(desk.onDisk(), kThree);
  QVERIFY(noSheetLeft());
}

void XmlViewTest::writesTheChoiceOfEachMenuAction_data() {
  QTest::addColumn<QString>("menu");
  QTest::addColumn<QString>("written");
  QTest::addColumn<QString>("shown");
  const QStringList frequencies = {
      QStringLiteral("always"),  QStringLiteral("hourly"), QStringLiteral("daily"), QStringLiteral("weekly"),
      QStringLiteral("monthly"), QStringLiteral("yearly"), QStringLiteral("never")};
  for (const QString& each : frequencies) {
    QTest::newRow(qPrintable(each + QStringLiteral("MenuItem")))
        << QStringLiteral("chFreqMenu") << each << each;
  }
  const char* const priorities[] = {"pZeroPriority",  "ponePriority",  "ptwoPriority", "pthreePriority",
                                    "pfourPriority",  "pfivePriority", "psixPriority", "psevenPriority",
                                    "peightPriority", "pninePriority"};
  for (int i = 0; i < 10; ++i) {
    const QString value = QStringLiteral("0.%1").arg(i);
    QTest::newRow(priorities[i]) << QStringLiteral("prMenu") << value << value;
  }
  QTest::newRow("highestPriority") << QStringLiteral("prMenu") << QStringLiteral("1")
                                   << QStringLiteral("1.0");
}

void XmlViewTest::writesTheChoiceOfEachMenuAction() {
  QFETCH(const QString, menu);
  QFETCH(const QString, written);
  XmlDesk desk;
  desk.goTo(1, 0);
  const QString name = QLatin1String(QTest::currentDataTag());
  desk.control<QAction>(qPrintable(name)).trigger();
  const bool frequency = menu == QLatin1String("chFreqMenu");
  const std::string value = platform::toUtf8(written);
  QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/?a=1&b=2") +
                                  entry("http://shop.test/b", "2010-06-15", frequency ? value : "monthly",
                                        frequency ? "0.5" : value) +
                                  entry("http://shop.test/c", "")));
  QTEST(desk.cell(1, frequency ? 2 : 3), "shown");
  // Read anew, the choice is marked in its menu.
  desk.control<QAction>("xmlTBI").trigger();
  QTEST(desk.cell(1, frequency ? 2 : 3), "shown");
  desk.goTo(1, frequency ? 2 : 3);
  QTest::keyClick(&desk.table(), Qt::Key_F2);
  QMenu* up = XmlDesk::menu();
  QVERIFY(up != nullptr);
  QCOMPARE(up->objectName(), menu);
  QCOMPARE(XmlDesk::checked(*up), QStringList{name});
  QCOMPARE(up->activeAction()->objectName(), name);
  up->close();
}

void XmlViewTest::popsTheMenuUpInTheCell() {
  XmlDesk desk;
  QVERIFY(desk.window().findChild<QStyledItemDelegate*>(QStringLiteral("cfPopCell")) != nullptr);
  QVERIFY(desk.window().findChild<QStyledItemDelegate*>(QStringLiteral("priPopCell")) != nullptr);
  // A click on the text selects only.
  QTest::mouseClick(desk.table().viewport(), Qt::LeftButton, {}, desk.middle(1, 2));
  QCOMPARE(desk.currentRow(), 1);
  QVERIFY(QApplication::activePopupWidget() == nullptr);
  // One on the arrow of another row selects that first.
  QTest::mouseClick(desk.table().viewport(), Qt::LeftButton, {}, desk.arrow(2, 3));
  QMenu* menu = XmlDesk::menu();
  QVERIFY(menu != nullptr);
  QCOMPARE(menu->objectName(), QStringLiteral("prMenu"));
  QCOMPARE(desk.currentRow(), 2);
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  QCOMPARE(desk.cell(2, 3), QStringLiteral("0.6"));
  QVERIFY(comesTrue([] { return QApplication::activePopupWidget() == nullptr; }));

  desk.doubleClick(desk.middle(0, 2));
  menu = XmlDesk::menu();
  QVERIFY(menu != nullptr);
  QTest::keyClick(menu, Qt::Key_Escape);
  QCOMPARE(desk.cell(0, 2), QStringLiteral("monthly"));
}

void XmlViewTest::enablesCommandsWithASelectionInThisViewOnly() {
  XmlDesk desk;
  const auto enabled = [&](bool wanted) {
    bool as = desk.enabled("delLinkButton") == wanted;
    for (const char* name : {"delLinkMI", "editEntryMI"}) {
      as = as && desk.control<QAction>(name).isEnabled() == wanted;
    }
    for (const char* name : {"chFreqMenu", "prMenu"}) {
      as = as && desk.control<QMenu>(name).menuAction()->isEnabled() == wanted;
    }
    return as;
  };
  QVERIFY(enabled(false));
  QVERIFY(!desk.control<QPushButton>("delLinkButton").toolTip().isEmpty());
  QVERIFY(desk.control<QAction>("validateXmlMI").isEnabled());
  // Without a selection the actions of the menus do nothing.
  desk.control<QAction>("neverMenuItem").trigger();
  desk.control<QAction>("highestPriority").trigger();
  QCOMPARE(desk.onDisk(), kThree);
  desk.goTo(1, 0);
  QVERIFY(enabled(true));
  desk.control<QAction>("scanTBI").trigger();
  QVERIFY(enabled(false));
  QVERIFY(!desk.control<QAction>("validateXmlMI").isEnabled());
}

void XmlViewTest::deletesOnlyWhenToldTo() {
  XmlDesk desk;
  desk.goTo(1, 0);
  QVERIFY(desk.click("delLinkButton"));
  QMessageBox* sheet = message(kDeleteQuestion);
  QVERIFY(sheet != nullptr);
  QVERIFY(hasButtons(*sheet, {QStringLiteral("Delete Link"), QStringLiteral("Cancel")}));
  QCOMPARE(sheet->defaultButton()->text(), QStringLiteral("Delete Link"));
  QVERIFY(answer(sheet, QStringLiteral("Cancel")));
  QCOMPARE(desk.onDisk(), kThree);
  QCOMPARE(desk.currentRow(), 1);
  QVERIFY(desk.click("delLinkButton"));
  sheet = message(kDeleteQuestion);
  QVERIFY(sheet != nullptr);
  pressEscape(*sheet);
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk(), kThree);

  QVERIFY(desk.click("delLinkButton"));
  QVERIFY(answer(message(kDeleteQuestion), QStringLiteral("Delete Link")));
  QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/?a=1&b=2") + entry("http://shop.test/c", "")));
  QCOMPARE(desk.currentRow(), 1);
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("2 entries"));
}

void XmlViewTest::deletesByKeyDownToTheLastEntry() {
  XmlDesk desk;
  QTest::keyClick(&desk.table(), Qt::Key_Delete);  // nothing is selected
  QVERIFY(topSheet() == nullptr);
  desk.goTo(0, 1);
  for (int left = 2; left >= 0; --left) {
    QTest::keyClick(&desk.table(), Qt::Key_Delete);
    QVERIFY(answer(message(kDeleteQuestion), QStringLiteral("Delete Link")));
    QCOMPARE(desk.rows(), left);
    QVERIFY(noSheetLeft());
    desk.window().activateWindow();
    desk.table().setFocus();
  }
  QCOMPARE(desk.onDisk(), sitemap(""));
  QVERIFY(!desk.table().isVisible());
  QCOMPARE(desk.label("xmlEmptyHint"), QStringLiteral("The XML sitemap of Shop has no entries."));
  QVERIFY(!desk.control<QAction>("delLinkMI").isEnabled());
}

void XmlViewTest::deletesWhatIsSelectedInASearch() {
  XmlDesk desk;
  desk.control<QLineEdit>("xmlSearch").setText(QStringLiteral("/c"));
  QCOMPARE(desk.rows(), 1);
  desk.goTo(0, 0);
  desk.control<QAction>("neverMenuItem").trigger();
  QVERIFY(desk.click("delLinkButton"));
  QVERIFY(answer(message(kDeleteQuestion), QStringLiteral("Delete Link")));
  QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/?a=1&b=2") + entry("http://shop.test/b")));
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("Not found in 2 entries"));
}

void XmlViewTest::searchesAddresses() {
  XmlDesk desk;
  desk.goTo(1, 0);
  QVERIFY(!desk.control<QLineEdit>("xmlSearch").hasFocus());
  desk.control<QAction>("findSiteMI").trigger();
  QVERIFY(desk.control<QLineEdit>("xmlSearch").hasFocus());
  QTest::keyClicks(&desk.control<QLineEdit>("xmlSearch"), QStringLiteral("TEST/b"));
  QCOMPARE(desk.rows(), 1);
  QCOMPARE(desk.cell(0, 0), QStringLiteral("http://shop.test/b"));
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("1 of 3 entries"));
  QCOMPARE(desk.table().model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("2"));
  QVERIFY(desk.enabled("delLinkButton"));
  // What the search hides is no longer selected, nor is anything in its place.
  desk.control<QLineEdit>("xmlSearch").setText(QStringLiteral("?a=1&b"));
  QCOMPARE(desk.rows(), 1);
  QVERIFY(!desk.enabled("delLinkButton"));
  desk.control<QLineEdit>("xmlSearch").setText(QStringLiteral(".*"));
  QCOMPARE(desk.rows(), 0);
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("Not found in 3 entries"));
  desk.control<QLineEdit>("xmlSearch").clear();
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("3 entries"));
}

void XmlViewTest::copiesAddresses() {
  XmlDesk desk;
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  desk.control<QAction>("copyMI").trigger();
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
  desk.goTo(0, 1);
  desk.control<QAction>("copyMI").trigger();
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://shop.test/?a=1&b=2"));
}

void XmlViewTest::tellsWhatCouldNotBeSaved() {
  XmlDesk desk;
  desk.goTo(1, 0);
  {
    const platform::FolderLock scan(desk.controls.siteFolder("Shop"));
    desk.control<QAction>("neverMenuItem").trigger();
    QVERIFY(answer(message(QStringLiteral("The site is being scanned. Try again when that has finished.")),
                   QStringLiteral("OK")));
  }
  QCOMPARE(desk.cell(1, 2), QStringLiteral("monthly"));
  QCOMPARE(desk.onDisk(), kThree);
  QVERIFY(noSheetLeft());

  std::filesystem::remove_all(desk.controls.siteFolder("Shop"));
  QVERIFY(desk.click("delLinkButton"));
  QVERIFY(answer(message(kDeleteQuestion), QStringLiteral("Delete Link")));
  QVERIFY(comesTrue([] {
    const auto* box = qobject_cast<QMessageBox*>(topSheet());
    return box != nullptr && box->text().startsWith(QLatin1String("The sitemap could not be saved: "));
  }));
  QVERIFY(answer(topSheet(), QStringLiteral("OK")));
  QCOMPARE(desk.rows(), 3);
  QCOMPARE(desk.currentRow(), 1);
}

void XmlViewTest::leadsToTheEntryThatLacksAnElement() {
  const std::string text =
      sitemap(entry("http://shop.test/a") + "<url><loc>http://shop.test/b</loc><priority>1</priority></url>");
  XmlDesk desk(text);
  QCOMPARE(desk.rows(), 2);
  desk.goTo(0, 0);
  desk.control<QAction>("neverMenuItem").trigger();
  QVERIFY(answer(
      message(QStringLiteral("An entry of the sitemap has no lastmod element, so the sitemap cannot be "
                             "written.")),
      QStringLiteral("OK")));
  QCOMPARE(desk.currentRow(), 1);
  QCOMPARE(desk.onDisk(), text);
  QCOMPARE(desk.cell(0, 2), QStringLiteral("monthly"));
}

void XmlViewTest::saysThatOtherElementsAreDropped() {
  XmlDesk desk(sitemap("<url><loc>a</loc><lastmod/><changefreq/><priority/><i:image>x</i:image></url>"));
  QVERIFY(desk.control<QLabel>("xmlNotice").isVisible());
  desk.goTo(0, 0);
  desk.control<QAction>("neverMenuItem").trigger();
  QVERIFY(!desk.control<QLabel>("xmlNotice").isVisible());
  QCOMPARE(desk.onDisk(), sitemap(entry("a", "", "never", "")));
}

void XmlViewTest::listsFindingsAndLeadsToThem() {
  XmlDesk desk(sitemap(entry("http://shop.test/a", "", "never") + entry("http://shop.test/b", "2010-02-30") +
                       entry("http://other.test/c", "2010-06-15", "often")));
  desk.control<QLineEdit>("xmlSearch").setText(QStringLiteral("/a"));
  QVERIFY(desk.click("validateXmlButton"));
  auto& list = desk.control<QListView>("xmlFindings");
  QVERIFY(list.isVisible());
  QStringList texts;
  for (int i = 0; i < list.model()->rowCount(); ++i)
    texts.append(list.model()->index(i, 0).data().toString());
  QCOMPARE(texts.size(), 3);
  QCOMPARE(texts[0], QStringLiteral("Entry 2, lastmod: \"2010-02-30\" is not a day of the calendar"));
  QVERIFY(texts[1].startsWith(QLatin1String("Entry 3, loc: \"http://other.test/c\" is not on the host")));
  QVERIFY(texts[2].startsWith(QLatin1String("Entry 3, changefreq: \"often\"")));
  QCOMPARE(desk.label("xmlFindingsLabel"),
           QStringLiteral("The sitemap has 3 faults. Click one to see its entry:"));

  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(0, 0)).center());
  QCOMPARE(desk.rows(), 3);  // the search is over
  QCOMPARE(desk.currentRow(), 1);
  QCOMPARE(desk.table().currentIndex().column(), 1);
  QVERIFY(desk.table().hasFocus());
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_End);
  desk.control<QAction>("copyMI").trigger();
  QCOMPARE(QGuiApplication::clipboard()->text(), texts[2]);
  QTest::keyClick(&list, Qt::Key_Return);
  QCOMPARE(desk.currentRow(), 2);
  QCOMPARE(desk.table().currentIndex().column(), 2);

  QVERIFY(window_tests::click(desk.control<QToolButton>("closeFindingsButton")));
  QVERIFY(!list.isVisible());
}

void XmlViewTest::checksAgainAfterAChange() {
  XmlDesk desk(sitemap(entry("http://shop.test/b", "2010-02-30")));
  desk.control<QAction>("validateXmlMI").trigger();
  auto& list = desk.control<QListView>("xmlFindings");
  QVERIFY(list.isVisible());
  QVERIFY(desk.type(0, 1, QStringLiteral("2010-02-28")));
  QVERIFY(
      comesTrue([&] { return desk.label("xmlFindingsLabel") == QLatin1String("The sitemap is valid."); }));
  QVERIFY(!list.isVisible());
  // The list is for the sitemap it was made for.
  desk.control<QAction>("xmlTBI").trigger();
  QVERIFY(!desk.control<QWidget>("xmlFindingsPanel").isVisible());
}

void XmlViewTest::opensAndChangesLongSitemaps() {
  constexpr int kRows = 50'000;
  std::string entries;
  for (int i = 0; i < kRows; ++i) entries += entry("http://shop.test/page-" + std::to_string(i));
  XmlDesk desk(sitemap(entries));
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("50,000 entries"));
  desk.goTo(kRows - 1, 0);
  desk.control<QAction>("highestPriority").trigger();
  QVERIFY(desk.onDisk().ends_with("<priority>1</priority>\n\t</url>\n</urlset>"));
  QTest::keyClick(&desk.table(), Qt::Key_Delete);
  QVERIFY(answer(message(kDeleteQuestion), QStringLiteral("Delete Link")));
  QCOMPARE(desk.currentRow(), kRows - 2);
  QVERIFY(desk.table().visualRect(desk.table().currentIndex()).intersects(desk.table().viewport()->rect()));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::XmlViewTest>(argc, argv);
}

#include "xml_view_test.moc"
