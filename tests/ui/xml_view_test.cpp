// The view of the XML sitemap: its table, menus, sheets and findings.
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <utility>

#include "platform/qt_text.h"
#include "sitemaps/xml_format.h"
#include "window_test.h"

namespace window_tests {

namespace {

const QString kOk = QStringLiteral("OK");
const QString kDeleteLink = QStringLiteral("Delete Link");
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
};

}  // namespace

class XmlViewTest : public QObject {
  Q_OBJECT

 private slots:
  void writesWhatIsTyped();
  void writesWhatIsChosen();
  void popsTheMenuUpInTheCell();
  void sortsByItsHeadings();
  void searchesAddresses();
  void deletesOnlyWhenToldTo();
  void tellsWhatCouldNotBeSaved();
  void leadsToFindings();
  void saysWhatToDoWithoutEntries();
};

void XmlViewTest::writesWhatIsTyped() {
  XmlDesk desk;
  QVERIFY(desk.type(1, 0, QStringLiteral("http://shop.test/$1?x&y")));
  QCOMPARE(desk.cell(1, 0), QStringLiteral("http://shop.test/$1?x&y"));
  QVERIFY(desk.type(2, 1, QStringLiteral("2011-02-03")));
  const std::string written = sitemap(entry("http://shop.test/?a=1&b=2") + entry("http://shop.test/$1?x&y") +
                                      entry("http://shop.test/c", "2011-02-03"));
  QCOMPARE(desk.onDisk(), written);

  desk.doubleClick(desk.middle(0, 0));  // the mouse opens the editor too
  QVERIFY(desk.editor() != nullptr);
  QCOMPARE(desk.editor()->accessibleName(), QStringLiteral("URL"));
  QTest::keyClicks(desk.editor(), QStringLiteral("other"));
  QTest::keyClick(desk.editor(), Qt::Key_Escape);
  QVERIFY(comesTrue([&] { return desk.table().viewport()->findChild<QLineEdit*>() == nullptr; }));
  QVERIFY(desk.type(0, 1, {}));
  QVERIFY(answer(message(QStringLiteral("The Last Updated field cannot be left blank")), kOk));
  QCOMPARE(desk.cell(0, 1), QStringLiteral("2010-06-15"));
  QCOMPARE(desk.onDisk(), written);

  // What another program writes is shown when the view is asked for again, shown or not.
  desk.writeFile("Shop", "sitemap.xml", sitemap(entry("http://shop.test/new", "")));
  desk.control<QAction>("xmlTBI").trigger();
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("1 entry"));
  // An empty date would be refused; an editor that is left as it was is not asked.
  desk.goTo(0, 1);
  QTest::keyClick(&desk.table(), Qt::Key_F2);
  QVERIFY(desk.editor() != nullptr);
  QTest::keyClick(desk.editor(), Qt::Key_Return);
  QVERIFY(comesTrue([&] { return desk.table().viewport()->findChild<QLineEdit*>() == nullptr; }));
  QVERIFY(noSheetLeft());
}

void XmlViewTest::writesWhatIsChosen() {
  const char* const actions[] = {"alwaysMenuItem",  "hourlyMenuItem", "dailyMenuItem",  "weeklyMenuItem",
                                 "monthlyMenuItem", "yearlyMenuItem", "neverMenuItem",  "pZeroPriority",
                                 "ponePriority",    "ptwoPriority",   "pthreePriority", "pfourPriority",
                                 "pfivePriority",   "psixPriority",   "psevenPriority", "peightPriority",
                                 "pninePriority",   "highestPriority"};
  XmlDesk desk;
  desk.control<QAction>(actions[0]).trigger();  // without a selection nothing happens
  QCOMPARE(desk.onDisk(), kThree);
  desk.goTo(1, 0);
  std::string frequency;
  for (int i = 0; i < 18; ++i) {
    auto& action = desk.control<QAction>(actions[i]);
    action.trigger();
    const bool isPriority = i >= 7;
    if (!isPriority) frequency = platform::toUtf8(action.text());
    const std::string priority = !isPriority ? "0.5" : i == 17 ? "1" : "0." + std::to_string(i - 7);
    QVERIFY(desk.onDisk().find(entry("http://shop.test/b", "2010-06-15", frequency, priority)) !=
            std::string::npos);
    QCOMPARE(desk.cell(1, isPriority ? 3 : 2), action.text());
  }
  desk.goTo(1, 3);
  QTest::keyClick(&desk.table(), Qt::Key_F2);
  QVERIFY(XmlDesk::menu() != nullptr);
  QCOMPARE(XmlDesk::menu()->activeAction()->objectName(), QStringLiteral("highestPriority"));
  XmlDesk::menu()->close();
}

