// The view of the XML sitemap: its table, menus, sheets and findings.
#include <QListView>
#include <utility>

#include "platform/qt_text.h"
#include "sitemaps/xml_format.h"
#include "window_test.h"

namespace window_tests {

namespace {

const QString kDeleteLink = QStringLiteral("Delete Link");
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
    if (!text.empty()) writeFile("Shop", "sitemap.xml", text);
    openShop(url);
    go(4);
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
  /// The editor of the cell, once it is open.
  QLineEdit* editor() const {
    const auto isOpen = [this] { return table().viewport()->findChild<QLineEdit*>() != nullptr; };
    return comesTrue(isOpen) ? table().viewport()->findChild<QLineEdit*>() : nullptr;
  }
  /// Opens the editor by its key, types a text in place of the old one, and presses Return.
  bool type(int row, int column, const QString& text) const {
    goTo(row, column);
    QTest::keyClick(&table(), Qt::Key_F2);
    QLineEdit* line = editor();
    if (line == nullptr) return false;
    line->selectAll();
    text.isEmpty() ? QTest::keyClick(line, Qt::Key_Delete) : QTest::keyClicks(line, text);
    QTest::keyClick(line, Qt::Key_Return);
    return editorIsClosed();
  }
  bool editorIsClosed() const {
    return comesTrue([this] { return table().viewport()->findChild<QLineEdit*>() == nullptr; });
  }
  bool deleteLink() const {
    return noSheetLeft() && click("delLinkButton") && answer(message(kDeleteQuestion), kDeleteLink);
  }
  /// The menu that is up.
  static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
};

}  // namespace

class XmlViewTest : public QObject {
  Q_OBJECT

 private slots:
  void writesWhatIsTyped() {
    XmlDesk desk;
    QVERIFY(desk.type(1, 0, QStringLiteral("http://shop.test/$1?x&y")));
    QVERIFY(desk.type(2, 1, QStringLiteral("2011-02-03")));
    const std::string written =
        sitemap(entry("http://shop.test/?a=1&b=2") + entry("http://shop.test/$1?x&y") +
                entry("http://shop.test/c", "2011-02-03"));
    QCOMPARE(desk.onDisk(), written);

    // The mouse opens the editor too; the view looks at the click before.
    QTest::mouseClick(desk.table().viewport(), Qt::LeftButton, {}, desk.middle(0, 0));
    QTest::mouseDClick(desk.table().viewport(), Qt::LeftButton, {}, desk.middle(0, 0));
    QVERIFY(desk.editor() != nullptr);
    QTest::keyClicks(desk.editor(), QStringLiteral("other"));
    QTest::keyClick(desk.editor(), Qt::Key_Escape);
    QVERIFY(desk.editorIsClosed());
    QVERIFY(desk.type(0, 1, {}));
    QVERIFY(answer(message(QStringLiteral("The Last Updated field cannot be left blank")), kOk));
    QCOMPARE(desk.onDisk(), written);

    // What another program writes is shown when the view is asked for again, shown or not.
    desk.writeFile("Shop", "sitemap.xml", sitemap(entry("http://shop.test/new", "")));
    desk.go(4);
    QCOMPARE(desk.label("xmlCount"), QStringLiteral("1 entry"));
    QVERIFY(desk.type(0, 1, {}));  // would be refused, but an editor that is left as it was is not asked
    QVERIFY(noSheetLeft());
  }

