// All that a site needs, from the first start to the exported sitemap, by the keyboard alone: keys go where
// the focus is, as they do on a desktop.
#include <QFileDialog>

#include "html_steps.h"
#include "platform/qt_text.h"
#include "scan_steps.h"

namespace window_tests {

namespace {

/// What keys go to: where no window manager does it, the window behind a sheet is brought back by hand.
QWidget* focus() {
  QWidget* window = topSheet();
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (window == nullptr && qobject_cast<app::MainWindow*>(each) != nullptr) window = each;
  }
  window->activateWindow();
  if (!comesTrue([&] { return window->isActiveWindow(); })) qWarning("there is no active window");
  return window->focusWidget() == nullptr ? window : window->focusWidget();
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(focus(), key, modifiers);
}

void type(const QString& text) {
  QTest::keyClicks(focus(), text);
}

bool sheetHasFocus() {
  return comesTrue([] { return topSheet() != nullptr && topSheet()->isActiveWindow(); });
}

/// Goes on by Tab until `there` is true of what has the focus, or of what holds that.
bool tabTo(const std::function<bool(const QWidget&)>& there) {
  constexpr int kMostSteps = 80;
  for (int step = 0; step < kMostSteps; ++step) {
    for (const QWidget* each = focus(); each != nullptr; each = each->parentWidget()) {
      if (there(*each)) return true;
    }
    press(Qt::Key_Tab);
  }
  qWarning("the focus is at %s", qPrintable(focus()->objectName()));
  return false;
}

bool tabTo(const char* name) {
  return tabTo([name](const QWidget& each) { return each.objectName() == QLatin1String(name); });
}

/// Chooses a button of the sheet.
bool choose(const QString& text) {
  const bool isThere = tabTo([&](const QWidget& each) {
    const auto* button = qobject_cast<const QPushButton*>(&each);
    return button != nullptr && button->text().remove(QLatin1Char('&')) == text;
  });
  press(Qt::Key_Space);
  return isThere;
}

}  // namespace

class KeyboardTest : public QObject {
  Q_OBJECT

 private slots:
  void isEnoughForASitemap() {
    const SiteServer server(smallSite());
    Desk desk;
    desk.open();
    QVERIFY(comesTrue([&] { return desk.window().isActiveWindow(); }));

    press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY(sheetHasFocus());
    QVERIFY(tabTo("aedSiteName"));
    type(kShop);
    QVERIFY(tabTo("aedSiteURL"));
    type(platform::toQString(server.url()));
    press(Qt::Key_Return);
    QVERIFY(noSheetLeft());
    QCOMPARE(desk.listedSites(), QStringList{kShop});

    QVERIFY(tabTo("siteListTable"));
    press(Qt::Key_Down);
    press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(tabTo("newFilterInput"));
    type(QStringLiteral("private"));
    press(Qt::Key_Return);
    QCOMPARE(desk.file("Shop", "filters.vskp"), "private\n");
    press(Qt::Key_F5);
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
    QCOMPARE(desk.label("linksScanned"), QStringLiteral("3"));

    const auto isSaved = [&](const char* file, const char* text) {
      return comesTrue([&] { return desk.file("Shop", file).find(text) != std::string::npos; });
    };
    const char* document = "sitemap3c.html";
    press(Qt::Key_2, Qt::ControlModifier);
    QVERIFY(comesTrue([&] { return desk.enabled("ptItalicButton"); }));
    QVERIFY(tabTo("ptItalicButton"));
    press(Qt::Key_Space);
    press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(sheetHasFocus() && choose(kSaveChanges) && noSheetLeft());
    QVERIFY(isSaved(document, "italic"));

    const auto selectALink = [&] {
      const bool isThere =
          comesTrue([&] { return desk.control<QWidget>("sitemapBusy").isHidden(); }) && tabTo("scanWebView");
      press(Qt::Key_Tab);
      press(Qt::Key_Return);
      return isThere && comesTrue([&] { return desk.enabled("deleteButton"); });
    };
    QVERIFY(selectALink());
    press(Qt::Key_T, Qt::AltModifier);  // Tab leads through all links of the page first
    QCOMPARE(focus()->objectName(), QStringLiteral("titleEditInput"));
    press(Qt::Key_A, Qt::ControlModifier);
    type(QStringLiteral("Another"));
    press(Qt::Key_Return);
    QVERIFY(isSaved(document, ">Another<"));
    QVERIFY(selectALink());
    const auto links = [&] {
      return platform::toQString(desk.file("Shop", document)).count(QLatin1String("<a href"));
    };
    const auto before = links();
    press(Qt::Key_D, Qt::AltModifier);
    QVERIFY(sheetHasFocus());
    QVERIFY(choose(QStringLiteral("Delete Link")));
    QVERIFY(noSheetLeft());
    QVERIFY(comesTrue([&] { return links() == before - 1; }));

    press(Qt::Key_4, Qt::ControlModifier);
    QVERIFY(tabTo("xmlTableView"));
    press(Qt::Key_Home);
    press(Qt::Key_F2);
    type(platform::toQString(server.url("other.html")));
    press(Qt::Key_Return);
    press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(isSaved("sitemap.xml", "other.html</loc>"));

    press(Qt::Key_5, Qt::ControlModifier);
    QVERIFY(tabTo("htmlExportButton"));
    press(Qt::Key_Space);
    QVERIFY(comesTrue([] { return qobject_cast<QFileDialog*>(topSheet()) != nullptr; }) && sheetHasFocus());
    QVERIFY(tabTo("fileNameEdit"));
    press(Qt::Key_A, Qt::ControlModifier);
    const auto file = desk.controls.siteFolder("Shop") / "published.html";
    type(platform::toQString(file.native()));
    press(Qt::Key_Return);
    QVERIFY(comesTrue([&] { return textOf(file).find("</html>") != std::string::npos; }));
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::KeyboardTest>(argc, argv);
}

#include "keyboard_test.moc"
