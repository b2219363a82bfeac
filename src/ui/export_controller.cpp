#include "ui/export_controller.h"

#include <QButtonGroup>
#include <QEvent>
#include <QTimer>
#include <array>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/named_controls.h"
#include "platform/qt_text.h"
#include "sitemaps/broken_links_export.h"
#include "sitemaps/script_text.h"
#include "store/site_list.h"
#include "ui/file_sheets.h"
#include "ui/icons.h"

namespace ui {

using platform::control;
using platform::toQString;
using platform::toUtf8;
using platform::translated;

namespace {

constexpr int kPictogramSize = 48;

/// The user sees one sheet go before the next one comes.
constexpr std::chrono::milliseconds kFollowUpDelay{500};
/// An XML sitemap is ready so soon that the progress sheet would only flash.
constexpr std::chrono::seconds kSheetIsSeen{1};

void waitUnlessStopped(std::stop_token stop, std::chrono::seconds time) {
  std::mutex mutex;
  std::unique_lock lock(mutex);
  std::condition_variable_any().wait_for(lock, stop, time, [] { return false; });
}

/// What a worker makes of a job, or why it could not.
template <typename Make>
std::shared_ptr<PreparedExport> made(const ExportJob& job, Make make) {
  auto prepared = std::make_shared<PreparedExport>();
  prepared->job = job;
  try {
    make(*prepared);
  } catch (const std::exception& failure) {  // no memory
    prepared->document = {sitemaps::ExportFailure::unusable, {}, failure.what()};
  }
  return prepared;
}

}  // namespace

ExportController::ExportController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                                   const store::GlobalControls& controls, const store::SharedState& state,
                                   sitemaps::PassedScripts& passedScripts)
    : m_mainWindow(mainWindow),
      m_sheets(sheets),
      m_controls(controls),
      m_state(state),
      m_passedScripts(passedScripts),
      m_view{mainWindow},
      m_layouts(new QButtonGroup(this)),
      m_exportCustomPanel(&mainWindow),
      m_split(mainWindow, sheets, m_exportCustomPanel) {
  gatherLayouts();
  drawPictograms();
  mainWindow.installEventFilter(this);
  const auto onClick = [this](const QPushButton& button, void (ExportController::*slot)()) {
    connect(&button, &QPushButton::clicked, this, slot);
  };
  onClick(m_view.htmlExportButton, &ExportController::exportHTMLSitemaps);
  onClick(m_view.xmlExportButton, &ExportController::exportXMLSitemap);
  onClick(m_view.exportBrokenAsHTMLButton, &ExportController::exportBrokenAsHTMLAction);
  onClick(m_view.exportBrokenAsTXTButton, &ExportController::exportBrokenAsTXTAction);
  onClick(m_view.saveToButton, &ExportController::saveToButton);
  connect(&m_view.sitePickerPopUp, &QComboBox::currentTextChanged, this, &ExportController::showSplitChoice);
  connect(&m_view.splitXmlBox, &QCheckBox::toggled, &m_view.gzipXmlBox, &QWidget::setEnabled);
  connect(&m_split, &SplitExport::report, this, &ExportController::report);
  showSplitChoice();
}

ExportController::~ExportController() = default;

void ExportController::gatherLayouts() {
  for (std::size_t i = 0; i < sitemaps::kLayouts.size(); ++i) {
    m_layouts->addButton(&control<QCheckBox>(m_mainWindow, sitemaps::kLayouts[i].checkBox),
                         static_cast<int>(i));
  }
}

void ExportController::drawPictograms() {
  for (QAbstractButton* box : m_layouts->buttons()) {
    const sitemaps::Layout& layout = sitemaps::kLayouts[static_cast<std::size_t>(m_layouts->id(box))];
    box->setIcon(
        namedIcon(QStringLiteral("veskel-layout-") + toQString(layout.shortName), m_mainWindow.palette()));
    box->setIconSize({kPictogramSize, kPictogramSize});
  }
}

bool ExportController::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::PaletteChange) drawPictograms();
  return QObject::eventFilter(watched, event);
}

/// A site that is too large for one file is split unless the user decides otherwise: search engines would
/// refuse it.
void ExportController::showSplitChoice() {
  const std::string site = pickedSite();
  m_view.sitePickerPopUp.setToolTip(toQString(site));
  const bool wanted = !site.empty() && sitemaps::wantsSplitting(m_controls, site);
  m_view.splitXmlBox.setEnabled(wanted);
  m_view.splitXmlBox.setChecked(wanted);
  m_view.splitXmlBox.setToolTip(
      wanted ? tr("sitemap-1.xml, sitemap-2.xml and so on, and sitemap-index.xml that names them")
             : tr("For sites of more than 50,000 pages"));
}

