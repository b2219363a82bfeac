#include "ui/main_view_control.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QSysInfo>
#include <QUrl>
#include <array>

#include "platform/named_controls.h"
#include "platform/qt_text.h"
#include "store/site_list.h"
#include "store/working_folder.h"

namespace ui {

using platform::control;
using platform::toQString;

namespace {

QString noSites() {
  return MainViewControl::tr("No Sites Have Been Scanned");
}

}  // namespace

MainViewControl::MainViewControl(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                                 const store::GlobalControls& controls, store::SharedState& state)
    : m_mainWindow(mainWindow),
      m_sheets(sheets),
      m_controls(controls),
      m_state(state),
      m_view{mainWindow},
      m_versionString(QSysInfo::productVersion()) {
  connectActions();
  populateSitePicker();
  m_view.mainViewArea.setCurrentWidget(mainViewsList(scanView));
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
  for (std::size_t i = 0; i < kSlots.size(); ++i) {
    // Not only when triggered: a screen reader toggles the toolbar's buttons. What is marked is the view that
    // is shown, so any other mark is a wish.
    connect(m_view.viewActions[i], &QAction::toggled, this,
            [this, slot = kSlots[i], number = static_cast<int>(i) + 1](bool marked) {
              if (marked != (returnCurrentView() == number)) (this->*slot)();
            });
  }
  connect(&m_view.reportProblemMI, &QAction::triggered, this, &MainViewControl::reportProblem);
  const auto onClick = [this](const QPushButton& button, auto slot) {
    connect(&button, &QPushButton::clicked, this, slot);
  };
  onClick(m_view.brokenLinksButton, [this] { showBrokenLinks(); });
  onClick(m_view.backToScanButton, [this] { scanTBIAction(); });
  onClick(m_view.exportToScanButton, [this] { scanTBIAction(); });
  onClick(m_view.copySitemapLine, [this] { QGuiApplication::clipboard()->setText(m_sitemapLine); });
  onClick(m_view.xmlWindowViewFolder, [this] { m_view.openFolderMI.trigger(); });
}

QWidget* MainViewControl::mainViewsList(int number) const {
  if (number < scanView || number > brokenLinksView) return nullptr;
  return m_view.views[static_cast<std::size_t>(number - 1)];
}

void MainViewControl::scanTBIAction() {
  m_view.filterDrawer.setVisible(m_state.qzvskPLastState);
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
  m_sitemapLine = QStringLiteral("Sitemap: ") + sitemap.toString(QUrl::FullyEncoded);
  m_view.sitemapLine.setText(m_sitemapLine);
  switchTo(uploadView, AbandonEdits::yes);
}

void MainViewControl::showBrokenLinks() {
  switchTo(brokenLinksView, AbandonEdits::no);
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
  m_view.titleEditInput.clear();
  m_view.linkEditInput.clear();
}

void MainViewControl::enableExports() {
  const bool any = m_sitePickerPopUpArray.first() != noSites();
  for (QPushButton* button : {&m_view.htmlExportButton, &m_view.xmlExportButton}) {
    button->setEnabled(any);
    button->setToolTip(any ? QString() : tr("Scan a site first"));
  }
  m_view.noExportsHint.setHidden(any);
}

void MainViewControl::show(int number) {
  m_view.mainViewArea.setCurrentWidget(mainViewsList(number));
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
  m_view.filterDrawer.hide();
}

void MainViewControl::markCurrentView() {
  for (std::size_t i = 0; i < m_view.viewActions.size(); ++i) {
    m_view.viewActions[i]->setChecked(static_cast<int>(i) + 1 == returnCurrentView());
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
  if (m_sitePickerPopUpArray.isEmpty()) m_sitePickerPopUpArray.append(noSites());
  QComboBox& picker = m_view.sitePickerPopUp;
  picker.clear();
  picker.addItems(m_sitePickerPopUpArray);
  picker.setDisabled(m_sitePickerPopUpArray.first() == noSites());
  if (present) picker.setCurrentText(siteInHand);
}

void MainViewControl::reportProblem() const {
  QDesktopServices::openUrl(QUrl(QStringLiteral(VESKEL_SUPPORT_PAGE)));
}

}  // namespace ui
