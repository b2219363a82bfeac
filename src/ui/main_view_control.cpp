#include "ui/main_view_control.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QDockWidget>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QSysInfo>
#include <QTableView>
#include <QUrl>
#include <array>

#include "platform/named_controls.h"
#include "platform/qt_text.h"
#include "store/site_list.h"
#include "store/working_folder.h"
#include "ui/address_actions.h"
#include "ui/sorted_table.h"

namespace ui {

using platform::control;
using platform::toQString;

namespace {

constexpr std::array<const char*, 7> kViews = {"scanWindowView", "htmlWindowView",   "htmlEditorWindowView",
                                               "xmlWindowView",  "exportWindowView", "uploadWindowView",
                                               "blWindowView"};
constexpr std::array<const char*, 7> kViewActions = {"scanTBI",   "htmlTBI",   "htmlEditTBI", "xmlTBI",
                                                     "exportTBI", "uploadTBI", "brokenMI"};
const QString kNoSites = QStringLiteral("No Sites Have Been Scanned");

}  // namespace

MainViewControl::MainViewControl(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                                 const store::GlobalControls& controls, store::SharedState& state)
    : m_mainWindow(mainWindow),
      m_sheets(sheets),
      m_controls(controls),
      m_state(state),
      m_versionString(QSysInfo::productVersion()) {
  connectActions();
  connectBrokenLinks();
  populateSitePicker();
  control<QStackedWidget>(mainWindow, "mainViewArea").setCurrentWidget(mainViewsList(scanView));
  changeCurrentView(scanView);
  markCurrentView();
}

void MainViewControl::connectActions() {
  constexpr std::array<void (MainViewControl::*)(), 7> kSlots = {
      &MainViewControl::scanTBIAction,     &MainViewControl::htmlTBIAction,
      &MainViewControl::htmlEditTBIAction, &MainViewControl::xmlTBIAction,
      &MainViewControl::exportTBIAction,   &MainViewControl::uploadTBIAction,
      &MainViewControl::showBrokenLinks,
  };
  for (std::size_t i = 0; i < kViewActions.size(); ++i) {
    // Not only when triggered: a screen reader toggles the toolbar's buttons. What is marked is the view that
    // is shown, so any other mark is a wish.
    connect(&control<QAction>(m_mainWindow, kViewActions[i]), &QAction::toggled, this,
            [this, slot = kSlots[i], number = static_cast<int>(i) + 1](bool marked) {
              if (marked != (returnCurrentView() == number)) (this->*slot)();
            });
  }
  connect(&control<QAction>(m_mainWindow, "reportProblemMI"), &QAction::triggered, this,
          &MainViewControl::reportProblem);
  const auto onClick = [this](const char* name, auto slot) {
    connect(&control<QPushButton>(m_mainWindow, name), &QPushButton::clicked, this, slot);
  };
  onClick("brokenLinksButton", [this] { showBrokenLinks(); });
  onClick("backToScanButton", [this] { scanTBIAction(); });
  onClick("exportToScanButton", [this] { scanTBIAction(); });
  onClick("copySitemapLine", [this] {
    QGuiApplication::clipboard()->setText(control<QLineEdit>(m_mainWindow, "sitemapLine").text());
  });
  for (const char* button : {"xmlWindowViewFolder"}) {
    onClick(button, [this] { control<QAction>(m_mainWindow, "openFolderMI").trigger(); });
  }
}

void MainViewControl::connectBrokenLinks() {
  auto& table = control<QTableView>(m_mainWindow, "badLinkTable");
  m_sortedBadLinks.setSourceModel(&m_badLinks);
  m_sortedBadLinks.setSortCaseSensitivity(Qt::CaseInsensitive);
  table.setModel(&m_sortedBadLinks);
  sortByHeadings(table);
  table.verticalHeader()->hide();
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setSectionResizeMode(BrokenLinksModel::urlColumn, QHeaderView::Stretch);
  table.horizontalHeader()->resizeSection(BrokenLinksModel::reasonColumn,
                                          table.fontMetrics().averageCharWidth() * 36);
  addAddressActions(table, [this] { return selectedBrokenUrls(); });
  auto& copyButton = control<QPushButton>(m_mainWindow, "copyBadLinkButton");
  auto& openButton = control<QPushButton>(m_mainWindow, "openBadLinkButton");
  connect(&copyButton, &QPushButton::clicked, &control<QAction>(table, kCopySelection), &QAction::trigger);
  connect(&openButton, &QPushButton::clicked, &control<QAction>(table, kOpenSelection), &QAction::trigger);
  const auto enable = [this, &copyButton, &openButton] {
    const bool any = !selectedBrokenUrls().isEmpty();
    for (QPushButton* button : {&copyButton, &openButton}) {
      button->setEnabled(any);
      button->setToolTip(any ? QString() : tr("Select a page first"));
    }
  };
  connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, enable);
  connect(&m_badLinks, &QAbstractItemModel::modelReset, this, enable);
  enable();
}

