// What somebody without a mouse, or without eyes for the screen, finds in each view; and that it fits the
// screen.
#include <QAccessible>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QToolBar>

#include "window_test.h"

namespace window_tests {

namespace {

constexpr const char* kViewActions[] = {"scanTBI",   "htmlTBI",   "htmlEditTBI", "xmlTBI",
                                        "exportTBI", "uploadTBI", "brokenMI"};

void openWithShop(Desk& desk) {
  desk.makeSite("Shop", "http://shop.test/");
  desk.writeFile("Shop", "sitemap.xml", "<urlset>");
  desk.writeFile("Shop", "badLinks.txt", "http://shop.test/gone\n");
  desk.open();
  desk.select(kShop);
}

/// The key that goes to this text with Alt.
QString keyOf(const QString& text) {
  return QKeySequence::mnemonic(text).toString();
}

/// Every key that does something with Alt.
QStringList altKeys(const QMainWindow& window) {
  QStringList keys;
  const auto add = [&keys](const QString& text) {
    if (const QString key = keyOf(text); !key.isEmpty()) keys.append(key);
  };
  for (const QAction* menu : window.menuBar()->actions()) add(menu->text());
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) add(button->text());
    if (const auto* label = qobject_cast<const QLabel*>(widget);
        label != nullptr && label->buddy() != nullptr)
      add(label->text());
    if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
      for (int i = 0; i < tabs->count(); ++i) add(tabs->tabText(i));
    }
  }
  return keys;
}

}  // namespace

class KeysTest : public QObject {
  Q_OBJECT

 private slots:
  void givesEachViewItsKeysNamesAndRoom();
  void givesNoKeyTwiceInAMenu();
  void commandsFromEverywhere();
  void isOffUnderASheet();
};

/// Commands go with Alt and a letter, no letter twice; controls have names.
void KeysTest::givesEachViewItsKeysNamesAndRoom() {
  Desk desk;
  openWithShop(desk);
  QVERIFY(desk.window().screen()->availableGeometry().contains(desk.window().frameGeometry()));
  for (const char* action : kViewActions) {
    desk.control<QAction>(action).trigger();
    const QSize least = desk.window().minimumSizeHint();
    QVERIFY2(least.width() <= 800 && least.height() <= 480, action);
  }
  desk.control<QAction>("scanTBI").trigger();
  QVERIFY(desk.click("filterDrawerButton"));
  for (const char* action : kViewActions) {
    desk.control<QAction>(action).trigger();
    QStringList keys = altKeys(desk.window());
    QVERIFY2(keys.size() >= 5 && keys.removeDuplicates() == 0, action);  // the menus have five
    for (QWidget* widget : desk.window().findChildren<QWidget*>()) {
      const bool isOurs =
          !widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_"));
      if (!widget->isVisible() || !isOurs || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
      if (qobject_cast<const QLabel*>(widget) != nullptr) continue;  // its text is what it is
      const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
      QVERIFY2(interface && !interface->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
    }
  }
}

void KeysTest::givesNoKeyTwiceInAMenu() {
  Desk desk;
  desk.open();
  for (const QAction* top : desk.window().menuBar()->actions()) {
    QStringList keys;
    for (const QAction* action : top->menu()->actions()) {
      if (!action->isSeparator()) keys.append(keyOf(action->text()));
    }
    QVERIFY2(!keys.contains(QString()) && keys.removeDuplicates() == 0, qPrintable(top->text()));
  }
  QStringList shortcuts;
  for (const QAction* action : desk.window().findChildren<QAction*>()) {
    if (action->shortcutContext() != Qt::WindowShortcut) continue;
    for (const QKeySequence& keys : action->shortcuts()) shortcuts.append(keys.toString());
  }
  QCOMPARE(shortcuts.removeDuplicates(), 0);
}

/// Fields of text take keys of their own, on some desktops this one too. Menus bring the view of a command up
/// first.
void KeysTest::commandsFromEverywhere() {
  class Greedy : public QLineEdit {
    bool event(QEvent* event) override {
      if (event->type() != QEvent::ShortcutOverride) return QLineEdit::event(event);
      event->accept();
      return true;
    }
  };
  Desk desk;
  openWithShop(desk);
  QVERIFY(!desk.control<QAction>("pasteMI").isEnabled());  // into a list
  auto& search = desk.control<QLineEdit>("siteSearch");
  search.setFocus();
  search.insert(kShop);
  for (const char* command : {"selectAllMI", "cutMI", "pasteMI", "pasteMI", "undoMI"}) {
    QVERIFY(desk.control<QAction>(command).isEnabled());
    desk.control<QAction>(command).trigger();
  }
  QCOMPARE(search.text(), kShop);
  QVERIFY(desk.select(kShop));
  Greedy field;
  field.setParent(&desk.control<QWidget>("sitePage"));
  field.show();
  field.setFocus();
  QTest::keyClick(&field, Qt::Key_E, Qt::ControlModifier);
  QVERIFY(desk.control<QWidget>("exportWindowView").isVisible());
  desk.control<QAction>("exportBrokenTextMI").trigger();
  QVERIFY(comesTrue([] { return topSheet() != nullptr; }));
  QVERIFY(desk.control<QWidget>("blWindowView").isVisible());
  pressEscape(*topSheet());
  QVERIFY(noSheetLeft());
  desk.control<QMenu>("layoutMenu").actions().at(2)->trigger();  // there is none to be shown
  QVERIFY(desk.control<QWidget>("htmlWindowView").isVisible());
}

/// A screen reader goes past the sheet, straight to the window's commands.
void KeysTest::isOffUnderASheet() {
  Desk desk;
  openWithShop(desk);
  auto& search = desk.control<QLineEdit>("siteSearch");
  search.setFocus();
  const auto commands = [&](bool on) {
    return desk.control<QAction>("scanMI").isEnabled() == on && desk.enabled("scanSiteButton") == on &&
           desk.enabled("siteListTable") == on &&
           desk.control<QMenu>("chFreqMenu").actions().first()->isEnabled() == on;
  };
  QVERIFY(commands(true));
  const QString before = desk.control<QStatusBar>("statusBar").currentMessage();
  desk.control<QAction>("aboutMI").trigger();
  QVERIFY(comesTrue([] { return topSheet() != nullptr; }));
  QVERIFY(commands(false));
  auto* sites =
      QAccessible::queryAccessibleInterface(&desk.control<QWidget>("siteListTable"))->tableInterface();
  QVERIFY(!sites->selectRow(0));
  desk.control<QAction>("saveMI").setEnabled(true);  // as when something changes meanwhile
  QVERIFY(!desk.control<QAction>("saveMI").isEnabled());
  pressEscape(*topSheet());
  QVERIFY(noSheetLeft());
  QVERIFY(commands(true));
  QVERIFY(desk.control<QAction>("saveMI").isEnabled());
  QVERIFY(search.hasFocus());
  QCOMPARE(desk.control<QStatusBar>("statusBar").currentMessage(), before);  // that was no news
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::KeysTest>(argc, argv);
}

#include "keys_test.moc"
