#include "app/main_window.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QStyle>
#include <QTableView>
#include <QUrl>
#include <utility>

#include "platform/kernel_version.h"
#include "platform/named_controls.h"
#include "platform/qt_text.h"
#include "platform/window_cover.h"
#include "report/report_writer.h"
#include "ui/broken_links_controller.h"
#include "ui/elided_label.h"
#include "ui/guide.h"
#include "ui/icons.h"
#include "ui/link_check_controller.h"
#include "ui/report_reader.h"
#include "ui/report_window.h"
#include "ui/update_controller.h"
#include "ui/view_forms.h"
#include "ui_main_window.h"

namespace app {

namespace {

constexpr QSize kUsualSize{1100, 720};

struct IconOfAction {
  const char* action;
  const char* icon;
};

constexpr IconOfAction kIcons[] = {
    {"scanTBI", "veskel-scan"},      {"htmlTBI", "veskel-html"},      {"htmlEditTBI", "veskel-style"},
    {"xmlTBI", "veskel-xml"},        {"exportTBI", "veskel-export"},  {"uploadTBI", "veskel-upload"},
    {"addMI", "list-add"},           {"editMI", "document-edit"},     {"deleteMI", "edit-delete"},
    {"openFolderMI", "folder-open"}, {"closeMI", "application-exit"}, {"copyMI", "edit-copy"},
    {"scanMI", "view-refresh"},
};

}  // namespace

MainWindow::MainWindow(const store::GlobalControls& controls, const store::StateFolder& stateFolder)
    : m_controls(controls),
      m_stateFolder(stateFolder),
      m_stateFile(platform::toQString((stateFolder.location() / "window.ini").native())),
      m_ui(std::make_unique<Ui::MainWindow>()) {
  m_ui->setupUi(this);
  ui::fillViews(*this);
  m_scanSplitter = &platform::control<QSplitter>(*this, "scanSplitter");
  m_version = new QLabel(tr("Veskel Version %1").arg(QApplication::applicationVersion()));
  m_version->setObjectName(QStringLiteral("versionLabel"));
  m_ui->statusBar->addPermanentWidget(m_version);
  showSiteInHand();
  applyIcons();
  makeControllers();
  connectMenus();
  holdBackUnderSheets();
  letScansBeLeft();
  restorePlace();
  platform::control<QTableView>(*this, "siteListTable").setFocus();
}

MainWindow::~MainWindow() = default;

/// Every view works on the site that was selected in the first one, so its name stands beside them all.
void MainWindow::showSiteInHand() {
  auto* gap = new QWidget;
  gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  m_ui->mainToolBar->addWidget(gap);
  m_siteInHand = new ui::ElidedLabel;
  m_siteInHand->setObjectName(QStringLiteral("siteInHand"));
  m_siteInHand->setTextFormat(Qt::PlainText);
  const int letter = fontMetrics().averageCharWidth();
  m_siteInHand->setContentsMargins(2 * letter, 0, letter, 0);
  m_ui->mainToolBar->addWidget(m_siteInHand);
}

void MainWindow::makeControllers() {
  m_sheets = std::make_unique<platform::SheetQueue>(*this);
  m_siteEditor = std::make_unique<store::AddEditDeleteSitesController>(*this, *m_sheets, m_controls,
                                                                       m_stateFolder, m_state);
  m_filters = std::make_unique<crawler::FilterController>(*this, *m_sheets, m_controls, m_state);
  m_scanSettings = std::make_unique<crawler::ScanSettingsController>(*this, *m_sheets, m_controls,
                                                                     m_stateFolder, m_state, m_passwords);
  m_scan = std::make_unique<crawler::ScanController>(*this, *m_sheets, m_controls, m_stateFolder, m_state,
                                                     m_passwords);
  m_scan->setMakeLog([this](const std::string& siteName) {
    return std::make_unique<report::ReportWriter>(m_stateFolder, siteName);
  });
  m_restore = std::make_unique<ui::RestoreController>(
      *this, ui::RestoreServices{*m_sheets, m_controls, m_stateFolder, m_state, *m_scan});
  m_scanView = std::make_unique<ui::ScanViewController>(
      *this, ui::ScanViewParts{*m_sheets, m_controls, m_stateFolder, m_state, *m_siteEditor, *m_scan,
                               *m_filters, *m_restore});
  m_views = std::make_unique<ui::MainViewControl>(*this, *m_sheets, m_controls, m_state);
  m_export = std::make_unique<ui::ExportController>(*this, *m_sheets, m_controls, m_state, m_passedScripts);

  makeReport();
  makeLinkCheck();
  makeUpdateCheck();
  makeHtmlView();
  m_xmlView =
      std::make_unique<xml_editor::XMLViewController>(*this, *m_sheets, m_controls, m_stateFolder, m_state);
  connect(m_views.get(), &ui::MainViewControl::viewShown, m_xmlView.get(),
          &xml_editor::XMLViewController::viewTBIAction);
  connect(m_scanView.get(), &ui::ScanViewController::qzvskLFF, m_xmlView.get(),
          &xml_editor::XMLViewController::siteChanged);

  connect(m_scanView.get(), &ui::ScanViewController::siteInHandChanged, m_siteInHand, &QLabel::setText);

  const auto report = [this](const QString& sentence) { say(sentence); };
  connect(m_sheets.get(), &platform::SheetQueue::alerted, this, report);
  connect(m_siteEditor.get(), &store::AddEditDeleteSitesController::report, this, report);
  connect(m_scan.get(), &crawler::ScanController::report, this, report);
  // A scan takes its time, and its user does something else meanwhile.
  connect(m_scan.get(), &crawler::ScanController::scanned, this, [this] { QApplication::alert(this); });
  // What a scan wrote is no other program's change.
  connect(m_scan.get(), &crawler::ScanController::scanned, m_xmlView.get(),
          &xml_editor::XMLViewController::siteChanged);
  connect(m_scanView.get(), &ui::ScanViewController::report, this, report);
  connect(m_restore.get(), &ui::RestoreController::report, this, report);
  connect(m_restore.get(), &ui::RestoreController::restored, this, [this] {
    if (m_views->returnCurrentView() == ui::brokenLinksView) m_views->showBrokenLinks();
  });
  connect(m_xmlView.get(), &xml_editor::XMLViewController::report, this, report);
  connect(m_filters.get(), &crawler::FilterController::report, this, report);
  connect(m_scanSettings.get(), &crawler::ScanSettingsController::report, this, report);
  connect(m_scanSettings.get(), &crawler::ScanSettingsController::saved, m_scan.get(),
          &crawler::ScanController::settingsChanged);
  connect(m_export.get(), &ui::ExportController::report, this, report);
  connect(m_export.get(), &ui::ExportController::saveFolderChanged, this, &MainWindow::rememberPlace);
}

/// What is kept of scans is read by one reader, for the view of broken links and the window of the report.
void MainWindow::makeReport() {
  m_reportReader = std::make_unique<ui::ReportReader>(m_stateFolder);
  m_brokenLinks = std::make_unique<ui::BrokenLinksController>(*this, m_state, *m_reportReader);
  connect(m_scanView.get(), &ui::ScanViewController::siteInHandChanged, m_reportReader.get(),
          &ui::ReportReader::follow);
  connect(m_scan.get(), &crawler::ScanController::scanned, m_reportReader.get(), &ui::ReportReader::readAnew);
  const auto showBrokenLinks = [this] {
    if (m_views->returnCurrentView() == ui::brokenLinksView) m_brokenLinks->show();
  };
  connect(m_views.get(), &ui::MainViewControl::viewShown, this, showBrokenLinks);
  connect(m_scan.get(), &crawler::ScanController::scanned, this, showBrokenLinks);
  connect(m_brokenLinks.get(), &ui::BrokenLinksController::leaveOut, m_filters.get(),
          &crawler::FilterController::leaveOut);
  auto* linkingExport = new ui::LinkingExport(*this, *m_sheets, m_stateFolder, m_state);
  linkingExport->setParent(m_brokenLinks.get());
  connect(m_brokenLinks.get(), &ui::BrokenLinksController::exportWanted, linkingExport,
          [this, linkingExport](ui::LinkingExport::Format format) {
            linkingExport->begin(format, m_export->saveFolder());
          });
  connect(linkingExport, &ui::LinkingExport::report, this,
          [this](const QString& sentence) { say(sentence); });
  connect(m_ui->scanReportMI, &QAction::triggered, this, [this] { reportWindow().bringUp(); });
}

void MainWindow::makeLinkCheck() {
  m_linkCheck = std::make_unique<ui::LinkCheckController>(
      ui::LinkCheckServices{m_controls, m_stateFolder, m_state, *m_scan, m_passwords});
  ui::LinkCheckController* check = m_linkCheck.get();
  connect(m_scanView.get(), &ui::ScanViewController::siteInHandChanged, check,
          &ui::LinkCheckController::refresh);
  connect(m_scan.get(), &crawler::ScanController::scanBegan, check, &ui::LinkCheckController::refresh);
  connect(m_scan.get(), &crawler::ScanController::scanned, check, &ui::LinkCheckController::refresh);
  connect(check, &ui::LinkCheckController::changed, this,
          [this] { m_ui->checkLinksMI->setEnabled(m_linkCheck->whyNot().isEmpty()); });
  connect(check, &ui::LinkCheckController::ended, this, [this](const QString& site) {
    if (site == platform::toQString(m_state.qzvskCurSite)) m_reportReader->readAnew();
  });
  connect(check, &ui::LinkCheckController::report, this, [this](const QString& sentence) { say(sentence); });
  connect(m_ui->checkLinksMI, &QAction::triggered, this, [this] { reportWindow().checkLinks(); });
}

void MainWindow::makeUpdateCheck() {
  if (update::appcastAddress().empty()) return m_ui->checkUpdatesMI->setVisible(false);
  const std::string version = platform::toUtf8(QApplication::applicationVersion());
  const update::CheckRequest request{.address = std::string(update::appcastAddress()),
                                     .programVersion = version,
                                     .systemVersion = platform::kernelVersion()};
  m_update = std::make_unique<ui::UpdateController>(*this, *m_sheets, request,
                                                    [version] { return update::networkClient(version); });
  connect(m_update.get(), &ui::UpdateController::report, this,
          [this](const QString& sentence) { say(sentence); });
  connect(m_ui->checkUpdatesMI, &QAction::triggered, m_update.get(), &ui::UpdateController::check);
}

ui::ReportWindow& MainWindow::reportWindow() {
  if (m_report == nullptr)
    m_report = std::make_unique<ui::ReportWindow>(*m_reportReader, *m_linkCheck, m_state, m_stateFile);
  return *m_report;
}

void MainWindow::makeHtmlView() {
  const html_editor::RecoveryCopies copies(m_stateFolder);
  copies.takeFormer();
  m_htmlView = std::make_unique<html_editor::HTMLViewController>(
      html_editor::HTMLViewServices{*this, *m_sheets, m_controls, m_state, copies, m_passedScripts});
  m_views->setCheckSave([this] { m_htmlView->checkSave(); });
  m_scanView->setBeforeChange(
      [this](std::function<void()> command) { m_htmlView->checkSave(std::move(command)); });
  connect(m_scanView.get(), &ui::ScanViewController::qzvskLFF, m_htmlView.get(),
          &html_editor::HTMLViewController::siteChanged);
  connect(m_scan.get(), &crawler::ScanController::scanned, m_htmlView.get(),
          &html_editor::HTMLViewController::siteChanged);
  connect(m_views.get(), &ui::MainViewControl::viewShown, this,
          [this, previous = int{ui::scanView}](int view) mutable {
            const int from = std::exchange(previous, view);
            if (view == ui::htmlView) m_htmlView->viewTBIAction(from == ui::htmlView);
            if (view == ui::htmlEditorView) m_htmlView->styleTBIAction(from);
          });
  connect(m_htmlView.get(), &html_editor::HTMLViewController::report, this,
          [this](const QString& sentence) { say(sentence); });
  connect(m_htmlView.get(), &html_editor::HTMLViewController::needsSaveChanged, m_ui->saveMI,
          &QAction::setEnabled);
  connect(m_ui->saveMI, &QAction::triggered, m_htmlView.get(),
          &html_editor::HTMLViewController::saveRecentChanges);
}

/// Says at the foot of the window what happened last.
void MainWindow::say(const QString& sentence) {
  m_said = sentence;
  const int room = m_ui->statusBar->width() - m_version->width() - 6 * fontMetrics().averageCharWidth();
  m_ui->statusBar->showMessage(m_ui->statusBar->fontMetrics().elidedText(sentence, Qt::ElideMiddle, room));
  m_ui->statusBar->setToolTip(sentence);
}

bool MainWindow::event(QEvent* event) {
  const bool handled = QMainWindow::event(event);
  // What a command would do is told only while the mouse is on it.
  const bool hintWent =
      event->type() == QEvent::StatusTip && static_cast<QStatusTipEvent*>(event)->tip().isEmpty();
  if (hintWent || event->type() == QEvent::Resize) say(m_said);
  return handled;
}

void MainWindow::connectMenus() {
  m_ui->scanMI->setShortcuts({QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL | Qt::Key_R)});
  m_ui->exportTBI->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_5), QKeySequence(Qt::CTRL | Qt::Key_E)});
  connect(m_ui->closeMI, &QAction::triggered, this, &QWidget::close);
  connect(m_ui->guideMI, &QAction::triggered, this, &MainWindow::showGuide);
  connect(m_ui->aboutMI, &QAction::triggered, this, &MainWindow::showAbout);
  m_menuCommands = std::make_unique<MenuCommands>(*this, *m_views, *m_htmlView, m_state);
}

