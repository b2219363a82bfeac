// The list below the table that says what is wrong with the sitemap.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QStringListModel>
#include <QTimer>
#include <filesystem>
#include <string>
#include <vector>

#include "sitemaps/xml_validation.h"
#include "xml_editor/xml_view_controls.h"

namespace xml_editor {

/// Works the controls of the interface file that belong to it. UI thread.
class FindingsPanel : public QObject {
  Q_OBJECT

 public:
  explicit FindingsPanel(const QMainWindow& mainWindow);

  /// Checks the file `sitemap` of a site that starts at `siteUrl`, as the export would write it, and shows
  /// the outcome.
  void validate(const std::filesystem::path& sitemap, const std::string& siteUrl);
  /// The same once more, a moment after the last call, if the outcome is still shown.
  void validateSoonAgain();
  void close();

 signals:
  /// The user wants to see what a finding is about.
  void wanted(const sitemaps::XmlFinding& finding);

 private:
  void check();
  void show(const QString& outcome);

  FindingsControls m_view;
  QListView& m_list;
  QStringListModel m_texts;
  std::vector<sitemaps::XmlFinding> m_findings;
  std::filesystem::path m_sitemap;
  std::string m_siteUrl;
  QTimer m_again;
  bool m_shown = false;
};

}  // namespace xml_editor
