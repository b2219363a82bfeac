// The seven views: the rule by which they take turns, and what somebody without a mouse, or without eyes for
// the screen, finds in each.
#include <QAccessible>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QTabBar>
#include <QToolBar>

#include "window_test.h"

namespace window_tests {

namespace {

constexpr const char* kViews[] = {"scanWindowView", "htmlWindowView",   "htmlEditorWindowView",
                                  "xmlWindowView",  "exportWindowView", "uploadWindowView",
                                  "blWindowView"};
constexpr int kAllViews[] = {1, 2, 3, 4, 5, 6, 7};

/// Whether this view is shown, and everything that tells of the current view says so.
bool shows(const Desk& desk, int view) {
  bool marked = true;
  for (const int each : kAllViews) marked = marked && desk.viewAction(each).isChecked() == (each == view);
  return marked && desk.control<QWidget>(kViews[view - 1]).isVisible() &&
         desk.window().state().qzvskCurrentView == view &&
         // The exports go by a choice of their own.
         desk.window().windowTitle() == QLatin1String(view == 5 ? "Veskel2" : "Veskel2 - Shop");
}

/// The key that goes to this text with Alt.
QString keyOf(const QString& text) {
  return QKeySequence::mnemonic(text).toString();
}

/// Every key that does something with Alt.
QStringList altKeys(const QMainWindow& window) {
  QStringList keys;
  for (const QAction* menu : window.menuBar()->actions()) keys.append(keyOf(menu->text()));
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    keys.append(keyOf(widget->property("text").toString()));  // of a button, or of a label with a buddy
    if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
      for (int i = 0; i < tabs->count(); ++i) keys.append(keyOf(tabs->tabText(i)));
    }
  }
  keys.removeAll(QString());
  return keys;
}

}  // namespace

class ViewsTest : public QObject {
  Q_OBJECT

 private slots:
  void switchesByKeysAndButtons() {
    Desk desk;
    desk.openShop();
    for (const int view : {7, 6, 5, 4, 3, 2, 1}) {
      QTest::keyClick(&desk.window(), static_cast<Qt::Key>(Qt::Key_0 + view), Qt::ControlModifier);
      QVERIFY(shows(desk, view));
    }
    const QString line = desk.control<QLineEdit>("sitemapLine").text();
    QVERIFY(line.endsWith(QLatin1String("http://shop.test/sitemap.xml")));
    auto& toolbar = desk.control<QToolBar>("mainToolBar");
    for (const bool byScreenReader : {false, true}) {
      for (const int view : {6, 5, 4, 3, 2, 1, 1}) {
        auto* button = qobject_cast<QAbstractButton*>(toolbar.widgetForAction(&desk.viewAction(view)));
        QVERIFY(button);
        byScreenReader ? button->toggle() : static_cast<void>(click(*button));
        QVERIFY(shows(desk, view) && button->isChecked());
      }
    }
  }

  void needsASiteForTheSitemaps() {
    Desk desk;
    desk.openShop();
    QVERIFY(desk.click("filterDrawerButton"));
    QVERIFY(desk.select(kShop, Qt::ControlModifier));
    desk.window().views().setCheckSave([] { QFAIL("nothing is left"); });
    for (const auto& [view, kind] : {std::pair(2, "HTML"), std::pair(4, "XML")}) {
      desk.go(view);
      QVERIFY(answer(message(QStringLiteral("You need to select a sitemap from the sites list to use the %1 "
                                            "sitemap viewer.")
                                 .arg(QLatin1String(kind))),
                     kOk));
      QVERIFY(desk.viewAction(1).isChecked() && !desk.viewAction(view).isChecked());
      QVERIFY(desk.control<QDockWidget>("filterDrawer").isVisible());
    }
  }

  void offersSavingBetweenClearingAndSwitching() {
    Desk desk;
    desk.openShop();
    auto& title = desk.control<QLineEdit>("titleEditInput");
    for (const int view : kAllViews) {
      desk.window().views().setCheckSave({});
      std::filesystem::remove(desk.controls.siteFolder("Shop") / "sitemap.xml");
      desk.go(5);
      desk.go(2);
      desk.writeFile("Shop", "sitemap.xml", "<urlset>");
      title.setText(QStringLiteral("title"));
      int offered = 0;
      bool inOrder = true;
      desk.window().views().setCheckSave([&] {
        ++offered;
        const bool pickerIsNew = desk.control<QComboBox>("sitePickerPopUp").itemText(0) == kShop;
        inOrder = title.text().isEmpty() && pickerIsNew == (view == 5) &&
                  desk.control<QWidget>("htmlWindowView").isVisible();
      });
      desk.go(view);
      // Asked for while it is shown, the view of the HTML sitemap saves by itself.
      QCOMPARE(offered, view == 7 || view == 2 ? 0 : 1);
      QVERIFY(inOrder && shows(desk, view));
    }
  }