void MainWindow::holdBackUnderSheets() {
  auto* commands = new QActionGroup(this);
  commands->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
  QList<QActionGroup*> groups = {commands};
  for (QAction* action : findChildren<QAction*>()) {
    if (action->actionGroup() == nullptr && qobject_cast<QLineEdit*>(action->parent()) == nullptr) {
      commands->addAction(action);
    } else if (action->actionGroup() != nullptr && !groups.contains(action->actionGroup())) {
      groups.append(action->actionGroup());
    }
  }
  platform::WindowCover::of(*this).setCommands(groups);
}

/// Behind a sheet the window's menu is out of reach, and so is its title bar. Whoever has had enough of a
/// scan can close the window all the same; any other sheet is answered first.
void MainWindow::letScansBeLeft() {
  const auto leave = [this] {
    if (m_scan->isScanning()) close();
  };
  m_closeRequests = std::make_unique<platform::CloseRequests>(*this);
  connect(m_closeRequests.get(), &platform::CloseRequests::requested, this, leave);
  connect(m_sheets.get(), &platform::SheetQueue::opened, this, [this, leave](QDialog& sheet) {
    if (sheet.findChild<QShortcut*>() != nullptr) return;  // it was up before
    connect(new QShortcut(m_ui->closeMI->shortcut(), &sheet), &QShortcut::activated, this, leave);
  });
}