  void takesOverWhatWasEditedBefore() {
    XmlDesk desk;
    auto& takeOver = desk.control<QAction>("takeOverMI");
    QVERIFY(!takeOver.isEnabled());
    const auto former = desk.stateFolder.ofSite("Shop") / "former";
    std::filesystem::create_directories(former);
    const std::string edited = sitemap(entry("http://shop.test/?a=1&b=2", "2001-02-03", "daily", "0.9") +
                                       entry("http://shop.test/gone", "", "never", "0.0"));
    QVERIFY(platform::replaceFile(former / "sitemap.xml", edited).ok());
    desk.go(4);
    QVERIFY(takeOver.isEnabled());
    takeOver.trigger();
    QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/?a=1&b=2", "2010-06-15", "daily", "0.9") +
                                    entry("http://shop.test/b") + entry("http://shop.test/c", "")));
    QCOMPARE(desk.cell(0, 3), QStringLiteral("0.9"));
    QCOMPARE(desk.status(), QStringLiteral("Took over 2 edited values of the previous sitemap"));
    takeOver.trigger();
    QCOMPARE(desk.status(),
             QStringLiteral("No edited values of the previous sitemap are missing in this one"));
    desk.go(1);
    QVERIFY(!takeOver.isEnabled());
  }

  void writesWhatIsChosen() {
    XmlDesk desk;
    desk.control<QAction>("alwaysMenuItem").trigger();  // without a selection nothing happens
    QCOMPARE(desk.onDisk(), kThree);
    QTest::mouseClick(desk.table().viewport(), Qt::LeftButton, {}, desk.middle(1, 2));  // selects only
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    desk.control<QAction>("hourlyMenuItem").trigger();
    desk.control<QAction>("highestPriority").trigger();
    // On the arrow of another row it selects that first.
    QTest::mouseClick(desk.table().viewport(), Qt::LeftButton, {}, desk.arrow(2, 3));
    QVERIFY(XmlDesk::menu() != nullptr);
    QCOMPARE(XmlDesk::menu()->objectName(), QStringLiteral("prMenu"));
    QTest::keyClick(XmlDesk::menu(), Qt::Key_Down);  // from the value that it has
    QTest::keyClick(XmlDesk::menu(), Qt::Key_Return);
    QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/?a=1&b=2") +
                                    entry("http://shop.test/b", "2010-06-15", "hourly", "1") +
                                    entry("http://shop.test/c", "", "monthly", "0.6")));
    desk.goTo(0, 2);
    QTest::keyClick(&desk.table(), Qt::Key_Return);
    QVERIFY(XmlDesk::menu() != nullptr);
    QCOMPARE(XmlDesk::menu()->objectName(), QStringLiteral("chFreqMenu"));
    XmlDesk::menu()->close();
  }

  void sortsByItsHeadings() {
    XmlDesk desk(sitemap(entry("b", "", "never") + entry("c", "", "daily") + entry("a", "", "often")));
    // By the address there and back, as in the sitemap, and from always to never and what is none of those.
    for (const auto& [column, letters] :
         {std::pair(0, "abc"), std::pair(0, "cba"), std::pair(0, "bca"), std::pair(2, "cba")}) {
      QHeaderView& header = *desk.table().horizontalHeader();
      const QPoint place(header.sectionViewportPosition(column) + 20, header.height() / 2);
      QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
      QCOMPARE(desk.cell(0, 0) + desk.cell(1, 0) + desk.cell(2, 0), QLatin1String(letters));
    }
    QTest::keyClick(&desk.table(), Qt::Key_Delete);  // nothing is selected
    QVERIFY(topSheet() == nullptr);
    desk.goTo(1, 0);
    QTest::keyClick(&desk.table(), Qt::Key_Delete);
    QVERIFY(answer(message(kDeleteQuestion), kDeleteLink));
    QCOMPARE(desk.onDisk(), sitemap(entry("c", "", "daily") + entry("a", "", "often")));
  }

  void searchesAddresses() {
    XmlDesk desk;
    desk.goTo(1, 0);
    desk.control<QAction>("findSiteMI").trigger();
    auto& field = desk.control<QLineEdit>("xmlSearch");
    QVERIFY(field.hasFocus());
    QTest::keyClicks(&field, QStringLiteral("TEST/b"));
    QCOMPARE(desk.label("xmlCount"), QStringLiteral("1 of 3 entries"));
    QVERIFY(desk.enabled("delLinkButton"));
    // What the search hides is no longer selected, nor is anything in its place.
    field.setText(QStringLiteral("/c"));
    QCOMPARE(desk.rows(), 1);
    QVERIFY(!desk.enabled("delLinkButton"));
    desk.goTo(0, 0);
    desk.control<QAction>("copyMI").trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://shop.test/c"));
    QVERIFY(desk.click("delLinkButton"));
    QMessageBox* sheet = message(kDeleteQuestion);
    QVERIFY(sheet);
    QCOMPARE(sheet->informativeText(), QStringLiteral("http://shop.test/c"));
    QVERIFY(dismiss(sheet));
    QCOMPARE(desk.onDisk(), kThree);
    QVERIFY(desk.deleteLink());
    QCOMPARE(desk.onDisk(), sitemap(entry("http://shop.test/?a=1&b=2") + entry("http://shop.test/b")));
    QCOMPARE(desk.label("xmlCount"), QStringLiteral("Not found in 2 entries"));
  }

  void tellsWhatCouldNotBeSaved() {
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
    QCOMPARE(desk.onDisk(), text);
    QVERIFY(desk.deleteLink());
    QVERIFY(!desk.control<QLabel>("xmlNotice").isVisible());
    QCOMPARE(desk.onDisk(), sitemap(entry("a", "", "", "") + entry("http://shop.test/b")));
  }

  void leadsToFindings() {
    XmlDesk desk(sitemap(entry("http://shop.test/a", "", "never") +
                         entry("http://shop.test/b", "2010-02-30") +
                         entry("http://shop.test/c", "2010-06-15", "often")));
    desk.control<QLineEdit>("xmlSearch").setText(QStringLiteral("/a"));
    QVERIFY(desk.click("validateXmlButton"));
    auto& list = desk.control<QListView>("xmlFindings");
    QVERIFY(comesTrue([&] { return list.model()->rowCount() == 2; }));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(0, 0)).center());
    QCOMPARE(desk.rows(), 3);  // the search is over
    QCOMPARE(desk.table().currentIndex(), desk.table().model()->index(1, 1));
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(desk.table().currentIndex(), desk.table().model()->index(2, 2));
    desk.control<QAction>("dailyMenuItem").trigger();
    QVERIFY(desk.type(1, 1, QStringLiteral("2010-02-28")));
    // It is looked at again.
    const QString valid = QStringLiteral("The sitemap is valid.");
    QVERIFY(comesTrue([&] { return desk.label("xmlFindingsLabel") == valid; }));
    QVERIFY(!list.isVisible());
  }

  void saysWhatToDoWithoutEntries() {
    XmlDesk desk({}, "http://127.0.0.1:1/");
    QCOMPARE(desk.label("xmlEmptyHint"), QStringLiteral("Shop has no XML sitemap yet. A scan writes it."));
    QVERIFY(desk.click("xmlScanButton"));  // leads to the scan of the site; no server is there
    QVERIFY(answer(message(QStringLiteral("The Site URL Could Not Be Reached")), kOk) && noSheetLeft());
    desk.go(4);
    desk.control<QTableView>("siteListTable").clearSelection();  // as when the site is deleted from the menu
    QCOMPARE(desk.label("xmlEmptyHint"), QStringLiteral("Select a site to see its XML sitemap."));
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::XmlViewTest>(argc, argv);
}

#include "xml_view_test.moc"
