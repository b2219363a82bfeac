// Adding, editing and deleting sites in the window. What an input becomes is tested with its rules.

#include <fstream>

#include "platform/files.h"
#include "platform/qt_text.h"
#include "store/site_record.h"
#include "store/site_settings.h"
#include "window_test.h"

namespace window_tests {

namespace {

const QString kMistakes = QStringLiteral("The following error has occurred while saving your site.");
const QString kTaken =
    QStringLiteral("The site you are trying to create already exists, please select a different name.");
const QString kAddress = QStringLiteral("www.shop.test");

/// The sheet with its two fields.
struct Editor {
  QDialog* sheet = sheetNamed(QStringLiteral("aedWindow"));

  bool isUp() const { return sheet != nullptr; }
  QLineEdit& name() const { return platform::control<QLineEdit>(*sheet, "aedSiteName"); }
  QLineEdit& url() const { return platform::control<QLineEdit>(*sheet, "aedSiteURL"); }
  QComboBox& links() const { return platform::control<QComboBox>(*sheet, "links"); }
  QPushButton& button(const char* which) const { return platform::control<QPushButton>(*sheet, which); }

  /// Fills in both fields and confirms.
  bool submit(const QString& newName, const QString& newUrl) const {
    const std::pair<QLineEdit*, QString> fields[] = {{&name(), newName}, {&url(), newUrl}};
    for (const auto& [field, text] : fields) {
      QTest::keySequence(field, QKeySequence::SelectAll);
      field->insert(text);
    }
    return click(button("defaultButton"));
  }
  bool holds(const QString& itsName, const QString& itsUrl) const {
    return name().text() == itsName && url().text() == itsUrl;
  }
  /// That the sheet is back with what was typed, once the alert on it was answered.
  bool comesBackFrom(const QString& title, const QString& itsName, const QString& itsUrl) const {
    QMessageBox* alert = message(title);
    const bool belongs =
        alert != nullptr && alert->parentWidget() == sheet && !button("defaultButton").isEnabled();
    return belongs && answer(alert, kOk) && topSheet() == sheet && holds(itsName, itsUrl);
  }
};

/// The sheet for a site that is selected first.
Editor edit(const Desk& desk, const QString& site) {
  desk.select(site);
  desk.click("editSiteButton");
  return {};
}

}  // namespace

class SiteEditorTest : public QObject {
  Q_OBJECT

 private slots:
  void addsBySheetAndKeys() {
    Desk desk;
    for (int i = 0; i < 60; ++i) desk.makeSite("Blog " + std::to_string(100 + i), "http://blog.test/");
    desk.open();
    desk.control<QLineEdit>("siteSearch").setText(QStringLiteral("Blog 101"));
    QTest::keyClick(&desk.window(), Qt::Key_N, Qt::ControlModifier);
    const Editor editor;
    QVERIFY(editor.isUp() && editor.holds({}, {}));
    QVERIFY(comesTrue([&] { return editor.name().hasFocus(); }));
    QTest::keyClicks(&editor.name(), QStringLiteral("a.b"));
    QTest::keyClick(&editor.name(), Qt::Key_Tab);
    QTest::keyClicks(&editor.url(), kAddress);
    QTest::keyClick(&editor.url(), Qt::Key_Return);
    QVERIFY(editor.comesBackFrom(kMistakes, QStringLiteral("a.b"), kAddress));
    QVERIFY(editor.url().hasFocus());

    QVERIFY(editor.submit(QStringLiteral("Blog 100"), kAddress));
    QVERIFY(editor.comesBackFrom(kTaken, QStringLiteral("Blog 100"), kAddress));
    QVERIFY(editor.submit(kShop, kAddress) && noSheetLeft());
    QCOMPARE(desk.record("Shop"), store::newSiteRecord("Shop", "http://www.shop.test/"));
    QVERIFY(desk.nothingSelected());
    // It is to be seen in the list, although nobody searched for it and it is the last one.
    QCOMPARE(desk.listedSites().size(), 61);
    const auto& table = desk.control<QTableView>("siteListTable");
    QVERIFY(table.viewport()->rect().contains(table.visualRect(table.model()->index(60, 0)).center()));
  }

  void renames() {
    Desk desk;
    QVERIFY(desk.reasons.save("Shop", {{"http://shop.test/gone", "404 - Not Found"}}).ok());
    desk.openShop({}, "<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>\n");
    QTest::keyClick(&desk.window(), Qt::Key_I, Qt::ControlModifier);
    const Editor editor;
    QVERIFY(editor.isUp() && editor.holds(kShop, QStringLiteral("http://shop.test/")));
    QVERIFY(editor.submit(QStringLiteral("Caf\u00e9"), QStringLiteral("https://shop.test/start.php")) &&
            noSheetLeft());
    QCOMPARE(desk.listedSites(), QStringList{QStringLiteral("Caf\u00e9")});
    const std::string name = platform::toUtf8(QStringLiteral("Caf\u00e9"));
    QVERIFY(desk.record(name).starts_with("<siteName>" + name +
                                          "</siteName>\n<siteURL>https://shop.test/start.php</siteURL>\n"));
    QVERIFY(desk.reasons.savedAt(name));
    QVERIFY(desk.nothingSelected());
  }

