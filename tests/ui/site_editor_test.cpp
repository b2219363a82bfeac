// Adding, editing and deleting sites in the window.
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>

#include "platform/files.h"
#include "platform/qt_text.h"
#include "store/site_record.h"
#include "window_test.h"

namespace window_tests {

namespace {

const QString kMistakes = QStringLiteral("The following error has occurred while saving your site.");
const QString kEditor = QStringLiteral("aedWindow");

/// The sheet with its two fields.
struct Editor {
  QDialog* sheet = sheetNamed(kEditor);

  bool isUp() const { return sheet != nullptr; }
  QLineEdit& name() const { return platform::control<QLineEdit>(*sheet, "aedSiteName"); }
  QLineEdit& url() const { return platform::control<QLineEdit>(*sheet, "aedSiteURL"); }
  QPushButton& button(const char* which) const { return platform::control<QPushButton>(*sheet, which); }

  void fill(const QString& newName, const QString& newUrl) const {
    const std::pair<QLineEdit*, QString> fields[] = {{&name(), newName}, {&url(), newUrl}};
    for (const auto& [field, text] : fields) {
      QTest::keySequence(field, QKeySequence::SelectAll);
      field->insert(text);
    }
  }
  bool confirm() const { return click(button("defaultButton")); }
  bool holds(const QString& itsName, const QString& itsUrl) const {
    return name().text() == itsName && url().text() == itsUrl;
  }
};

void closeBy(const QString& way, const Editor& editor) {
  if (way == QLatin1String("Escape")) {
    pressEscape(*editor.sheet);
  } else if (way == QLatin1String("Cancel")) {
    click(editor.button("alternateButton"));
  } else {
    editor.sheet->close();  // by its title bar
  }
}

}  // namespace

class SiteEditorTest : public QObject {
  Q_OBJECT

 private slots:
  void addsASite();
  void addsByKeysAlone();
  void tellsEveryMistake_data();
  void tellsEveryMistake();
  void refusesANameThatExists();
  void changesTheUrlAlone();
  void renamesTheFolder();
  void overwritesTheOtherSitesUrlOnAClash();
  void tellsOfARecordThatIsGone();
  void refusesASiteThatIsBeingScanned();
  void closesWithoutAChange_data();
  void closesWithoutAChange();
  void asksBeforeDeleting_data();
  void asksBeforeDeleting();
  void deletes();
};

void SiteEditorTest::addsASite() {
  Desk desk;
  desk.makeSite("Blog", "http://blog.test/");
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Blog")));
  QVERIFY(desk.click("addSiteButton"));
  const Editor editor;
  QVERIFY(editor.isUp());
  QCOMPARE(editor.sheet->windowTitle(), QStringLiteral("Add New Site"));
  QCOMPARE(editor.button("defaultButton").text(), QStringLiteral("Add Site"));
  QCOMPARE(editor.button("alternateButton").text(), QStringLiteral("Cancel"));
  QCOMPARE(editor.sheet->windowModality(), Qt::WindowModal);
  QVERIFY(editor.holds({}, {}));

  editor.fill(QStringLiteral("Shop"), QStringLiteral("www.shop.test"));
  QVERIFY(editor.confirm());
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.record("Shop"), store::newSiteRecord("Shop", "http://www.shop.test/"));
  QCOMPARE(desk.listedSites(), (QStringList{QStringLiteral("Blog"), QStringLiteral("Shop")}));
  QVERIFY(desk.nothingSelected());
  QVERIFY(!desk.enabled("scanSiteButton"));
}

void SiteEditorTest::addsByKeysAlone() {
  Desk desk;
  desk.open();
  QTest::keyClick(&desk.window(), Qt::Key_N, Qt::ControlModifier);
  const Editor editor;
  QVERIFY(editor.isUp());
  QVERIFY(comesTrue([&] { return editor.name().hasFocus(); }));
  QTest::keyClicks(&editor.name(), QStringLiteral("Shop"));
  QTest::keyClick(&editor.name(), Qt::Key_Tab);
  QVERIFY(editor.url().hasFocus());
  QTest::keyClicks(&editor.url(), QStringLiteral("http://shop.test/"));
  QTest::keyClick(&editor.url(), Qt::Key_Return);
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.listedSites(), QStringList{QStringLiteral("Shop")});
}