QWidget* MainViewControl::mainViewsList(int number) const {
  if (number < scanView || number > brokenLinksView) return nullptr;
  return &control<QWidget>(m_mainWindow, kViews[static_cast<std::size_t>(number - 1)]);
}

void MainViewControl::scanTBIAction() {
  control<QDockWidget>(m_mainWindow, "filterDrawer").setVisible(m_state.qzvskPLastState);
  switchTo(scanView, AbandonEdits::yes);
}

void MainViewControl::htmlTBIAction() {
  if (needsSite(tr("You need to select a sitemap from the sites list to use the HTML sitemap viewer.")))
    return;
  closeFilterDrawer();
  switchToSitemap(htmlView);
}

void MainViewControl::htmlEditTBIAction() {
  closeFilterDrawer();
  switchToSitemap(htmlEditorView);
}

/// Asked for while it is shown, a view of the HTML sitemap saves, and asks nothing.
void MainViewControl::switchToSitemap(View view) {
  switchTo(view, returnCurrentView() == view ? AbandonEdits::no : AbandonEdits::yes);
}

void MainViewControl::xmlTBIAction() {
  if (needsSite(tr("You need to select a sitemap from the sites list to use the XML sitemap viewer.")))
    return;
  closeFilterDrawer();
  switchTo(xmlView, AbandonEdits::yes);
}

void MainViewControl::exportTBIAction() {
  closeFilterDrawer();
  switchTo(exportView, AbandonEdits::yes);
}

void MainViewControl::exportReload() {
  closeFilterDrawer();
  clearLinkEdits();
  enableExports();
  if (m_checkSave) m_checkSave();
  show(exportView);
  populateSitePicker();
}

void MainViewControl::uploadTBIAction() {
  // With the address of the site in hand where there is one, so that the line can be used as it is.
  const QUrl site(toQString(store::readSite(m_controls, m_state.qzvskCurSite).details.url));
  const QUrl example(QStringLiteral("http://www.example.com/"));
  const QUrl sitemap = (site.isValid() && !site.host().isEmpty() ? site : example)
                           .resolved(QUrl(QStringLiteral("/sitemap.xml")));
  control<QLineEdit>(m_mainWindow, "sitemapLine")
      .setText(QStringLiteral("Sitemap: ") + sitemap.toString(QUrl::FullyEncoded));
  switchTo(uploadView, AbandonEdits::yes);
}

void MainViewControl::showBrokenLinks() {
  switchTo(brokenLinksView, AbandonEdits::no);
  std::vector<store::BrokenPage> pages;
  for (std::size_t i = 0; i < m_state.qzvskBadLinkArray.size(); ++i) {
    const bool known = i < m_state.qzvskBadLinkReasonArray.size();
    pages.push_back(
        {m_state.qzvskBadLinkArray[i], known ? m_state.qzvskBadLinkReasonArray[i] : std::string()});
  }
  control<QLabel>(m_mainWindow, "badLinkLabel")
      .setText(m_state.qzvskCurSite.empty() ? tr("Select a site to see the broken pages of its last scan.")
               : pages.empty()              ? tr("No broken pages are known.")
                                            : tr("Broken &pages of the last scan"));
  m_badLinks.setPages(std::move(pages));
}

