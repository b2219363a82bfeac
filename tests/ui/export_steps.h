// What tests of the export share: a site that was scanned, a folder to export to, and how file dialogs are
// answered.
#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <filesystem>
#include <string>

#include "html_steps.h"
#include "support/temp_folder.h"
#include "window_test.h"

namespace window_tests {

inline const QString kProgressPanel = QStringLiteral("exportCustomPanel");

/// The six choices of the view, and the documents they stand for.
inline constexpr const char* kLayoutBoxes[] = {"threeCSF", "twoCSF", "oneCSF",
                                               "threeCST", "twoCST", "oneCST"};
inline constexpr const char* kLayoutFiles[] = {"sitemap3c.html",   "sitemap2c.html",   "sitemap1c.html",
                                               "sitemap3cpo.html", "sitemap2cpo.html", "sitemap1cpo.html"};

/// As a scan of so many pages leaves it.
std::string xmlSitemap(int pages);
/// The record of a site of so many pages.
std::string recordOf(int pages);

/// The window at its export view. Each HTML document begins with its own name.
class ExportDesk : public Desk {
 public:
  explicit ExportDesk(const std::string& record = {}, int pages = 1);

  void go(const char* action) const { control<QAction>(action).trigger(); }

  const std::filesystem::path& folder() const { return m_folder.path(); }
  /// Where a file of this name is exported to; the folder itself without one.
  QString path(const std::string& name = {}) const;
  /// What was exported, "(missing)" when there is no such file.
  std::string read(const std::string& name) const;
  bool nothingWritten() const;
  QString status() const;

 private:
  support::TempFolder m_folder;
};

/// The file dialog, once it is up.
QFileDialog* fileDialog();
QLineEdit& nameField(QFileDialog& dialog);
/// Types a name and presses Return.
bool enterName(QFileDialog* dialog, const QString& name);
bool dismiss(QDialog* dialog);
/// Answers the file dialog's own question, which stands in the way of everything until then.
void answerWhenAsked(QMessageBox::StandardButton button, bool& asked);

/// As run(), with the dialogs that a test can work in place of the platform's own.
template <typename Tests>
int runWithQtDialogs(int argc, char** argv) {
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  return run<Tests>(argc, argv);
}

}  // namespace window_tests