void SiteEditorTest::tellsEveryMistake_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QString>("url");
  QTest::addColumn<QString>("told");
  const QString blankName = QStringLiteral("The site name field cannot be left blank.");
  const QString forbidden =
      QStringLiteral("\nThe site name cannot contain the following characters: / \\ . or ?");
  const QString blankUrl = QStringLiteral("\nThe site URL field cannot be left blank.");
  const QString scheme =
      QStringLiteral("\nURLs must begin http:// or https://\nftp:// etc scans are not available.");
  const QString url = QStringLiteral("http://shop.test/");
  QTest::newRow("nothing entered") << QString() << QString() << blankName + blankUrl;
  QTest::newRow("blank before the name") << QStringLiteral(" shop") << url << blankName;
  QTest::newRow("blank behind the name") << QStringLiteral("shop ") << url << blankName;
  QTest::newRow("two kinds of characters") << QStringLiteral("a.b/c.d") << url << forbidden + forbidden;
  QTest::newRow("all kinds of characters")
      << QStringLiteral("?.\\/") << url << forbidden + forbidden + forbidden + forbidden;
  QTest::newRow("blank before the URL") << QStringLiteral("Shop") << QStringLiteral(" shop.test") << blankUrl;
  QTest::newRow("ftp") << QStringLiteral("Shop") << QStringLiteral("ftp://shop.test/") << scheme;
  QTest::newRow("ftps") << QStringLiteral("Shop") << QStringLiteral("ftps://shop.test/") << scheme;
  QTest::newRow("everything") << QStringLiteral("a?") << QStringLiteral("  ") << forbidden + blankUrl;
}

void SiteEditorTest::tellsEveryMistake() {
  QFETCH(const QString, name);
  QFETCH(const QString, url);
  QFETCH(const QString, told);
  Desk desk;
  desk.open();
  QVERIFY(desk.click("addSiteButton"));
  const Editor editor;
  QVERIFY(editor.isUp());
  editor.fill(name, url);
  QVERIFY(editor.confirm());

  QMessageBox* alert = message(kMistakes);
  QVERIFY(alert);
  QCOMPARE(alert->informativeText(), told);
  QCOMPARE(alert->parentWidget(), editor.sheet);
  QVERIFY(hasButtons(*alert, {QStringLiteral("OK")}));
  QVERIFY(answer(alert, QStringLiteral("OK")));
  QCOMPARE(topSheet(), editor.sheet);
  QVERIFY(editor.holds(name, url));
  QVERIFY(std::filesystem::is_empty(desk.controls.homeFolderLocation()));

  // The sheet goes on from there.
  editor.fill(QStringLiteral("Shop"), QStringLiteral("http://shop.test/"));
  QVERIFY(editor.confirm());
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.listedSites(), QStringList{QStringLiteral("Shop")});
}

void SiteEditorTest::refusesANameThatExists() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.open();
  const std::string before = desk.record("Shop");
  QVERIFY(desk.click("addSiteButton"));
  const Editor editor;
  QVERIFY(editor.isUp());
  editor.fill(QStringLiteral("Shop"), QStringLiteral("http://other.test/"));
  QVERIFY(editor.confirm());
  QMessageBox* alert = message(
      QStringLiteral("The site you are trying to create already exists, please select a different name."));
  QVERIFY(alert);
  QCOMPARE(alert->parentWidget(), editor.sheet);
  pressEscape(*alert);
  QVERIFY(comesTrue([&] { return topSheet() == editor.sheet; }));
  QVERIFY(editor.holds(QStringLiteral("Shop"), QStringLiteral("http://other.test/")));
  QCOMPARE(desk.record("Shop"), before);
}

void SiteEditorTest::changesTheUrlAlone() {
  Desk desk;
  const std::string rest =
      "\n<ignoreRobotFile>YES</ignoreRobotFile>\n<pagesFound>7</pagesFound>\n<totalLinks>9</totalLinks>"
      "\n<pagesUsed>6</pagesUsed>\nfree text";
  const std::string name = "<siteName>Shop</siteName>\n";
  desk.makeSite("Shop", "", name + "<siteURL>http://shop.test/</siteURL>" + rest);
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Shop")));
  QVERIFY(desk.click("editSiteButton"));
  const Editor editor;
  QVERIFY(editor.isUp());
  QCOMPARE(editor.sheet->windowTitle(), QStringLiteral("Edit Site"));
  QCOMPARE(editor.button("defaultButton").text(), QStringLiteral("Save Changes"));
  QCOMPARE(editor.button("alternateButton").text(), QStringLiteral("Cancel"));
  QVERIFY(editor.holds(QStringLiteral("Shop"), QStringLiteral("http://shop.test/")));

  editor.fill(QStringLiteral("Shop"), QStringLiteral("https://shop.test/start.php"));
  QVERIFY(editor.confirm());
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.record("Shop"), name + "<siteURL>https://shop.test/start.php</siteURL>" + rest);
  QVERIFY(desk.nothingSelected());
}

