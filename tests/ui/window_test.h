// The program's window in a home directory of its own, worked like a user does: by what is seen and can be
// clicked.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "app/main_window.h"
#include "platform/named_controls.h"
#include "store/broken_reasons.h"
#include "store/global_controls.h"
#include "support/temp_folder.h"
#include "support/waiting.h"

namespace window_tests {

inline const QString kShop = QStringLiteral("Shop");
inline const QString kOk = QStringLiteral("OK");
inline const QString kCancel = QStringLiteral("Cancel");

constexpr int kPatience = static_cast<int>(support::kPatience.count());

/// Whether `condition` comes true, while the window goes on working.
bool comesTrue(const std::function<bool()>& condition);

/// The sheet that is on top; null when none is up.
QDialog* topSheet();
/// The same, when it has this object name, or is a message with this title. Waits for it.
QDialog* sheetNamed(const QString& objectName);
QMessageBox* message(const QString& title);
/// Waits until no sheet is up.
inline bool noSheetLeft() {
  return comesTrue([] { return topSheet() == nullptr; });
}

/// Clicks, if a user could: the button is seen, enabled, and no sheet lies over it.
bool click(QAbstractButton& button);
/// Clicks the button with this text on the sheet, and waits until that has closed.
bool answer(QDialog* sheet, const QString& buttonText);
inline void pressEscape(QDialog& sheet) {
  QTest::keyClick(&sheet, Qt::Key_Escape);
}
/// The same, when it is up, and waits until no sheet is.
bool dismiss(QDialog* sheet);
/// Whether the windows have title bars that closeByTitleBar() can work, as on X11.
bool hasTitleBars();
/// Closes a window as its user does: the window system sends the wish.
void closeByTitleBar(const QWidget& window);

/// What a file holds, "(missing)" when there is none.
std::string textOf(const std::filesystem::path& file);

/// A user's home directory, and the window once open() was called.
class Desk {
  support::TempFolder m_home;  // first, since what follows lies in it

 public:
  Desk();
  ~Desk();

  store::GlobalControls controls;
  store::StateFolder stateFolder;
  store::BrokenReasons reasons;

  /// Makes a site on disk, behind the window's back. `record` stands for the usual one.
  void makeSite(const std::string& name, const std::string& url, const std::string& record = {}) const;
  std::string file(const std::string& site, const std::string& name) const {
    return textOf(controls.siteFolder(site) / name);
  }
  void writeFile(const std::string& site, const std::string& name, const std::string& text) const;
  std::string record(const std::string& site) const { return file(site, site + ".qzVSK"); }

  void open();
  /// Makes the site "Shop" in what was written of it, opens the window and selects it.
  void openShop(const std::string& url = "http://shop.test/", const std::string& record = {});
  void close() { m_window.reset(); }
  app::MainWindow& window() const { return *m_window; }

  template <typename Control>
  Control& control(const char* name) const {
    return platform::control<Control>(*m_window, name);
  }
  bool click(const char* button) const { return window_tests::click(control<QAbstractButton>(button)); }
  QString label(const char* name) const { return control<QLabel>(name).text(); }
  /// What the status bar says.
  QString status() const { return window().statusBar()->currentMessage(); }
  /// Of a widget or an action.
  bool enabled(const char* name) const { return control<QObject>(name).property("enabled").toBool(); }
  bool areAll(bool enabled, std::initializer_list<const char*> names) const;

  /// What leads to a view, 1 to 7; and goes there.
  QAction& viewAction(int view) const;
  void go(int view) const { viewAction(view).trigger(); }
  /// Whether what a site in hand allows is on, or off: one of each kind, and all that could change the site.
  bool commandsAre(bool on) const;

  QStringList listedSites() const;
  /// Clicks on the site in the table; nothing happens to a name that is not listed.
  bool select(const QString& site, Qt::KeyboardModifiers modifiers = {}) const;
  /// As after every close of the site editor: no site in hand, and nothing of one shown.
  bool nothingSelected() const;

 private:
  std::unique_ptr<app::MainWindow> m_window;
};

/// Runs a class of tests with Qt's own options, without a display unless one is asked for, and away from the
/// user's files.
int runTests(int argc, char** argv, const std::function<std::unique_ptr<QObject>()>& make);

template <typename Tests>
int run(int argc, char** argv) {
  return runTests(argc, argv, [] { return std::make_unique<Tests>(); });
}

}  // namespace window_tests
