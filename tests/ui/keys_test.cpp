// What somebody without a mouse, or without eyes for the screen, finds in each view.
#include <QAccessible>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableView>
#include <QToolBar>

#include "window_test.h"

namespace window_tests {

namespace {

constexpr const char* kViewActions[] = {"scanTBI",   "htmlTBI",   "htmlEditTBI", "xmlTBI",
                                        "exportTBI", "uploadTBI", "brokenMI"};

void openView(Desk& desk, const QString& action) {
  desk.makeSite("Shop", "http://shop.test/");
  desk.writeFile("Shop", "sitemap.xml", "<urlset>");
  desk.writeFile("Shop", "badLinks.txt", "http://shop.test/gone\n");
  desk.open();
  desk.select(QStringLiteral("Shop"));
  platform::control<QAction>(desk.window(), action.toLatin1().constData()).trigger();
}

void addViewRows() {
  QTest::addColumn<QString>("action");
  for (const char* action : kViewActions) QTest::newRow(action) << QString::fromLatin1(action);
}

/// The key that goes to this text with Alt.
QString keyOf(const QString& text) {
  return QKeySequence::mnemonic(text).toString();
}

/// Every key that does something with Alt, and for whom.
QMultiMap<QString, QString> altKeys(const QMainWindow& window) {
  QMultiMap<QString, QString> keys;
  const auto add = [&keys](const QString& text) {
    if (const QString key = keyOf(text); !key.isEmpty()) keys.insert(key, text);
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
  void givesNoKeyTwice_data() { addViewRows(); }
  void givesNoKeyTwice();
  void givesNoKeyTwiceInAMenu();
  void givesNoShortcutTwice();
  void namesEveryControl_data() { addViewRows(); }
  void namesEveryControl();
};

void KeysTest::givesNoKeyTwice() {
  QFETCH(const QString, action);
  Desk desk;
  openView(desk, action);
  if (action == QLatin1String("scanTBI")) QVERIFY(desk.click("filterDrawerButton"));
  const QMultiMap<QString, QString> keys = altKeys(desk.window());
  QVERIFY(keys.size() >= 5);  // the menus
  for (const QString& key : keys.uniqueKeys()) {
    QVERIFY2(keys.count(key) == 1,
             qPrintable(key + QLatin1String(": ") + keys.values(key).join(QLatin1String(", "))));
  }
}

void KeysTest::givesNoKeyTwiceInAMenu() {
  Desk desk;
  desk.open();
  for (const QAction* top : desk.window().menuBar()->actions()) {
    const QMenu* menu = top->menu();
    QStringList keys;
    for (const QAction* action : menu->actions()) {
      if (!action->isSeparator()) keys.append(keyOf(action->text()));
    }
    QVERIFY2(!keys.contains(QString()) && keys.removeDuplicates() == 0, qPrintable(menu->title()));
  }
}

void KeysTest::givesNoShortcutTwice() {
  Desk desk;
  desk.open();
  QStringList shortcuts;
  for (const QAction* action : desk.window().findChildren<QAction*>()) {
    if (action->shortcutContext() != Qt::WindowShortcut) continue;
    for (const QKeySequence& keys : action->shortcuts()) shortcuts.append(keys.toString());
  }
  QVERIFY(shortcuts.contains(QLatin1String("Ctrl+R")) && shortcuts.contains(QLatin1String("Ctrl+E")));
  QCOMPARE(shortcuts.removeDuplicates(), 0);
}

void KeysTest::namesEveryControl() {
  QFETCH(const QString, action);
  Desk desk;
  openView(desk, action);
  for (QWidget* widget : desk.window().findChildren<QWidget*>()) {
    const bool isOurs =
        !widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_"));
    if (!widget->isVisible() || !isOurs || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    if (qobject_cast<const QLabel*>(widget) != nullptr) continue;  // its text is what it is
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    QVERIFY(interface);
    QVERIFY2(!interface->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
  }
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::KeysTest>(argc, argv);
}

#include "keys_test.moc"
