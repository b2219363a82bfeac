#include "ui/scan_view_controller.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QDockWidget>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTableView>
#include <QToolButton>
#include <QUrl>
#include <algorithm>
#include <array>

#include "platform/named_controls.h"
#include "platform/qt_text.h"
#include "store/site_list.h"
#include "ui/address_actions.h"
#include "ui/sorted_table.h"

namespace ui {

using platform::control;
using platform::toQString;
using platform::toUtf8;

namespace {

/// Of the name of a site, so many letters are to be seen.
constexpr int kNameLetters = 18;

/// The columns beside the name, the ones that tell most first.
constexpr std::array<int, 4> kColumnsByWorth = {SiteTableModel::pagesColumn, SiteTableModel::brokenColumn,
                                                SiteTableModel::linksColumn, SiteTableModel::lastScanColumn};

QString countText(int count) {
  return QLocale().toString(std::max(0, count));
}

}  // namespace

ScanViewController::ScanViewController(QMainWindow& mainWindow, const ScanViewParts& parts)
    : m_mainWindow(mainWindow),
      m_parts(parts),
      m_sites(parts.controls, parts.reasons),
      m_siteListTable(control<QTableView>(mainWindow, "siteListTable")),
      m_noLinks(new EmptyHint(control<QListView>(mainWindow, "scannedLinksViewer"))) {
  buildTable();
  connectCommands();
  buildContextMenus();
  // A hidden button keeps its place, so that nothing moves when it comes and goes.
  auto& button = control<QPushButton>(mainWindow, "brokenLinksButton");
  QSizePolicy policy = button.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  button.setSizePolicy(policy);
  populateSiteTable();
  showNoSite();
}

void ScanViewController::buildTable() {
  m_found.setSourceModel(&m_sites);
  m_found.setFilterCaseSensitivity(Qt::CaseInsensitive);
  m_found.setSortRole(SiteTableModel::sortRole);
  m_found.setSortCaseSensitivity(Qt::CaseInsensitive);
  // When the search takes the selected site out of the list, no site is selected: the table would go on to
  // the next one, and with every letter typed another site would come into hand. Connected before the table
  // is.
  connect(&m_found, &QAbstractItemModel::rowsAboutToBeRemoved, this,
          [this](const QModelIndex&, int first, int last) {
            const int current = m_siteListTable.currentIndex().row();
            if (current >= first && current <= last) m_siteListTable.selectionModel()->clear();
          });
  m_siteListTable.setModel(&m_found);
  sortByHeadings(m_siteListTable);
  m_siteListTable.viewport()->installEventFilter(this);
  m_noSiteFound = new EmptyHint(m_siteListTable);
  m_siteListTable.verticalHeader()->hide();
  m_siteListTable.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  QHeaderView* header = m_siteListTable.horizontalHeader();
  header->setHighlightSections(false);
  header->setStretchLastSection(false);
  header->setSectionResizeMode(QHeaderView::Interactive);
  header->setSectionResizeMode(SiteTableModel::siteColumn, QHeaderView::Stretch);
  connect(m_siteListTable.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ScanViewController::tableViewSelectionDidChange);
  connect(&control<QLineEdit>(m_mainWindow, "siteSearch"), &QLineEdit::textChanged, &m_found,
          &QSortFilterProxyModel::setFilterFixedString);
}

void ScanViewController::measureColumns() {
  const QHeaderView* header = m_siteListTable.horizontalHeader();
  const QFontMetrics metrics = m_siteListTable.fontMetrics();
  for (const int column : kColumnsByWorth) {
    m_columnWidths[column] =
        std::max(header->sectionSizeHint(column),
                 metrics.horizontalAdvance(m_sites.longestText(column)) + 3 * metrics.averageCharWidth());
  }
  fitColumns();
}

/// Numbers get the room they need, and the name gets the rest. Where that is little, the columns that can be
/// missed most easily go.
void ScanViewController::fitColumns() {
  QHeaderView* header = m_siteListTable.horizontalHeader();
  int room =
      m_siteListTable.viewport()->width() - kNameLetters * m_siteListTable.fontMetrics().averageCharWidth();
  for (const int column : kColumnsByWorth) {
    room -= m_columnWidths[column];
    header->resizeSection(column, m_columnWidths[column]);
    header->setSectionHidden(column, room < 0);
  }
}

void ScanViewController::connectCommands() {
  using store::AddEditDeleteSitesController;
  AddEditDeleteSitesController& editor = m_parts.siteEditor;
  const auto onClick = [&](const char* name, auto* receiver, auto slot) {
    connect(&control<QPushButton>(m_mainWindow, name), &QPushButton::clicked, receiver, slot);
  };
  const auto onAction = [&](const char* name, auto* receiver, auto slot) {
    connect(&control<QAction>(m_mainWindow, name), &QAction::triggered, receiver, slot);
  };
  onClick("addSiteButton", &editor, &AddEditDeleteSitesController::addNewSite);
  onClick("firstSiteButton", &editor, &AddEditDeleteSitesController::addNewSite);
  onClick("editSiteButton", &editor, &AddEditDeleteSitesController::editSite);
  onClick("deleteSiteButton", &editor, &AddEditDeleteSitesController::deleteSite);
  // The menus reach the site from every view, also from one that holds unsaved changes.
  const auto whenSaved = [&](const char* name, auto* receiver, auto slot) {
    onAction(name, this,
             [this, receiver, slot] { m_beforeChange([receiver, slot] { (receiver->*slot)(); }); });
  };
  whenSaved("addMI", &editor, &AddEditDeleteSitesController::addNewSite);
  whenSaved("editMI", &editor, &AddEditDeleteSitesController::editSite);
  whenSaved("deleteMI", &editor, &AddEditDeleteSitesController::deleteSite);
  whenSaved("scanMI", &m_parts.scan, &crawler::ScanController::scanSiteAction);
  onAction("openFolderMI", this, [this] { openSiteFolder(); });
  onAction("filtersMI", this, &ScanViewController::filterAddPanel);
  onAction("ignoreRobotsMI", this, &ScanViewController::ignoreRobotsAction);
  // A screen reader toggles what others click.
  connect(&control<QPushButton>(m_mainWindow, "filterDrawerButton"), &QPushButton::toggled, this,
          &ScanViewController::filterAddPanel);
  connect(&control<QCheckBox>(m_mainWindow, "ignoreRobotsButton"), &QCheckBox::toggled, this,
          &ScanViewController::ignoreRobotsAction);
  onAction("findSiteMI", this, [this] { control<QLineEdit>(m_mainWindow, "siteSearch").setFocus(); });
  connect(&control<QToolButton>(m_mainWindow, "copyUrlButton"), &QToolButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(siteUrl()); });
  connect(&editor, &AddEditDeleteSitesController::sitesChanged, this, [this] {
    populateSiteTable();
    tableViewSelectionDidChange();
  });
  connect(&editor, &AddEditDeleteSitesController::siteNamed, this, &ScanViewController::showSiteAt);
  connect(&m_parts.scan, &crawler::ScanController::scanned, this, [this](const QString& name) {
    m_sites.refresh(toUtf8(name));
    measureColumns();
  });
  connect(this, &ScanViewController::qzvskLFF, &m_parts.filters, &crawler::FilterController::loadFilterFile);
  // The drawer has a close button of its own; the buttons that show its state follow.
  auto& drawer = control<QDockWidget>(m_mainWindow, "filterDrawer");
  drawer.installEventFilter(this);
  connect(&drawer, &QDockWidget::visibilityChanged, this, [this](bool visible) {
    auto& button = control<QPushButton>(m_mainWindow, "filterDrawerButton");
    const QSignalBlocker quiet(button);
    button.setChecked(visible);
    control<QAction>(m_mainWindow, "filtersMI").setChecked(visible);
  });
}