  void closesTheDrawerWhereItIsInTheWay() {
    Desk desk;
    desk.openShop();
    auto& drawer = desk.control<QDockWidget>("filterDrawer");
    auto& action = desk.control<QAction>("filtersMI");
    bool open = false;
    for (const auto& turn : std::initializer_list<std::function<void()>>{
             [&] { desk.control<QAbstractButton>("filterDrawerButton").toggle(); }, [&] { drawer.close(); },
             [&] { action.trigger(); }}) {
      open = !open;
      turn();
      QVERIFY(drawer.isVisible() == open && action.isChecked() == open);
      for (const int view : kAllViews) {
        desk.go(view);
        QCOMPARE(drawer.isVisible(), open && (view == 1 || view >= 6));
        desk.go(1);
        QCOMPARE(drawer.isVisible(), open);
      }
    }
  }

  /// Commands go with Alt and a letter, no letter twice; controls have names; and it fits the screen.
  void givesEachViewItsKeysNamesAndRoom() {
    Desk desk;
    desk.openShop();
    QVERIFY(desk.window().screen()->availableGeometry().contains(desk.window().frameGeometry()));
    for (const int view : kAllViews) {
      desk.go(view);
      const QSize least = desk.window().minimumSizeHint();
      QVERIFY2(least.width() <= 800 && least.height() <= 480, kViews[view - 1]);
    }
    desk.go(1);
    QVERIFY(desk.click("filterDrawerButton"));
    for (const int view : kAllViews) {
      desk.go(view);
      QStringList keys = altKeys(desk.window());
      QVERIFY2(keys.size() >= 5 && keys.removeDuplicates() == 0, kViews[view - 1]);  // the menus have five
      for (QWidget* widget : desk.window().findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith(QLatin1String("qt_"))) continue;  // is not ours
        if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
        if (qobject_cast<const QLabel*>(widget) != nullptr) continue;  // its text is what it is
        const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(interface && !interface->text(QAccessible::Name).isEmpty(), qPrintable(name));
      }
    }
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

  /// Fields of text take keys of their own, on some desktops this one too. Menus bring the view of a command
  /// up first.
  void commandsFromEverywhere() {
    class Greedy : public QLineEdit {
      bool event(QEvent* event) override {
        if (event->type() != QEvent::ShortcutOverride) return QLineEdit::event(event);
        event->accept();
        return true;
      }
    };
    Desk desk;
    desk.writeFile("Shop", "badLinks.txt", "http://shop.test/gone\n");
    desk.openShop();
    QVERIFY(!desk.enabled("pasteMI"));  // into a list
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
    QVERIFY(shows(desk, 5));
    desk.control<QAction>("exportBrokenTextMI").trigger();
    QVERIFY(comesTrue([] { return topSheet() != nullptr; }));
    QVERIFY(shows(desk, 7));
    QVERIFY(dismiss(topSheet()));
    desk.control<QMenu>("layoutMenu").actions().at(2)->trigger();  // there is none to be shown
    QVERIFY(shows(desk, 2));
  }

  /// A screen reader goes past the sheet, straight to the window's commands.
  void isOffUnderASheet() {
    Desk desk;
    desk.openShop();
    auto& search = desk.control<QLineEdit>("siteSearch");
    search.setFocus();
    QVERIFY(desk.commandsAre(true));
    const QString before = desk.status();
    desk.control<QAction>("aboutMI").trigger();
    QVERIFY(comesTrue([] { return topSheet() != nullptr; }));
    QVERIFY(desk.commandsAre(false));
    auto& table = desk.control<QWidget>("siteListTable");
    auto* sites = QAccessible::queryAccessibleInterface(&table)->tableInterface();
    QVERIFY(!sites->selectRow(0));
    desk.control<QAction>("saveMI").setEnabled(true);  // as when something changes meanwhile
    QVERIFY(!desk.enabled("saveMI"));
    QVERIFY(dismiss(topSheet()));
    QVERIFY(desk.commandsAre(true));
    QVERIFY(desk.enabled("saveMI"));
    QVERIFY(search.hasFocus());
    QCOMPARE(desk.status(), before);  // that was no news
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::ViewsTest>(argc, argv);
}

#include "views_test.moc"
