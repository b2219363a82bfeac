#include "ui/scan_view_controller.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLocale>
#include <QSignalBlocker>
#include <QUrl>
#include <algorithm>
#include <array>

#include "platform/address_actions.h"
#include "platform/enable_unless.h"
#include "platform/qt_text.h"
#include "store/site_list.h"
#include "ui/sorted_table.h"

namespace ui {

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
      m_view{{mainWindow}},
      m_sites(parts.controls, parts.stateFolder),
      m_noLinks(new EmptyHint(m_view.scannedLinksViewer)) {
  buildSitePage();
  buildTable();
  connectCommands();
  buildContextMenus();
  populateSiteTable();
  showNoSite();
}

void ScanViewController::buildSitePage() {
  QFont heading = m_mainWindow.font();
  heading.setPointSizeF(heading.pointSizeF() * 1.4);
  heading.setBold(true);
  m_view.siteName.setFont(heading);
  QFont prominent = m_mainWindow.font();
  prominent.setBold(true);
  m_view.scanSiteButton.setFont(prominent);
  m_view.scannedLinksViewer.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  m_view.filterDrawer.hide();
  // A hidden button keeps its place, so that nothing moves when it comes and goes.
  QSizePolicy policy = m_view.brokenLinksButton.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  m_view.brokenLinksButton.setSizePolicy(policy);
}

void ScanViewController::buildTable() {
  m_found.setSourceModel(&m_sites);
  m_found.setFilterCaseSensitivity(Qt::CaseInsensitive);
  m_found.setSortRole(SiteTableModel::sortRole);
  m_found.setSortLocaleAware(true);
  m_found.setSortCaseSensitivity(Qt::CaseInsensitive);
  // When the search takes the selected site out of the list, no site is selected: the table would go on to
  // the next one, and with every letter typed another site would come into hand. Connected before the table
  // is.
  connect(&m_found, &QAbstractItemModel::rowsAboutToBeRemoved, this,
          [this](const QModelIndex&, int first, int last) {
            const int current = m_view.siteListTable.currentIndex().row();
            if (current >= first && current <= last) m_view.siteListTable.selectionModel()->clear();
          });
  m_view.siteListTable.setModel(&m_found);
  sortByHeadings(m_view.siteListTable);
  m_view.siteListTable.viewport()->installEventFilter(this);
  m_view.siteListTable.installEventFilter(this);
  m_noSiteFound = new EmptyHint(m_view.siteListTable);
  m_view.siteListTable.verticalHeader()->hide();
  m_view.siteListTable.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  QHeaderView* header = m_view.siteListTable.horizontalHeader();
  header->setHighlightSections(false);
  header->setStretchLastSection(false);
  header->setSectionResizeMode(QHeaderView::Interactive);
  header->setSectionResizeMode(SiteTableModel::siteColumn, QHeaderView::Stretch);
  connect(m_view.siteListTable.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ScanViewController::tableViewSelectionDidChange);
  connect(&m_view.siteSearch, &QLineEdit::textChanged, &m_found,
          &QSortFilterProxyModel::setFilterFixedString);
}

void ScanViewController::measureColumns() {
  QHeaderView* header = m_view.siteListTable.horizontalHeader();
  const QFontMetrics metrics = m_view.siteListTable.fontMetrics();
  for (const int column : kColumnsByWorth) {
    header->setSectionHidden(column, false);  // else its heading would want no room
    m_columnWidths[column] =
        std::max(header->sectionSizeHint(column),
                 metrics.horizontalAdvance(m_sites.longestText(column)) + 3 * metrics.averageCharWidth());
  }
  fitColumns();
}

/// Numbers get the room they need, and the name gets the rest. Where that is little, the columns that can be
/// missed most easily go.
void ScanViewController::fitColumns() {
  QHeaderView* header = m_view.siteListTable.horizontalHeader();
  int room = m_view.siteListTable.viewport()->width() -
             kNameLetters * m_view.siteListTable.fontMetrics().averageCharWidth();
  for (const int column : kColumnsByWorth) {
    room -= m_columnWidths[column];
    header->resizeSection(column, m_columnWidths[column]);
    header->setSectionHidden(column, room < 0);
  }
}

void ScanViewController::connectCommands() {
  using store::AddEditDeleteSitesController;
  AddEditDeleteSitesController& editor = m_parts.siteEditor;
  const auto onClick = [](const QAbstractButton& button, auto* receiver, auto slot) {
    connect(&button, &QAbstractButton::clicked, receiver, slot);
  };
  const auto onAction = [](const QAction& action, auto* receiver, auto slot) {
    connect(&action, &QAction::triggered, receiver, slot);
  };
  onClick(m_view.addSiteButton, &editor, &AddEditDeleteSitesController::addNewSite);
  onClick(m_view.firstSiteButton, &editor, &AddEditDeleteSitesController::addNewSite);
  onClick(m_view.editSiteButton, &editor, &AddEditDeleteSitesController::editSite);
  onClick(m_view.deleteSiteButton, &editor, &AddEditDeleteSitesController::deleteSite);
  // The menus reach the site from every view, also from one that holds unsaved changes.
  const auto whenSaved = [&](const QAction& action, auto* receiver, auto slot) {
    onAction(action, this,
             [this, receiver, slot] { m_beforeChange([receiver, slot] { (receiver->*slot)(); }); });
  };
  whenSaved(m_view.addMI, &editor, &AddEditDeleteSitesController::addNewSite);
  whenSaved(m_view.editMI, &editor, &AddEditDeleteSitesController::editSite);
  whenSaved(m_view.deleteMI, &editor, &AddEditDeleteSitesController::deleteSite);
  whenSaved(m_view.scanMI, &m_parts.scan, &crawler::ScanController::scanSiteAction);
  whenSaved(m_view.continueScanMI, &m_parts.scan, &crawler::ScanController::continueScanAction);
  whenSaved(m_view.restoreMI, &m_parts.restore, &RestoreController::restoreAction);
  onAction(m_view.openFolderMI, this, [this] { openSiteFolder(); });
  onAction(m_view.filtersMI, this, &ScanViewController::filterAddPanel);
  onAction(m_view.ignoreRobotsMI, this, &ScanViewController::ignoreRobotsAction);
  // A screen reader toggles what others click.
  connect(&m_view.filterDrawerButton, &QPushButton::toggled, this, &ScanViewController::filterAddPanel);
  connect(&m_view.ignoreRobotsButton, &QCheckBox::toggled, this, &ScanViewController::ignoreRobotsAction);
  onAction(m_view.findSiteMI, this, [this] { m_view.siteSearch.setFocus(); });
  onClick(m_view.copyUrlButton, this, [this] { QGuiApplication::clipboard()->setText(siteUrl()); });
  connect(&editor, &AddEditDeleteSitesController::sitesChanged, this, [this] {
    m_view.siteListTable.clearSelection();
    populateSiteTable();
    tableViewSelectionDidChange();
  });
  connect(&editor, &AddEditDeleteSitesController::siteNamed, this, &ScanViewController::showSiteAt);
  connect(this, &ScanViewController::siteInHandChanged, &m_parts.restore, &RestoreController::offer);
  connect(&m_parts.restore, &RestoreController::restored, this, [this] {
    m_sites.refresh(m_parts.state.qzvskCurSite);
    tableViewSelectionDidChange();
  });
  connect(&m_parts.scan, &crawler::ScanController::scanned, this, [this](const QString& name) {
    m_sites.refresh(toUtf8(name));
    measureColumns();
  });
  connect(this, &ScanViewController::qzvskLFF, &m_parts.filters, &crawler::FilterController::loadFilterFile);
  // The drawer has a close button of its own; the buttons that show its state follow.
  auto& drawer = m_view.filterDrawer;
  drawer.installEventFilter(this);
  connect(&drawer, &QDockWidget::visibilityChanged, this, [this](bool visible) {
    auto& button = m_view.filterDrawerButton;
    const QSignalBlocker quiet(button);
    button.setChecked(visible);
    m_view.filtersMI.setChecked(visible);
  });
}

void ScanViewController::buildContextMenus() {
  auto& list = m_view.scannedLinksViewer;
  const auto selectedLinks = [&list] {
    QStringList links;
    for (const QModelIndex& index : list.selectionModel()->selectedIndexes())
      links.append(index.data().toString());
    return links;
  };
  platform::addAddressActions(list, selectedLinks);
  // The key belongs to the table of sites alone: elsewhere it deletes a character or a filter.
  auto& remove = m_view.deleteMI;
  remove.setShortcut(QKeySequence::Delete);
  remove.setShortcutContext(Qt::WidgetShortcut);
  const auto separator = [this] {
    auto* line = new QAction(&m_view.siteListTable);
    line->setSeparator(true);
    return line;
  };
  m_view.siteListTable.addActions(
      {&m_view.scanMI, &m_view.continueScanMI, &m_view.editMI, &m_view.scanSettingsMI, separator()});
  platform::addAddressActions(m_view.siteListTable, [this] {
    return m_parts.state.qzvskCurSite.empty() ? QStringList() : QStringList(siteUrl());
  });
  m_view.siteListTable.addActions({&m_view.openFolderMI, separator(), &remove});
}

bool ScanViewController::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_view.siteListTable.viewport()) {
    if (event->type() == QEvent::Resize) fitColumns();
  } else if (watched == &m_view.siteListTable) {
    if (event->type() == QEvent::KeyPress && selectsFirst(*static_cast<QKeyEvent*>(event))) return true;
    // What a screen reader selects in a list that is off would come into hand all the same.
    if (event->type() == QEvent::EnabledChange) {
      m_view.siteListTable.setSelectionMode(m_view.siteListTable.isEnabled()
                                                ? QAbstractItemView::SingleSelection
                                                : QAbstractItemView::NoSelection);
    }
  } else if (event->type() == QEvent::Close) {
    // Hiding the drawer for another view is no such event, so that it comes back with the scan view.
    m_parts.state.qzvskPLastState = false;
  }
  return QObject::eventFilter(watched, event);
}