  void choosesHowLinksAreFollowed() {
    Desk desk;
    desk.openShop();
    const auto stored = [&] {
      return static_cast<int>(store::readSettings(desk.stateFolder, "Store").settings.links);
    };
    const QString other = QStringLiteral("Store");
    for (const int links : {1, 0}) {  // with a new name, and then alone
      const Editor editor = edit(desk, links == 1 ? kShop : other);
      QCOMPARE(editor.links().currentIndex(), 1 - links);
      editor.links().setCurrentIndex(links);
      QVERIFY(editor.submit(other, kAddress) && noSheetLeft());
      QCOMPARE(stored(), links);
    }
    // What somebody else chooses meanwhile stays, unless it was chosen here, too.
    const Editor editor = edit(desk, other);
    const auto browser = [](auto& settings) { settings.links = store::LinkStyle::browser; };
    QVERIFY(store::changeSettings(desk.controls, desk.stateFolder, "Store", browser).ok());
    QVERIFY(editor.submit(other, kAddress) && noSheetLeft());
    QCOMPARE(stored(), 1);
    QVERIFY(edit(desk, other).links().currentIndex() == 1 && dismiss(topSheet()));
    QVERIFY(desk.click("addSiteButton"));
    QCOMPARE(Editor().links().currentIndex(), 0);  // of a new site, whatever the other one had
    // What cannot be kept is told.
    const std::filesystem::path sites = desk.stateFolder.location() / "sites";
    std::filesystem::remove_all(sites);
    std::ofstream(sites) << "no folder";
    Editor().links().setCurrentIndex(1);
    QVERIFY(Editor().submit(kShop, kAddress));
    const auto* alert = qobject_cast<QMessageBox*>(sheetNamed({}));
    QVERIFY(alert && alert->text().startsWith(QLatin1String("Could not save ")));
    QVERIFY(answer(topSheet(), kOk));
  }

  /// The other site gets the address. When it cannot get it, that is told.
  void tellsOfANameThatIsTaken() {
    for (const bool writable : {true, false}) {
      Desk desk;
      desk.makeSite("Blog", "http://blog.test/");
      desk.openShop();
      if (!writable) std::filesystem::remove(desk.controls.returnFullFileLocation("Blog"));
      const Editor editor = edit(desk, kShop);
      QVERIFY(editor.isUp());
      const std::string edited = desk.record("Shop");
      QVERIFY(editor.submit(QStringLiteral("Blog"), QStringLiteral("http://new.test/")));
      QMessageBox* alert = message(
          QStringLiteral("A site with the name \"Blog\" already exists, please delete this site first "
                         "or select a different name."));
      QVERIFY(alert && !editor.sheet->isVisible());
      QCOMPARE(alert->informativeText().isEmpty(), writable);
      QVERIFY(answer(alert, kOk));
      QCOMPARE(desk.record("Shop"), edited);
      QCOMPARE(desk.record("Blog"),
               writable ? store::newSiteRecord("Blog", "http://new.test/") : std::string("(missing)"));
      QVERIFY(desk.nothingSelected());
    }
  }

  void changesNothingOfASiteThatIsScannedOrWhenCancelled() {
    Desk desk;
    desk.openShop();
    const std::string before = desk.record("Shop");
    const Editor cancelled = edit(desk, kShop);
    QVERIFY(cancelled.isUp());
    {
      const platform::FolderLock scan(desk.controls.siteFolder("Shop"));
      QVERIFY(cancelled.submit(QStringLiteral("Store"), kAddress));
      const QString busy = QStringLiteral("The site \"Shop\" is being scanned.");
      QVERIFY(cancelled.comesBackFrom(busy, QStringLiteral("Store"), kAddress));
    }
    QVERIFY(click(cancelled.button("alternateButton")));
    QVERIFY(noSheetLeft() && desk.nothingSelected());
    QCOMPARE(desk.listedSites(), QStringList{kShop});
    QCOMPARE(desk.record("Shop"), before);
    QVERIFY(desk.select(kShop));
    std::filesystem::remove_all(desk.controls.siteFolder("Shop"));
    QVERIFY(desk.click("editSiteButton"));
    const QMessageBox* alert = qobject_cast<QMessageBox*>(sheetNamed({}));
    QVERIFY(alert && alert->text().contains(QLatin1String("Shop.qzVSK")));
    QVERIFY(answer(topSheet(), kOk));
    QVERIFY(desk.click("addSiteButton"));
    const Editor editor;
    QVERIFY(editor.isUp() && editor.holds({}, {}));  // nothing of it sticks to the next sheet
  }

  void deletes() {
    Desk desk;
    desk.makeSite("Blog", "http://blog.test/");
    desk.makeSite("<b>Shop", "http://shop.test/");
    QVERIFY(desk.reasons.save("<b>Shop", {{"http://shop.test/gone", "404 - Not Found"}}).ok());
    desk.open();
    // The first key that moves selects the first site.
    desk.control<QTableView>("siteListTable").setFocus();
    QTest::keyClick(&desk.control<QTableView>("siteListTable"), Qt::Key_Down);
    QCOMPARE(desk.label("siteName"), QStringLiteral("<b>Shop"));
    const QString question = QStringLiteral("Do you really want to delete the site:\n<b>Shop");
    QTest::keyClick(&desk.control<QTableView>("siteListTable"), Qt::Key_Delete);
    QMessageBox* asked = message(question);
    QVERIFY(asked);
    QCOMPARE(asked->textFormat(), Qt::PlainText);
    QVERIFY(dismiss(asked));
    QVERIFY(std::filesystem::exists(desk.controls.siteFolder("<b>Shop")));

    QVERIFY(desk.click("deleteSiteButton"));
    QVERIFY(answer(message(question), QStringLiteral("Delete")));
    QVERIFY(comesTrue([&] { return desk.listedSites() == QStringList{QStringLiteral("Blog")}; }));
    QVERIFY(!std::filesystem::exists(desk.controls.siteFolder("<b>Shop")));
    QVERIFY(!desk.reasons.savedAt("<b>Shop"));
    QVERIFY(desk.nothingSelected());
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::SiteEditorTest>(argc, argv);
}

#include "site_editor_test.moc"