void ScanViewController::buildContextMenus() {
  auto& list = control<QListView>(m_mainWindow, "scannedLinksViewer");
  const auto selectedLinks = [&list] {
    QStringList links;
    for (const QModelIndex& index : list.selectionModel()->selectedIndexes())
      links.append(index.data().toString());
    return links;
  };
  addAddressActions(list, selectedLinks);
  // The key belongs to the table of sites alone: elsewhere it deletes a character or a filter.
  auto& remove = control<QAction>(m_mainWindow, "deleteMI");
  remove.setShortcut(QKeySequence::Delete);
  remove.setShortcutContext(Qt::WidgetShortcut);
  const auto separator = [this] {
    auto* line = new QAction(&m_siteListTable);
    line->setSeparator(true);
    return line;
  };
  m_siteListTable.addActions(
      {&control<QAction>(m_mainWindow, "scanMI"), &control<QAction>(m_mainWindow, "editMI"), separator()});
  addAddressActions(m_siteListTable, [this] {
    return m_parts.state.qzvskCurSite.empty() ? QStringList() : QStringList(siteUrl());
  });
  m_siteListTable.addActions({&control<QAction>(m_mainWindow, "openFolderMI"), separator(), &remove});
}

bool ScanViewController::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_siteListTable.viewport()) {
    if (event->type() == QEvent::Resize) fitColumns();
  } else if (event->type() == QEvent::Close) {
    // Hiding the drawer for another view is no such event, so that it comes back with the scan view.
    m_parts.state.qzvskPLastState = false;
  }
  return QObject::eventFilter(watched, event);
}