/// The list has a current row before one is selected. A key that moves would go past it, or do nothing.
bool ScanViewController::selectsFirst(const QKeyEvent& key) {
  auto& table = m_view.siteListTable;
  const bool moves = key.key() == Qt::Key_Down || key.key() == Qt::Key_Up || key.key() == Qt::Key_Home;
  if (!moves || table.selectionModel()->hasSelection() || m_found.rowCount() == 0) return false;
  table.selectRow(std::max(table.currentIndex().row(), 0));
  return true;
}

void ScanViewController::populateSiteTable() {
  std::vector<std::string> problems;
  m_sites.rebuild(&problems);
  if (!problems.empty()) {
    QString sentence = toQString(problems.front());
    if (problems.size() > 1)
      sentence += tr(" (and %Ln more)", nullptr, static_cast<int>(problems.size()) - 1);
    // The first time somebody has yet to listen.
    QMetaObject::invokeMethod(
        this, [this, sentence] { emit report(sentence); }, Qt::QueuedConnection);
  }
  measureColumns();
  m_noSiteFound->setText(m_sites.isEmpty() ? QString() : tr("No site has this in its name."));
  m_view.siteArea.setCurrentWidget(m_sites.isEmpty() ? &m_view.noSitesPage : &m_view.sitePage);
}