void XmlViewTest::popsTheMenuUpInTheCell() {
  XmlDesk desk;
  QTest::mouseClick(desk.table().viewport(), Qt::LeftButton, {}, desk.middle(1, 2));  // selects only
  QCOMPARE(desk.currentRow(), 1);
  QVERIFY(QApplication::activePopupWidget() == nullptr);
  // On the arrow of another row it selects that first.
  QTest::mouseClick(desk.table().viewport(), Qt::LeftButton, {}, desk.arrow(2, 3));
  QVERIFY(XmlDesk::menu() != nullptr);
  QCOMPARE(XmlDesk::menu()->objectName(), QStringLiteral("prMenu"));
  QCOMPARE(desk.currentRow(), 2);
  QTest::keyClick(XmlDesk::menu(), Qt::Key_Down);
  QTest::keyClick(XmlDesk::menu(), Qt::Key_Return);
  QCOMPARE(desk.cell(2, 3), QStringLiteral("0.6"));
  desk.doubleClick(desk.middle(0, 2));
  const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {
      {Qt::Key_Return, {}}, {Qt::Key_Enter, {}}, {Qt::Key_Space, {}}, {Qt::Key_Down, Qt::AltModifier}};
  for (const auto& [key, modifiers] : keys) {
    QVERIFY(XmlDesk::menu() != nullptr);
    QCOMPARE(XmlDesk::menu()->objectName(), QStringLiteral("chFreqMenu"));
    XmlDesk::menu()->close();
    QTest::keyClick(&desk.table(), key, modifiers);
  }
  QVERIFY(XmlDesk::menu() != nullptr);
  XmlDesk::menu()->close();
  QCOMPARE(desk.cell(0, 2), QStringLiteral("monthly"));
}

void XmlViewTest::sortsByItsHeadings() {
  XmlDesk desk(sitemap(entry("http://shop.test/b", "2010-06-15", "never") +
                       entry("http://shop.test/c", "2010-06-14", "daily") +
                       entry("http://shop.test/a", "2010-06-16", "often")));
  const auto clickHeading = [&](int column) {
    QHeaderView& header = *desk.table().horizontalHeader();
    const QPoint place(header.sectionViewportPosition(column) + 20, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
  };
  const auto order = [&] {
    QString letters;
    for (int row = 0; row < desk.rows(); ++row) letters += desk.cell(row, 0).back();
    return letters;
  };
  QCOMPARE(order(), QStringLiteral("bca"));
  clickHeading(0);
  QCOMPARE(order(), QStringLiteral("abc"));
  clickHeading(0);
  QCOMPARE(order(), QStringLiteral("cba"));
  clickHeading(0);
  QCOMPARE(order(), QStringLiteral("bca"));
  clickHeading(2);  // from always to never, and what is none of those
  QCOMPARE(order(), QStringLiteral("cba"));
  desk.goTo(0, 0);
  desk.control<QAction>("yearlyMenuItem").trigger();
  QVERIFY(desk.type(1, 1, QStringLiteral("2011-02-03")));
  QCOMPARE(order(), QStringLiteral("cba"));
  desk.goTo(1, 0);
  QTest::keyClick(&desk.table(), Qt::Key_Delete);
  QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QCOMPARE(order(), QStringLiteral("ca"));
  QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/c", "2010-06-14", "yearly") +
                                  entry("http://shop.test/a", "2010-06-16", "often")));
}

void XmlViewTest::searchesAddresses() {
  XmlDesk desk;
  desk.goTo(1, 0);
  desk.control<QAction>("findSiteMI").trigger();
  auto& field = desk.control<QLineEdit>("xmlSearch");
  QVERIFY(field.hasFocus());
  QTest::keyClicks(&field, QStringLiteral("TEST/b"));
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("1 of 3 entries"));
  QCOMPARE(desk.table().model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("2"));
  QVERIFY(desk.enabled("delLinkButton"));
  // What the search hides is no longer selected, nor is anything in its place.
  field.setText(QStringLiteral("?a=1&b"));
  QCOMPARE(desk.rows(), 1);
  QVERIFY(!desk.enabled("delLinkButton"));
  desk.goTo(0, 0);
  desk.control<QAction>("copyMI").trigger();
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://shop.test/?a=1&b=2"));
  field.setText(QStringLiteral("/c"));
  desk.goTo(0, 0);
  desk.control<QAction>("neverMenuItem").trigger();
  QVERIFY(desk.click("delLinkButton"));
  QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/?a=1&b=2") + entry("http://shop.test/b")));
  QCOMPARE(desk.label("xmlCount"), QStringLiteral("Not found in 2 entries"));
}

