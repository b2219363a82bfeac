// The list below the table that says what is wrong with the sitemap.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QStringListModel>
#include <QTimer>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "platform/files.h"
#include "sitemaps/xml_validation.h"
#include "xml_editor/xml_view_controls.h"

namespace xml_editor {

/// Works the controls of the interface file that belong to it. UI thread.
class FindingsPanel : public QObject {
  Q_OBJECT

 public:
  explicit FindingsPanel(const QMainWindow& mainWindow);

  /// Checks the file `sitemap` of a site that starts at `siteUrl`, as the export would write it, on a thread
  /// of its own, and shows the outcome when it is known; of very many faults the first ones.
  void validate(const std::filesystem::path& sitemap, const std::string& siteUrl);
  /// The same once more, a moment after the last call, if the outcome is still shown.
  void validateSoonAgain();
  void close();

 signals:
  /// The user wants to see what a finding is about.
  void wanted(const sitemaps::XmlFinding& finding);

 private:
  /// What a check has found.
  struct Outcome {
    std::filesystem::path sitemap;
    platform::FileResult read = {};
    std::vector<sitemaps::XmlFinding> findings = {};  // those that are listed
    QStringList texts = {};                           // and what the list says of them
    std::size_t count = 0;                            // of all
  };

  static Outcome outcomeOf(const std::filesystem::path& sitemap, const std::string& siteUrl);
  void check();
  void take(Outcome outcome);
  void show(const QString& sentence);

  FindingsControls m_view;
  QListView& m_list;
  QStringListModel m_texts;
  std::vector<sitemaps::XmlFinding> m_findings;
  std::filesystem::path m_sitemap;
  std::string m_siteUrl;
  QTimer m_again;
  bool m_shown = false;
  bool m_checking = false;
  std::jthread m_worker;  // last, so that it is over before the rest goes
};

}  // namespace xml_editor