void ScanViewController::tableViewSelectionDidChange() {
  m_parts.state.qzvskBadLinkArray.clear();
  m_parts.state.qzvskBadLinkReasonArray.clear();
  m_view.linksScanned.clear();
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
  for (QLabel* field : {&m_view.totalLinksFound, &m_view.pagesFound, &m_view.brokenLinks,
                        &m_view.linksScanned, &m_view.siteName, &m_view.siteURL}) {
    field->clear();
  }
  auto& broken = m_view.brokenLinksButton;
  broken.setEnabled(false);
  broken.hide();
  m_parts.scan.showSiteInHand();
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
  m_view.totalLinksFound.setText(countText(details.totalLinks));
  m_view.pagesFound.setText(countText(details.pagesFound));
  m_view.linksScanned.setText(countText(details.pagesUsed));
  showBrokenLinksOf(name, details);
  m_view.siteName.setText(toQString(details.name));
  m_view.siteURL.setText(toQString(details.url));
  // Without the name nothing can be done to the site that would not hit another one, or all of them.
  setSiteControlsEnabled(details.name.empty() ? tr("The record of this site cannot be read") : QString());
  m_view.openFolderMI.setEnabled(true);
  m_parts.filters.reloadFilterTable();
  m_parts.state.qzvskViewChanged = true;
  m_parts.scan.showSiteInHand();
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
  for (store::BrokenPage& page : store::BrokenReasons(m_parts.stateFolder).lookUp(name, details.badLinks)) {
    m_parts.state.qzvskBadLinkArray.push_back(std::move(page.url));
    m_parts.state.qzvskBadLinkReasonArray.push_back(std::move(page.reason));
  }
  const int count = static_cast<int>(details.badLinks.size());
  m_view.brokenLinks.setText(countText(count));
  auto& button = m_view.brokenLinksButton;
  button.setEnabled(count != 0);
  button.setVisible(count != 0);
}