void SiteEditorTest::renamesTheFolder() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.writeFile("Shop", "sitemap.xml", "<urlset>");
  QVERIFY(desk.reasons.save("Shop", {{"http://shop.test/gone", "404 - Not Found"}}).ok());
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Shop")));
  QTest::keyClick(&desk.window(), Qt::Key_I, Qt::ControlModifier);
  const Editor editor;
  QVERIFY(editor.isUp());
  editor.fill(QStringLiteral("Caf\u00e9"), QStringLiteral("http://shop.test/"));
  QVERIFY(editor.confirm());
  QVERIFY(noSheetLeft());
  QVERIFY(!std::filesystem::exists(desk.controls.siteFolder("Shop")));
  QCOMPARE(desk.listedSites(), QStringList{QStringLiteral("Caf\u00e9")});
  const std::string name = platform::toUtf8(QStringLiteral("Caf\u00e9"));
  QVERIFY(desk.record(name).starts_with("<siteName>" + name + "</siteName>\n"));
  QVERIFY(desk.file(name, "Shop.qzVSK") == "(missing)");
  QCOMPARE(desk.file(name, "sitemap.xml"), std::string("<urlset>"));
  QCOMPARE(desk.reasons.lookUp(name, {"http://shop.test/gone"}).front().reason,
           std::string("404 - Not Found"));
  QVERIFY(desk.nothingSelected());
}

void SiteEditorTest::overwritesTheOtherSitesUrlOnAClash() {
  Desk desk;
  desk.makeSite("Blog", "http://blog.test/");
  desk.makeSite("Shop", "http://shop.test/");
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Shop")));
  const std::string edited = desk.record("Shop");
  QVERIFY(desk.click("editSiteButton"));
  const Editor editor;
  QVERIFY(editor.isUp());
  editor.fill(QStringLiteral("Blog"), QStringLiteral("http://new.test/"));
  QVERIFY(editor.confirm());
  QMessageBox* alert =
      message(QStringLiteral("A site with the name \"Blog\" already exists, please delete this site first or "
                             "select a different name."));
  QVERIFY(alert);
  QCOMPARE(alert->parentWidget(), &desk.window());
  QVERIFY(!editor.sheet->isVisible());
  QVERIFY(answer(alert, QStringLiteral("OK")));
  QCOMPARE(desk.record("Shop"), edited);
  QCOMPARE(desk.record("Blog"), store::newSiteRecord("Blog", "http://new.test/"));
  QVERIFY(desk.nothingSelected());
}

void SiteEditorTest::tellsOfARecordThatIsGone() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Shop")));
  std::filesystem::remove_all(desk.controls.siteFolder("Shop"));
  QVERIFY(desk.click("editSiteButton"));
  QVERIFY(comesTrue([] { return topSheet() != nullptr; }));
  const auto* alert = qobject_cast<QMessageBox*>(topSheet());
  QVERIFY(alert);
  QVERIFY(alert->text().contains(QLatin1String("Shop.qzVSK")));
  QVERIFY(answer(topSheet(), QStringLiteral("OK")));

  // Nothing of it sticks to the next sheet.
  QVERIFY(desk.click("addSiteButton"));
  const Editor editor;
  QVERIFY(editor.isUp());
  QVERIFY(editor.holds({}, {}));
}

void SiteEditorTest::refusesASiteThatIsBeingScanned() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Shop")));
  const std::string before = desk.record("Shop");
  const QString busy = QStringLiteral("The site \"Shop\" is being scanned.");
  const platform::FolderLock scan(desk.controls.siteFolder("Shop"));

  QVERIFY(desk.click("editSiteButton"));
  const Editor editor;
  QVERIFY(editor.isUp());
  editor.fill(QStringLiteral("Store"), QStringLiteral("http://shop.test/"));
  QVERIFY(editor.confirm());
  QVERIFY(answer(message(busy), QStringLiteral("OK")));
  QCOMPARE(topSheet(), editor.sheet);
  pressEscape(*editor.sheet);
  QVERIFY(noSheetLeft());

  QVERIFY(desk.select(QStringLiteral("Shop")));
  QVERIFY(desk.click("deleteSiteButton"));
  QVERIFY(answer(message(QStringLiteral("Do you really want to delete the site:\nShop")),
                 QStringLiteral("Delete")));
  QVERIFY(answer(message(busy), QStringLiteral("OK")));
  QCOMPARE(desk.record("Shop"), before);
}