std::string ExportController::pickedSite() const {
  return toUtf8(m_view.sitePickerPopUp.currentText());
}

const sitemaps::Layout* ExportController::tickedLayout() const {
  const int ticked = m_layouts->checkedId();
  return ticked < 0 ? nullptr : &sitemaps::kLayouts[static_cast<std::size_t>(ticked)];
}

ExportJob ExportController::jobNow(ExportMode mode) const {
  ExportJob job = {mode, pickedSite()};
  switch (mode) {
    case ExportMode::html:
      job.layout = tickedLayout();
      break;
    case ExportMode::xml:
      job.split = m_view.splitXmlBox.isChecked();
      if (m_view.gzipXmlBox.isChecked()) job.compression = sitemaps::Compression::gzip;
      break;
    case ExportMode::brokenHtml:
    case ExportMode::brokenText:
      job.brokenLinks = m_state.qzvskBadLinkArray;
      break;
  }
  return job;
}

void ExportController::exportHTMLSitemaps() {
  if (std::exchange(m_working, true)) return;
  m_expMax = 20;
  m_expCurrent = 1;
  updateExportBar();
  m_sheets.show(m_exportCustomPanel);
  exportSitemaps(jobNow(ExportMode::html));
}

void ExportController::exportXMLSitemap() {
  if (std::exchange(m_working, true)) return;
  m_exportCustomPanel.showBusy();
  m_sheets.show(m_exportCustomPanel);
  exportSitemaps(jobNow(ExportMode::xml));
}

void ExportController::exportBrokenAsHTMLAction() {
  exportSitemaps(jobNow(ExportMode::brokenHtml));
}

void ExportController::exportBrokenAsTXTAction() {
  exportSitemaps(jobNow(ExportMode::brokenText));
}

/// The list of broken pages is at hand already: only documents need the worker.
void ExportController::exportSitemaps(ExportJob job) {
  const bool ofDocument = job.mode == ExportMode::html || job.mode == ExportMode::xml;
  if (job.site.empty() || (job.mode == ExportMode::html && job.layout == nullptr)) {
    if (ofDocument) giveUp();
    return;
  }
  switch (job.mode) {
    case ExportMode::html:
      return processAndRemoveLINKID(std::move(job));
    case ExportMode::xml:
      return removeEmptyElements(std::move(job));
    case ExportMode::brokenHtml:
      return askWhereToSave(m_sheets, m_mainWindow,
                            {tr("Export Broken Links"), QStringLiteral("brokenLinksExport.html"),
                             tr("Web page (*.html)"), QStringLiteral("html"), saveFolder()},
                            *this, [this, links = std::move(job.brokenLinks)](const QString& path) {
                              didEndSaveSheetHTMLBroken(path, links);
                            });
    case ExportMode::brokenText:
      return askWhereToSave(m_sheets, m_mainWindow,
                            {tr("Export Broken Links"), QStringLiteral("brokenLinksExport.txt"),
                             tr("Text (*.txt)"), QStringLiteral("txt"), saveFolder()},
                            *this, [this, links = std::move(job.brokenLinks)](const QString& path) {
                              didEndSaveSheetTXTBroken(path, links);
                            });
  }
}