void ScanViewController::setSiteControlsEnabled(const QString& whyNot) {
  for (QWidget* each : std::initializer_list<QWidget*>{
           &m_view.scanSiteButton, &m_view.filterDrawerButton, &m_view.addFilterButton,
           &m_view.delFilterButton, &m_view.newFilterInput, &m_view.deleteSiteButton, &m_view.editSiteButton,
           &m_view.ignoreRobotsButton, &m_view.copyUrlButton}) {
    platform::enableUnless(*each, whyNot);
  }
  for (QAction* each : {&m_view.editMI, &m_view.deleteMI, &m_view.scanMI, &m_view.filtersMI,
                        &m_view.addFilterMI, &m_view.ignoreRobotsMI, &m_view.scanSettingsMI,
                        &m_view.openFolderMI, &m_view.viewInBrowserMI, &m_view.exportBrokenTextMI,
                        &m_view.exportBrokenHtmlMI, &m_view.copyAddressMI, &m_view.openAddressMI}) {
    each->setEnabled(whyNot.isEmpty());
  }
  m_view.layoutMenu.menuAction()->setEnabled(whyNot.isEmpty());
}

void ScanViewController::setWindowTitle(const QString& title) {
  m_parts.state.qzvskWinTit = toUtf8(title);
  m_mainWindow.setWindowTitle(title);
}

void ScanViewController::ignoreRobotsAction(bool ignore) {
  const store::AddEditDeleteSites sites(m_parts.controls, m_parts.stateFolder);
  const store::SaveResult saved =
      sites.saveEditedSite(m_parts.state.qzvskCurSite, {.ignoreRobots = ignore}, store::NameClash::refuse);
  const bool isSaved = saved.outcome == store::SaveOutcome::saved;
  showIgnoreRobots(isSaved == ignore);
  if (!isSaved) {
    m_parts.sheets.alert(tr("The robots switch could not be saved."), toQString(saved.file.error));
    return;
  }
  m_parts.scan.setIgnoreRobots(ignore);
}

/// In the view and in the menu, of which one may show it already.
void ScanViewController::showIgnoreRobots(bool ignore) {
  auto& box = m_view.ignoreRobotsButton;
  const QSignalBlocker quiet(box);
  box.setChecked(ignore);
  m_view.ignoreRobotsMI.setChecked(ignore);
}

void ScanViewController::filterAddPanel(bool open) {
  m_parts.state.qzvskPLastState = open;
  m_view.filterDrawer.setVisible(open);
}

/// Brings a site into sight; it is not selected.
void ScanViewController::showSiteAt(const QString& name) {
  const QModelIndex site = m_sites.index(m_sites.rowOf(toUtf8(name)), SiteTableModel::siteColumn);
  if (!m_found.mapFromSource(site).isValid()) m_view.siteSearch.clear();
  m_view.siteListTable.doItemsLayout();  // it has yet to hear how long the list is now
  m_view.siteListTable.scrollTo(m_found.mapFromSource(site));
}

void ScanViewController::openSiteFolder() const {
  const QString folder = toQString(m_parts.controls.siteFolder(m_parts.state.qzvskCurSite).native());
  QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

QString ScanViewController::siteUrl() const {
  return toQString(store::readSite(m_parts.controls, m_parts.state.qzvskCurSite).details.url);
}

std::string ScanViewController::selectedName() const {
  const QModelIndexList rows = m_view.siteListTable.selectionModel()->selectedRows();
  return rows.isEmpty() ? std::string() : m_sites.siteName(m_found.mapToSource(rows.first()).row());
}

}  // namespace ui