void SiteEditorTest::closesWithoutAChange_data() {
  QTest::addColumn<QString>("command");
  QTest::addColumn<QString>("way");
  for (const char* way : {"Escape", "Cancel", "title bar"}) {
    QTest::addRow("add, %s", way) << QStringLiteral("addSiteButton") << QString::fromLatin1(way);
    QTest::addRow("edit, %s", way) << QStringLiteral("editSiteButton") << QString::fromLatin1(way);
  }
}

void SiteEditorTest::closesWithoutAChange() {
  QFETCH(const QString, command);
  QFETCH(const QString, way);
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Shop")));
  const std::string before = desk.record("Shop");
  QVERIFY(desk.click(command.toLatin1().constData()));
  const Editor editor;
  QVERIFY(editor.isUp());
  editor.fill(QStringLiteral("Other"), QStringLiteral("http://other.test/"));
  closeBy(way, editor);
  QVERIFY(noSheetLeft());
  QVERIFY(desk.nothingSelected());
  QCOMPARE(desk.record("Shop"), before);
  QCOMPARE(desk.listedSites(), QStringList{QStringLiteral("Shop")});

  QVERIFY(desk.click("addSiteButton"));
  QVERIFY(sheetNamed(kEditor));
  QVERIFY(editor.holds({}, {}));
  QVERIFY(comesTrue([&] { return editor.name().hasFocus(); }));
}

void SiteEditorTest::asksBeforeDeleting_data() {
  QTest::addColumn<bool>("escape");
  QTest::newRow("Cancel") << false;
  QTest::newRow("Escape") << true;
}

void SiteEditorTest::asksBeforeDeleting() {
  QFETCH(const bool, escape);
  Desk desk;
  desk.makeSite("<b>Shop", "http://shop.test/");
  desk.open();
  QVERIFY(desk.select(QStringLiteral("<b>Shop")));
  QVERIFY(desk.click("deleteSiteButton"));
  QMessageBox* question = message(QStringLiteral("Do you really want to delete the site:\n<b>Shop"));
  QVERIFY(question);
  QCOMPARE(question->textFormat(), Qt::PlainText);
  QCOMPARE(question->parentWidget(), &desk.window());
  QVERIFY(hasButtons(*question, {QStringLiteral("Delete"), QStringLiteral("Cancel")}));
  QCOMPARE(question->defaultButton()->text(), QStringLiteral("Delete"));
  if (escape) {
    pressEscape(*question);
  } else {
    QVERIFY(answer(question, QStringLiteral("Cancel")));
  }
  QVERIFY(noSheetLeft());
  QVERIFY(std::filesystem::exists(desk.controls.siteFolder("<b>Shop")));
  QCOMPARE(desk.label("siteName"), QStringLiteral("<b>Shop"));
}

void SiteEditorTest::deletes() {
  Desk desk;
  desk.makeSite("Blog", "http://blog.test/");
  desk.makeSite("Shop", "http://shop.test/");
  desk.writeFile("Shop", "sitemap.xml", "<urlset>");
  QVERIFY(desk.reasons.save("Shop", {{"http://shop.test/gone", "404 - Not Found"}}).ok());
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Shop")));
  QTest::keyClick(&desk.control<QTableView>("siteListTable"), Qt::Key_Delete);
  QVERIFY(answer(message(QStringLiteral("Do you really want to delete the site:\nShop")),
                 QStringLiteral("Delete")));
  QVERIFY(comesTrue([&] { return desk.listedSites() == QStringList{QStringLiteral("Blog")}; }));
  QVERIFY(!std::filesystem::exists(desk.controls.siteFolder("Shop")));
  QVERIFY(!desk.reasons.savedAt("Shop"));
  QVERIFY(desk.nothingSelected());
  QVERIFY(!desk.enabled("deleteSiteButton"));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::SiteEditorTest>(argc, argv);
}

#include "site_editor_test.moc"
