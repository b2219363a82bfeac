#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QListView>
#include <QMetaObject>
#include <QSettings>
#include <QStatusBar>

#include "platform/named_controls.h"
#include "platform/qt_text.h"
#include "ui/icons.h"
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

MainWindow::MainWindow(const store::GlobalControls& controls, const store::BrokenReasons& reasons,
                       QString stateFile)
    : m_controls(controls),
      m_reasons(reasons),
      m_stateFile(std::move(stateFile)),
      m_ui(std::make_unique<Ui::MainWindow>()) {
  m_ui->setupUi(this);
  m_ui->scanNotice->hide();
  m_ui->filterDrawer->hide();
  m_ui->scannedLinksViewer->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  QFont heading = font();
  heading.setPointSizeF(heading.pointSizeF() * 1.4);
  heading.setBold(true);
  m_ui->siteName->setFont(heading);
  QFont prominent = font();
  prominent.setBold(true);
  m_ui->scanSiteButton->setFont(prominent);
  auto* version = new QLabel(tr("Veskel Version %1").arg(QApplication::applicationVersion()));
  version->setObjectName(QStringLiteral("versionLabel"));
  m_ui->statusBar->addPermanentWidget(version);
  applyIcons();
  makeControllers();
  connectMenus();
  restorePlace();
  m_ui->siteListTable->setFocus();
}

MainWindow::~MainWindow() = default;

void MainWindow::makeControllers() {
  m_sheets = std::make_unique<platform::SheetQueue>(*this);
  m_siteEditor =
      std::make_unique<store::AddEditDeleteSitesController>(*this, *m_sheets, m_controls, m_reasons);
  m_filters = std::make_unique<crawler::FilterController>(*this, *m_sheets, m_controls, m_state);
  m_scan = std::make_unique<crawler::ScanController>(*this, *m_sheets, m_controls, m_state, m_reasons);
  m_scanView = std::make_unique<ui::ScanViewController>(
      *this,
      ui::ScanViewParts{*m_sheets, m_controls, m_reasons, m_state, *m_siteEditor, *m_scan, *m_filters});
  m_views = std::make_unique<ui::MainViewControl>(*this, *m_sheets, m_controls, m_state);

  const auto report = [this](const QString& sentence) { m_ui->statusBar->showMessage(sentence); };
  connect(m_siteEditor.get(), &store::AddEditDeleteSitesController::report, this, report);
  connect(m_scan.get(), &crawler::ScanController::report, this, report);
  connect(m_scanView.get(), &ui::ScanViewController::report, this, report);
}

void MainWindow::connectMenus() {
  connect(m_ui->closeMI, &QAction::triggered, this, &QWidget::close);
  connect(m_ui->copyMI, &QAction::triggered, this, [this] { triggerOnFocus("copy"); });
  connect(m_ui->selectAllMI, &QAction::triggered, this, [this] { triggerOnFocus("selectAll"); });
  connect(m_ui->guideMI, &QAction::triggered, this, &MainWindow::showGuide);
  connect(m_ui->aboutMI, &QAction::triggered, this, &MainWindow::showAbout);
}

void MainWindow::applyIcons() {
  for (const IconOfAction& each : kIcons) {
    platform::control<QAction>(*this, each.action)
        .setIcon(ui::namedIcon(QLatin1String(each.icon), palette()));
  }
}

/// Copies or selects in whatever has the focus, by its own means.
void MainWindow::triggerOnFocus(const char* slot) {
  QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr) return;
  for (QAction* action : focus->actions()) {
    if (action->objectName() == QLatin1String("copySelection") && qstrcmp(slot, "copy") == 0)
      return action->trigger();
  }
  if (focus->metaObject()->indexOfMethod(QByteArray(slot) + "()") >= 0)
    QMetaObject::invokeMethod(focus, slot);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (m_scan->isScanning()) {
    event->ignore();
    m_scan->askToStop([this] { close(); });
    return;
  }
  rememberPlace();
  event->accept();
  QApplication::quit();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) applyIcons();
}

void MainWindow::restorePlace() {
  const QSettings settings(m_stateFile, QSettings::IniFormat);
  if (!restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray())) resize(kUsualSize);
  if (!m_ui->scanSplitter->restoreState(settings.value(QStringLiteral("scanSplitter")).toByteArray())) {
    m_ui->scanSplitter->setSizes({kUsualSize.width() * 9 / 20, kUsualSize.width() * 11 / 20});
  }
}

void MainWindow::rememberPlace() const {
  QSettings settings(m_stateFile, QSettings::IniFormat);
  settings.setValue(QStringLiteral("geometry"), saveGeometry());
  settings.setValue(QStringLiteral("scanSplitter"), m_ui->scanSplitter->saveState());
}

void MainWindow::showGuide() {
  m_sheets->alert(
      tr("How to build a sitemap"),
      tr("1. Add a website: its name, and the address where it starts.\n"
         "2. Select it in the list and press Scan Site. Veskel follows every link that stays inside the "
         "site.\n"
         "3. Look at the broken pages, and add filters for what you want to leave out.\n"
         "4. The sitemaps lie in the site's folder: File, Open Site Folder."));
}

void MainWindow::showAbout() {
  m_sheets->alert(tr("Veskel Version %1").arg(QApplication::applicationVersion()),
                  tr("Builds sitemaps for websites."));
}

}  // namespace app