/// The order matters: an edit that was begun is dropped before its document is offered for saving, and the
/// export view looks for sites in between.
void MainViewControl::switchTo(int number, AbandonEdits abandon) {
  if (abandon == AbandonEdits::yes) {
    clearLinkEdits();
    if (number == exportView) {
      populateSitePicker();
      enableExports();
    }
    if (m_checkSave) m_checkSave();
  }
  show(number);
}

void MainViewControl::clearLinkEdits() {
  if (returnCurrentView() != htmlView) return;
  for (const char* field : {"titleEditInput", "linkEditInput"}) {
    if (auto* edit = m_mainWindow.findChild<QLineEdit*>(QLatin1String(field))) edit->clear();
  }
}

void MainViewControl::enableExports() {
  const bool any = m_sitePickerPopUpArray.first() != kNoSites;
  for (const char* name : {"htmlExportButton", "xmlExportButton"}) {
    auto& button = control<QPushButton>(m_mainWindow, name);
    button.setEnabled(any);
    button.setToolTip(any ? QString() : tr("Scan a site first"));
  }
  control<QWidget>(m_mainWindow, "noExportsHint").setHidden(any);
}

void MainViewControl::show(int number) {
  control<QStackedWidget>(m_mainWindow, "mainViewArea").setCurrentWidget(mainViewsList(number));
  changeCurrentView(number);
  markCurrentView();
  // The exports go by a choice of their own.
  m_mainWindow.setWindowTitle(number == exportView ? QStringLiteral("Veskel2")
                                                   : toQString(m_state.qzvskWinTit));
  emit viewShown(number);
}

bool MainViewControl::needsSite(const QString& message) {
  if (!m_state.qzvskCurSite.empty()) return false;
  m_sheets.alert(message);
  markCurrentView();  // the button that was pressed has checked itself
  return true;
}

void MainViewControl::closeFilterDrawer() {
  control<QDockWidget>(m_mainWindow, "filterDrawer").hide();
}

void MainViewControl::markCurrentView() {
  for (std::size_t i = 0; i < kViewActions.size(); ++i) {
    control<QAction>(m_mainWindow, kViewActions[i])
        .setChecked(static_cast<int>(i) + 1 == returnCurrentView());
  }
}

void MainViewControl::populateSitePicker() {
  constexpr qsizetype kCut = 6;
  const QString siteInHand = toQString(m_state.qzvskCurSite);
  m_sitePickerPopUpArray.clear();
  for (const std::string& file : store::siteFiles(m_controls)) {
    if (!file.ends_with(".xml")) continue;
    QString path = toQString(file);
    path.chop(kCut);
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash > 0) m_sitePickerPopUpArray.append(path.left(slash));
  }
  const bool present = m_sitePickerPopUpArray.contains(siteInHand);
  if (m_sitePickerPopUpArray.isEmpty()) m_sitePickerPopUpArray.append(kNoSites);
  auto& picker = control<QComboBox>(m_mainWindow, "sitePickerPopUp");
  picker.clear();
  picker.addItems(m_sitePickerPopUpArray);
  picker.setDisabled(m_sitePickerPopUpArray.first() == kNoSites);
  if (present) picker.setCurrentText(siteInHand);
}

void MainViewControl::reportProblem() const {
  QDesktopServices::openUrl(QUrl(QStringLiteral(VESKEL_SUPPORT_PAGE)));
}

QStringList MainViewControl::selectedBrokenUrls() const {
  QStringList urls;
  const auto& table = control<QTableView>(m_mainWindow, "badLinkTable");
  for (const QModelIndex& row : table.selectionModel()->selectedRows(BrokenLinksModel::urlColumn)) {
    urls.append(row.data().toString());
  }
  return urls;
}

}  // namespace ui
