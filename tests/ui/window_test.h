// The program's window in a home directory of its own, worked like a user does: by what is seen and can be
// clicked.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "app/main_window.h"
#include "html_editor/sitemap_page.h"
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
bool noSheetLeft();

/// Clicks, if a user could: the button is seen, enabled, and no sheet lies over it.
bool click(QAbstractButton& button);
/// Clicks the button with this text on the sheet, and waits until that has closed.
bool answer(QDialog* sheet, const QString& buttonText);
void pressEscape(QDialog& sheet);
/// Whether the windows have title bars that closeByTitleBar() can work, as on X11.
bool hasTitleBars();
/// Closes a window as its user does: the window system sends the wish.
void closeByTitleBar(const QWidget& window);

/// A user's home directory, and the window once open() was called.
class Desk {
  support::TempFolder m_home;  // first, since what follows lies in it

 public:
  Desk();
  ~Desk();

  store::GlobalControls controls;
  store::BrokenReasons reasons;

  /// Makes a site on disk, behind the window's back. `record` stands for the usual one.
  void makeSite(const std::string& name, const std::string& url, const std::string& record = {}) const;
  /// A file of a site, "(missing)" when there is none.
  std::string file(const std::string& site, const std::string& name) const;
  void writeFile(const std::string& site, const std::string& name, const std::string& text) const;
  std::string record(const std::string& site) const { return file(site, site + ".qzVSK"); }

  void open();
  void close() { m_window.reset(); }
  app::MainWindow& window() const { return *m_window; }

  template <typename Control>
  Control& control(const char* name) const {
    return platform::control<Control>(*m_window, name);
  }
  bool click(const char* button) const;
  QString label(const char* name) const;
  bool enabled(const char* name) const;

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
void prepareEnvironment(const std::filesystem::path& home);
void prepareApplication();

template <typename Tests>
int run(int argc, char** argv) {
  const support::TempFolder home;
  prepareEnvironment(home.path());
  html_editor::prepareWebEngine();
  const QApplication application(argc, argv);
  prepareApplication();
  Tests tests;
  return QTest::qExec(&tests, argc, argv);
}

}  // namespace window_tests