void ScanViewController::populateSiteTable() {
  std::vector<std::string> problems;
  m_sites.rebuild(&problems);
  if (!problems.empty()) {
    QString sentence = toQString(problems.front());
    if (problems.size() > 1) sentence += tr(" (and %1 more)").arg(problems.size() - 1);
    // The first time somebody has yet to listen.
    QMetaObject::invokeMethod(
        this, [this, sentence] { emit report(sentence); }, Qt::QueuedConnection);
  }
  measureColumns();
  m_noSiteFound->setText(m_sites.isEmpty() ? QString() : tr("No site has this in its name."));
  auto& area = control<QStackedWidget>(m_mainWindow, "siteArea");
  area.setCurrentWidget(&control<QWidget>(m_mainWindow, m_sites.isEmpty() ? "noSitesPage" : "sitePage"));
}

void ScanViewController::tableViewSelectionDidChange() {
  m_parts.state.qzvskBadLinkArray.clear();
  m_parts.state.qzvskBadLinkReasonArray.clear();
  control<QLabel>(m_mainWindow, "linksScanned").clear();
  const std::string name = selectedName();
  if (name.empty()) {
    showNoSite();
  } else {
    showSite(name);
  }
}

void ScanViewController::showNoSite() {
  m_parts.state.qzvskCurSite.clear();
  setWindowTitle(QStringLiteral("Veskel2"));
  for (const char* field :
       {"totalLinksFound", "pagesFound", "brokenLinks", "linksScanned", "siteName", "siteURL"}) {
    control<QLabel>(m_mainWindow, field).clear();
  }
  auto& broken = control<QPushButton>(m_mainWindow, "brokenLinksButton");
  broken.setEnabled(false);
  broken.hide();
  m_parts.scan.forgetLastScan();
  showIgnoreRobots(false);
  setSiteControlsEnabled(tr("Select a site first"));
  m_noLinks->setText(tr("Select a site to see what is known of it."));
  emit siteInHandChanged({});
  emit qzvskLFF();
}

void ScanViewController::showSite(const std::string& name) {
  m_parts.state.qzvskCurSite = name;
  const store::SelectedSite site = store::selectSite(m_parts.controls, name);
  if (!site.result.ok()) {
    emit report(tr("Could not use %1: %2").arg(toQString(site.path.native()), toQString(site.result.error)));
  }
  const store::SiteDetails& details = site.details;
  setWindowTitle(QStringLiteral("Veskel2 - ") + toQString(details.name));
  showIgnoreRobots(details.ignoreRobots);
  m_parts.scan.setIgnoreRobots(details.ignoreRobots);
  control<QLabel>(m_mainWindow, "totalLinksFound").setText(countText(details.totalLinks));
  control<QLabel>(m_mainWindow, "pagesFound").setText(countText(details.pagesFound));
  control<QLabel>(m_mainWindow, "linksScanned").setText(countText(details.pagesUsed));
  showBrokenLinksOf(name, details);
  control<QLabel>(m_mainWindow, "siteName").setText(toQString(details.name));
  control<QLabel>(m_mainWindow, "siteURL").setText(toQString(details.url));
  // Without the name nothing can be done to the site that would not hit another one, or all of them.
  setSiteControlsEnabled(details.name.empty() ? tr("The record of this site cannot be read") : QString());
  control<QAction>(m_mainWindow, "openFolderMI").setEnabled(true);
  m_parts.filters.reloadFilterTable();
  m_parts.state.qzvskViewChanged = true;
  m_parts.scan.forgetLastScan();
  explainEmptyList(details);
  emit siteInHandChanged(toQString(name));
  emit qzvskLFF();
}

void ScanViewController::explainEmptyList(const store::SiteDetails& details) {
  if (details.name.empty()) {
    m_noLinks->setText(tr("The record of this site cannot be read."));
  } else if (details.pagesFound < 1) {
    m_noLinks->setText(tr("This site was not scanned yet. Press Scan Site to build its sitemaps."));
  } else {
    m_noLinks->setText(tr("The links are listed here while the site is scanned, and its pages afterwards."));
  }
}