void ExportController::processAndRemoveLINKID(ExportJob job) {
  const auto progress = [this](std::size_t line, std::size_t lines) {  // on the worker
    const auto show = [this, line, lines] {
      m_expMax = static_cast<std::int64_t>(lines);
      m_expCurrent = static_cast<std::int64_t>(line);
      updateExportBar();
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
  };
  m_worker = std::jthread([this, job = std::move(job), progress] {
    const auto prepared = made(job, [&](PreparedExport& made) {
      made.document = sitemaps::exportedHtml(m_controls, job.site, *job.layout, progress);
      made.holdsScripts = sitemaps::holdsScriptText(made.document.text);
    });
    QMetaObject::invokeMethod(
        this, [this, prepared] { documentIsReady(prepared); }, Qt::QueuedConnection);
  });
}

void ExportController::removeEmptyElements(ExportJob job) {
  m_worker = std::jthread([this, job = std::move(job)](const std::stop_token& stop) {
    const auto prepared = made(job, [&](PreparedExport& made) {
      made.document = sitemaps::exportedXml(m_controls, job.site);
      made.startUrl = store::readSite(m_controls, job.site).details.url;
    });
    if (prepared->document.failure == sitemaps::ExportFailure::none) waitUnlessStopped(stop, kSheetIsSeen);
    QMetaObject::invokeMethod(
        this, [this, prepared] { documentIsReady(prepared); }, Qt::QueuedConnection);
  });
}

void ExportController::updateExportBar() {
  m_exportCustomPanel.showProgress(m_expCurrent, m_expMax);
}

void ExportController::documentIsReady(std::shared_ptr<PreparedExport> prepared) {
  m_sheets.close(m_exportCustomPanel);
  if (prepared->document.failure != sitemaps::ExportFailure::none) {
    m_working = false;
    return tellFailure(prepared->document);
  }
  QTimer::singleShot(kFollowUpDelay, this, [this, prepared = std::move(prepared)] {
    m_working = false;
    offer(prepared);
  });
}

void ExportController::offer(std::shared_ptr<PreparedExport> prepared) {
  if (prepared->job.mode == ExportMode::html) {
    if (prepared->holdsScripts && !m_passedScripts.contains(prepared->document.path))
      return warnOfScripts(std::move(prepared));
    saveHTMLFile(std::move(prepared));
  } else if (!prepared->job.split) {
    saveXMLFile(std::move(prepared));
  } else {
    m_split.begin({std::move(prepared->document.text), std::move(prepared->startUrl),
                   prepared->job.compression, saveFolder()});
  }
}

/// In the viewer a document can do nothing. Where it is published, what somebody has put into it may run.
/// Said once for each document that the user lets pass.
void ExportController::warnOfScripts(std::shared_ptr<PreparedExport> prepared) {
  constexpr int kCancel = 1;
  m_sheets.choose(tr("This sitemap holds text that a browser may run as a program."),
                  tr("Veskel only shows it; where you publish the sitemap a browser may run it."),
                  {tr("Export"), tr("Cancel")}, kCancel, [this, prepared = std::move(prepared)](int answer) {
                    if (answer == kCancel) return;
                    m_passedScripts.insert(prepared->document.path);
                    saveHTMLFile(prepared);
                  });
}

/// For an export that does not come to a document.
void ExportController::giveUp() {
  m_sheets.close(m_exportCustomPanel);
  m_working = false;
}

void ExportController::tellFailure(const sitemaps::ExportedDocument& document) {
  switch (document.failure) {
    case sitemaps::ExportFailure::missing:
      return m_sheets.alert(translated(sitemaps::kExportMissing));
    case sitemaps::ExportFailure::busy:
      return m_sheets.alert(tr("The site is being scanned."), tr("Export it when the scan has finished."));
    default:
      m_sheets.alert(translated(sitemaps::kExportUnusable),
                     tr("If this problem persists, please contact support."));
  }
}

void ExportController::saveHTMLFile(std::shared_ptr<const PreparedExport> saveData) {
  askWhereToSave(m_sheets, m_mainWindow,
                 {tr("Export HTML Sitemap"), QStringLiteral("sitemap.html"),
                  tr("Web page (*.html *.php *.asp *.htm)"), QStringLiteral("html"), saveFolder()},
                 *this, [this, saveData = std::move(saveData)](const QString& path) {
                   didEndSaveSheet(path, *saveData);
                 });
}

void ExportController::saveXMLFile(std::shared_ptr<const PreparedExport> saveData) {
  askWhereToSave(m_sheets, m_mainWindow,
                 {tr("Export XML Sitemap"), QStringLiteral("sitemap.xml"), tr("XML sitemap (*.xml)"),
                  QStringLiteral("xml"), saveFolder()},
                 *this, [this, saveData = std::move(saveData)](const QString& path) {
                   didEndSaveSheet(path, *saveData);
                 });
}

void ExportController::didEndSaveSheet(const QString& path, const PreparedExport& saveData) {
  save(saveData.document.text, path);
}

void ExportController::didEndSaveSheetHTMLBroken(const QString& path, const std::vector<std::string>& links) {
  save(sitemaps::brokenLinksHtml(links), path);
}

void ExportController::didEndSaveSheetTXTBroken(const QString& path, const std::vector<std::string>& links) {
  save(sitemaps::brokenLinksText(links), path);
}

void ExportController::save(std::string_view text, const QString& path) {
  const platform::FileResult saved = saveEditedSitemapContent(text, toUtf8(path));
  if (saved.ok()) {
    emit report(tr("Saved %1").arg(path));
  } else {
    m_sheets.alert(tr("The file could not be saved."),
                   tr("Could not write %1: %2").arg(path, toQString(saved.error)));
  }
}

platform::FileResult ExportController::saveEditedSitemapContent(std::string_view text,
                                                                const std::filesystem::path& file) const {
  return platform::replaceFile(file, text);
}

void ExportController::saveToButton() {
  askForFolder(m_sheets, m_mainWindow, {tr("Save Folder"), tr("Set Save Folder"), saveFolder()}, *this,
               [this](const QString& path) {
                 setSaveFolder(path);
                 emit saveFolderChanged();
               });
}

void ExportController::setSaveFolder(const QString& folder) {
  m_saveFolder = folder;
  m_view.saveToInput.setText(folder);
  m_view.saveToInput.setToolTip(folder);
}

}  // namespace ui
