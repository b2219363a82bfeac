// Export: a site's sitemaps and its broken pages as files that the user chooses.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/files.h"
#include "platform/sheet_queue.h"
#include "sitemaps/script_text.h"
#include "sitemaps/site_export.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "ui/export_controls.h"
#include "ui/export_sheet.h"
#include "ui/split_export.h"

class QButtonGroup;

namespace ui {

enum class ExportMode { html, xml, brokenHtml, brokenText };

/// What was asked for when the button was pressed: whatever is selected, ticked or scanned afterwards changes
/// nothing of it.
struct ExportJob {
  ExportMode mode = ExportMode::html;
  std::string site = {};
  const sitemaps::Layout* layout = nullptr;  // of an HTML export
  bool split = false;                        // of an XML export, and how:
  sitemaps::Compression compression = sitemaps::Compression::none;
  std::vector<std::string> brokenLinks = {};  // of an export of those
};

/// A document, and what its reader should know of it.
struct PreparedExport {
  ExportJob job = {};
  sitemaps::ExportedDocument document = {};
  bool holdsScripts = false;  // an HTML document with text that a browser may run
  std::string startUrl = {};  // where the site starts, for an XML document
};

/// Documents are read, cleaned and looked at on a worker behind a progress sheet; dialogs, and the writing of
/// what they were asked for, belong to the UI thread, as all of this class does.
class ExportController : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  ExportController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                   const store::GlobalControls& controls, const store::SharedState& state,
                   sitemaps::PassedScripts& passedScripts);
  ~ExportController() override;

  void exportHTMLSitemaps();
  void exportXMLSitemap();
  void exportBrokenAsHTMLAction();
  void exportBrokenAsTXTAction();

  /// Asks for a folder and shows it: where the dialogs of all exports begin.
  void saveToButton();
  const QString& saveFolder() const { return m_saveFolder; }
  void setSaveFolder(const QString& folder);

  /// Makes `text` the whole content of a file.
  platform::FileResult saveEditedSitemapContent(std::string_view text,
                                                const std::filesystem::path& file) const;

 signals:
  void report(const QString& sentence);
  void saveFolderChanged();

 protected:
  /// Draws the pictograms anew when the colours of the window change.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void gatherLayouts();
  void drawPictograms();
  void showSplitChoice();
  std::string pickedSite() const;
  const sitemaps::Layout* tickedLayout() const;

  ExportJob jobNow(ExportMode mode) const;
  void exportSitemaps(ExportJob job);
  void processAndRemoveLINKID(ExportJob job);
  void removeEmptyElements(ExportJob job);
  void updateExportBar();
  void documentIsReady(std::shared_ptr<PreparedExport> prepared);
  void offer(std::shared_ptr<PreparedExport> prepared);
  void warnOfScripts(std::shared_ptr<PreparedExport> prepared);
  void giveUp();
  void tellFailure(const sitemaps::ExportedDocument& document);

  void saveHTMLFile(std::shared_ptr<const PreparedExport> saveData);
  void saveXMLFile(std::shared_ptr<const PreparedExport> saveData);
  void didEndSaveSheet(const QString& path, const PreparedExport& saveData);
  void didEndSaveSheetHTMLBroken(const QString& path, const std::vector<std::string>& links);
  void didEndSaveSheetTXTBroken(const QString& path, const std::vector<std::string>& links);
  void save(std::string_view text, const QString& path);

  QMainWindow& m_mainWindow;
  platform::SheetQueue& m_sheets;
  const store::GlobalControls& m_controls;
  const store::SharedState& m_state;
  sitemaps::PassedScripts& m_passedScripts;
  ExportControls m_view;
  QString m_saveFolder;
  QButtonGroup* m_layouts;
  ExportSheet m_exportCustomPanel;
  SplitExport m_split;
  std::int64_t m_expMax = 0;
  std::int64_t m_expCurrent = 0;
  bool m_working = false;  // from the button until the document is on offer
  std::jthread m_worker;   // last, so that it is over before the rest goes
};

}  // namespace ui