void MainWindow::applyIcons() {
  for (const IconOfAction& each : kIcons) {
    platform::control<QAction>(*this, each.action)
        .setIcon(ui::namedIcon(QLatin1String(each.icon), palette()));
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (m_scan->isScanning()) {
    event->ignore();
    m_scan->askToStop([this] { close(); });
    return;
  }
  if (m_state.qzvskNeedsSave) {
    event->ignore();
    m_htmlView->checkSave([this] { close(); });
    return;
  }
  rememberPlace();
  if (m_report != nullptr) m_report->close();
  event->accept();
  QApplication::quit();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) applyIcons();
}

void MainWindow::restorePlace() {
  const QSettings settings(m_stateFile, QSettings::IniFormat);
  m_export->setSaveFolder(settings.value(QStringLiteral("saveFolder")).toString());
  if (!restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray())) {
    // Its frame, which nobody knows before it is on the screen, has to fit as well.
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    resize(kUsualSize.boundedTo(screen()->availableSize() - QSize(title, 2 * title)));
  }
  if (!m_scanSplitter->restoreState(settings.value(QStringLiteral("scanSplitter")).toByteArray())) {
    m_scanSplitter->setSizes({kUsualSize.width() * 9 / 20, kUsualSize.width() * 11 / 20});
  }
}

void MainWindow::rememberPlace() const {
  QSettings settings(m_stateFile, QSettings::IniFormat);
  settings.setValue(QStringLiteral("saveFolder"), m_export->saveFolder());
  settings.setValue(QStringLiteral("geometry"), saveGeometry());
  settings.setValue(QStringLiteral("scanSplitter"), m_scanSplitter->saveState());
}

void MainWindow::showGuide() {
  const QString guide = ui::guideFile();
  if (!guide.isEmpty() && QDesktopServices::openUrl(QUrl::fromLocalFile(guide))) return;
  m_sheets->tell(
      tr("How to build a sitemap"),
      tr("1. Add a website: its name, and the address where it starts.\n"
         "2. Select it in the list and press Scan Site. Veskel follows every link that stays inside the "
         "site.\n"
         "3. Look at the broken pages, and add filters for what you want to leave out.\n"
         "4. Export the sitemaps, and publish them as the Upload view tells."));
}

void MainWindow::showAbout() {
  m_sheets->tell(tr("Veskel Version %1").arg(QApplication::applicationVersion()),
                 tr("Builds sitemaps for websites."));
}

}  // namespace app