void ScanViewController::showBrokenLinksOf(const std::string& name, const store::SiteDetails& details) {
  for (store::BrokenPage& page : m_parts.reasons.lookUp(name, details.badLinks)) {
    m_parts.state.qzvskBadLinkArray.push_back(std::move(page.url));
    m_parts.state.qzvskBadLinkReasonArray.push_back(std::move(page.reason));
  }
  const int count = static_cast<int>(details.badLinks.size());
  control<QLabel>(m_mainWindow, "brokenLinks").setText(countText(count));
  auto& button = control<QPushButton>(m_mainWindow, "brokenLinksButton");
  button.setEnabled(count != 0);
  button.setVisible(count != 0);
}

void ScanViewController::setSiteControlsEnabled(const QString& whyNot) {
  constexpr const char* kUsualToolTip = "usualToolTip";
  const bool enabled = whyNot.isEmpty();
  for (const char* name :
       {"scanSiteButton", "filterDrawerButton", "addFilterButton", "delFilterButton", "newFilterInput",
        "deleteSiteButton", "editSiteButton", "ignoreRobotsButton", "copyUrlButton"}) {
    auto& widget = control<QWidget>(m_mainWindow, name);
    if (!widget.property(kUsualToolTip).isValid()) widget.setProperty(kUsualToolTip, widget.toolTip());
    widget.setEnabled(enabled);
    widget.setToolTip(enabled ? widget.property(kUsualToolTip).toString() : whyNot);
  }
  for (const char* action :
       {"editMI", "deleteMI", "scanMI", "filtersMI", "addFilterMI", "ignoreRobotsMI", "openFolderMI",
        "viewInBrowserMI", "exportBrokenTextMI", "exportBrokenHtmlMI", "copyAddressMI", "openAddressMI"}) {
    control<QAction>(m_mainWindow, action).setEnabled(enabled);
  }
  control<QMenu>(m_mainWindow, "layoutMenu").menuAction()->setEnabled(enabled);
}

void ScanViewController::setWindowTitle(const QString& title) {
  m_parts.state.qzvskWinTit = toUtf8(title);
  m_mainWindow.setWindowTitle(title);
}

void ScanViewController::ignoreRobotsAction(bool ignore) {
  const platform::FileResult saved =
      store::setIgnoreRobots(m_parts.controls, m_parts.state.qzvskCurSite, ignore);
  showIgnoreRobots(saved.ok() == ignore);
  if (!saved.ok()) {
    m_parts.sheets.alert(tr("The robots switch could not be saved."), toQString(saved.error));
    return;
  }
  m_parts.scan.setIgnoreRobots(ignore);
}

/// In the view and in the menu, of which one may show it already.
void ScanViewController::showIgnoreRobots(bool ignore) {
  auto& box = control<QCheckBox>(m_mainWindow, "ignoreRobotsButton");
  const QSignalBlocker quiet(box);
  box.setChecked(ignore);
  control<QAction>(m_mainWindow, "ignoreRobotsMI").setChecked(ignore);
}

void ScanViewController::filterAddPanel(bool open) {
  m_parts.state.qzvskPLastState = open;
  control<QDockWidget>(m_mainWindow, "filterDrawer").setVisible(open);
}

/// Brings a site into sight; it is not selected.
void ScanViewController::showSiteAt(const QString& name) {
  const QModelIndex site = m_sites.index(m_sites.rowOf(toUtf8(name)), SiteTableModel::siteColumn);
  if (!m_found.mapFromSource(site).isValid()) control<QLineEdit>(m_mainWindow, "siteSearch").clear();
  m_siteListTable.doItemsLayout();  // it has yet to hear how long the list is now
  m_siteListTable.scrollTo(m_found.mapFromSource(site));
}

void ScanViewController::openSiteFolder() const {
  const QString folder = toQString(m_parts.controls.siteFolder(m_parts.state.qzvskCurSite).native());
  QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

QString ScanViewController::siteUrl() const {
  return toQString(store::readSite(m_parts.controls, m_parts.state.qzvskCurSite).details.url);
}

std::string ScanViewController::selectedName() const {
  const QModelIndexList rows = m_siteListTable.selectionModel()->selectedRows();
  return rows.isEmpty() ? std::string() : m_sites.siteName(m_found.mapToSource(rows.first()).row());
}

}  // namespace ui