void XmlViewTest::deletesOnlyWhenToldTo() {
  XmlDesk desk;
  QTest::keyClick(&desk.table(), Qt::Key_Delete);  // nothing is selected
  QVERIFY(topSheet() == nullptr);
  desk.goTo(0, 1);
  QVERIFY(desk.control<QAction>("delLinkMI").isEnabled());
  desk.control<QAction>("scanTBI").trigger();
  QVERIFY(!desk.control<QAction>("delLinkMI").isEnabled());
  desk.control<QAction>("xmlTBI").trigger();
  desk.goTo(0, 1);
  QVERIFY(desk.click("delLinkButton"));
  QMessageBox* sheet = message(kDeleteQuestion);
  QVERIFY(sheet != nullptr);
  QCOMPARE(sheet->informativeText(), QStringLiteral("http://shop.test/?a=1&b=2"));
  pressEscape(*sheet);
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk(), kThree);
  for (int left = 2; left >= 0; --left) {
    desk.window().activateWindow();
    desk.table().setFocus();
    QTest::keyClick(&desk.table(), Qt::Key_Delete);
    QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
    QCOMPARE(desk.rows(), left);
    QVERIFY(noSheetLeft());
  }
  QCOMPARE(desk.onDisk(), sitemap(""));
  QCOMPARE(desk.label("xmlEmptyHint"), QStringLiteral("The XML sitemap of Shop has no entries."));
}

void XmlViewTest::tellsWhatCouldNotBeSaved() {
  const std::string text =
      sitemap("<url><loc>a</loc><lastmod/><changefreq/><priority/><i:image>x</i:image></url>" +
              entry("http://shop.test/b") + "<url><loc>c</loc><priority>1</priority></url>");
  XmlDesk desk(text);
  QVERIFY(desk.control<QLabel>("xmlNotice").isVisible());  // of the image that goes
  desk.goTo(0, 0);
  desk.control<QAction>("neverMenuItem").trigger();
  QVERIFY(answer(message(QStringLiteral("An entry of the sitemap has no lastmod element, so the sitemap "
                                        "cannot be written.")),
                 kOk));
  QCOMPARE(desk.currentRow(), 2);
  QCOMPARE(desk.cell(0, 2), QString());
  QCOMPARE(desk.onDisk(), text);
  QVERIFY(noSheetLeft());
  QVERIFY(desk.click("delLinkButton"));
  QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
  QVERIFY(!desk.control<QLabel>("xmlNotice").isVisible());
  QCOMPARE(desk.onDisk(), sitemap(entry("a", "", "", "") + entry("http://shop.test/b")));
}

void XmlViewTest::leadsToFindings() {
  XmlDesk desk(sitemap(entry("http://shop.test/a", "", "never") + entry("http://shop.test/b", "2010-02-30") +
                       entry("http://shop.test/c", "2010-06-15", "often")));
  desk.control<QLineEdit>("xmlSearch").setText(QStringLiteral("/a"));
  QVERIFY(desk.click("validateXmlButton"));
  auto& list = desk.control<QListView>("xmlFindings");
  QCOMPARE(list.model()->rowCount(), 2);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(0, 0)).center());
  QCOMPARE(desk.rows(), 3);  // the search is over
  QCOMPARE(desk.table().currentIndex(), desk.table().model()->index(1, 1));
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_End);
  desk.control<QAction>("copyMI").trigger();
  QVERIFY(QGuiApplication::clipboard()->text().startsWith(QLatin1String("Entry 3, changefreq: \"often\"")));
  QTest::keyClick(&list, Qt::Key_Return);
  QCOMPARE(desk.table().currentIndex(), desk.table().model()->index(2, 2));
  desk.control<QAction>("dailyMenuItem").trigger();
  QVERIFY(desk.type(1, 1, QStringLiteral("2010-02-28")));
  // It is looked at again.
  const QString valid = QStringLiteral("The sitemap is valid.");
  QVERIFY(comesTrue([&] { return desk.label("xmlFindingsLabel") == valid; }));
  QVERIFY(!list.isVisible());
}

void XmlViewTest::saysWhatToDoWithoutEntries() {
  XmlDesk desk({}, "http://127.0.0.1:1/");
  QCOMPARE(desk.label("xmlEmptyHint"), QStringLiteral("Shop has no XML sitemap yet. A scan writes it."));
  QVERIFY(!desk.table().isVisible());
  QVERIFY(desk.click("xmlScanButton"));  // leads to the scan of the site; no server is there
  QCOMPARE(desk.window().state().qzvskCurrentView, 1);
  QVERIFY(comesTrue([] { return qobject_cast<QMessageBox*>(topSheet()) != nullptr; }));
  QVERIFY(answer(topSheet(), kOk));
  QVERIFY(noSheetLeft());
  desk.control<QAction>("xmlTBI").trigger();
  desk.control<QTableView>("siteListTable").clearSelection();  // as when the site is deleted from the menu
  QCOMPARE(desk.label("xmlEmptyHint"), QStringLiteral("Select a site to see its XML sitemap."));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::XmlViewTest>(argc, argv);
}

#include "xml_view_test.moc"
