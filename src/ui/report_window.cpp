#include "ui/report_window.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QLocale>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QVBoxLayout>
#include <ctime>
#include <utility>

#include "platform/qt_text.h"
#include "report/address_answer.h"
#include "report/figures.h"
#include "report/left_out_advice.h"
#include "ui/report_rows.h"
#include "ui/report_table.h"

namespace ui {

using platform::toQString;
using platform::toUtf8;
using report::LatestReport;
using report::Page;

namespace {

constexpr QSize kUsualSize{1000, 680};

/// "In the sitemaps. 3 pages link to it:"
QString linkedText(const std::string& standing, std::uint32_t pages) {
  const QString phrase = standing.empty() ? QString() : toQString(standing) + QStringLiteral(". ");
  const QLocale locale;
  if (pages == 0) return phrase + ReportWindow::tr("No page links to it.");
  if (pages > report::kLinkingPagesKept)
    return phrase + ReportWindow::tr("%1 pages link to it, of which the first %2:")
                        .arg(locale.toString(pages), locale.toString(report::kLinkingPagesKept));
  return phrase + ReportWindow::tr("%Ln page(s) link to it:", nullptr, static_cast<int>(pages));
}

}  // namespace

ReportWindow::ReportWindow(ReportReader& reader, LinkCheckController& check, const store::SharedState& state,
                           const QString& settingsFile)
    : m_reader(reader),
      m_check(check),
      m_state(state),
      m_settingsFile(settingsFile),
      m_tabs(new QTabWidget),
      m_overview(new ReportOverview),
      m_broken(
          new ReportTab({QStringLiteral("reportBroken"), tr("Broken pages"), tr("Pages that link there")},
                        brokenColumns(), linkingColumns())),
      m_changes(new ReportTab({QStringLiteral("reportChanged"), tr("Changes"), tr("Pages that link there")},
                              changeColumns(), linkingColumns())),
      m_leftOut(new ReportTab({QStringLiteral("reportLeftOut"), tr("Reasons"), tr("Examples")},
                              leftOutColumns(), exampleColumns())),
      m_pages(new ReportTab({QStringLiteral("reportPages"), tr("Pages"), tr("Pages that link there")},
                            pageColumns(), linkingColumns())),
      m_outside(
          new ReportTab({QStringLiteral("reportOutside"), tr("Outside links"), tr("Pages that link there")},
                        outsideColumns(), linkingColumns())),
      m_sheets(*this),
      m_checkPanel(new LinkCheckPanel(check, m_sheets, *this)) {
  setObjectName(QStringLiteral("reportWindow"));
  m_tabs->setObjectName(QStringLiteral("reportTabs"));
  m_tabs->setAccessibleName(tr("Scan Report"));
  m_tabs->setDocumentMode(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_tabs);
  buildTabs();
  addKeys();
  restorePlace();
  connect(&m_reader, &ReportReader::reportChanged, this, &ReportWindow::showReport);
  connect(&m_reader, &ReportReader::scansCompared, this, &ReportWindow::showChanges);
}

void ReportWindow::buildTabs() {
  m_tabs->addTab(m_overview, tr("&Overview"));
  m_titles.push_back(tr("&Overview"));
  addLinkedTab(m_broken, tr("&Broken"), [this](std::size_t row) {
    const Page& page = *m_report->broken[row];
    return Linked{{{false, page.number}}, page.linkedFrom, report::standingText(page)};
  });
  addLinkedTab(m_changes, tr("&Changes"), [this](std::size_t row) {
    const Page* page = changeAt(m_compared->changes, row).now;
    if (page == nullptr) return Linked{.standing = toUtf8(tr("The last scan did not meet it"))};
    return Linked{{{false, page->number}}, page->linkedFrom, report::standingText(*page)};
  });
  addTab(m_leftOut, tr("&Left Out"));
  connect(m_leftOut, &ReportTab::rowSelected, this, &ReportWindow::showExamples);
  addLinkedTab(m_pages, tr("&Pages"), [this](std::size_t row) {
    const Page& page = m_report->now.pages[row];
    return Linked{{{false, page.number}}, page.linkedFrom, report::standingText(page)};
  });
  m_pages->offerColumns();
  connect(m_pages, &ReportTab::narrowed, this, &ReportWindow::explainEmptyPages);
  m_outside->setHead(m_checkPanel);
  addLinkedTab(m_outside, tr("Outside Lin&ks"), [this](std::size_t row) {
    const report::OutsideRow& outside = m_report->outside[row];
    const std::string reason = reasonText(outside, std::time(nullptr));
    std::string standing = stateText(outside);
    if (outside.is(report::LinkState::moved)) {
      standing = reason;
    } else if (!reason.empty()) {
      standing += ": " + reason;
    }
    if (outside.link != nullptr)
      return Linked{{{true, outside.link->number}}, outside.link->linkedFrom, standing};
    const report::LinkingPage page{outside.check->foundOn, toUtf8(tr("(image, style or script)"))};
    return Linked{.standing = standing + ". " + toUtf8(tr("The first page that needs it")),
                  .known = std::make_shared<const std::vector<report::LinkingPage>>(1, page)};
  });
}

ReportTab* ReportWindow::addTab(ReportTab* tab, const QString& title) {
  m_tabs->addTab(tab, title);
  m_titles.push_back(title);
  connect(tab, &ReportTab::pageWanted, this, &ReportWindow::showPage);
  return tab;
}

void ReportWindow::addLinkedTab(ReportTab* tab, const QString& title, FindLinked find) {
  addTab(tab, title);
  connect(tab, &ReportTab::rowSelected, this, [this, tab, find] { showLinksOf(*tab, find); });
  connect(&m_reader, &ReportReader::linksRead, this, [this, tab, find] {
    if (tab->details().rowCount() == 0) showLinksOf(*tab, find);
  });
}

void ReportWindow::addKeys() {
  for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)})
    connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
    if (auto* tab = qobject_cast<ReportTab*>(m_tabs->currentWidget())) tab->focusSearch();
  });
}

void ReportWindow::restorePlace() {
  const QSettings settings(m_settingsFile, QSettings::IniFormat);
  if (!restoreGeometry(settings.value(QStringLiteral("report/geometry")).toByteArray()))
    resize(kUsualSize.boundedTo(screen()->availableSize() * 9 / 10));
  m_pages->table().horizontalHeader()->restoreState(
      settings.value(QStringLiteral("report/pages")).toByteArray());
}

void ReportWindow::closeEvent(QCloseEvent* event) {
  QSettings settings(m_settingsFile, QSettings::IniFormat);
  settings.setValue(QStringLiteral("report/geometry"), saveGeometry());
  settings.setValue(QStringLiteral("report/pages"), m_pages->table().horizontalHeader()->saveState());
  m_check.stop();
  event->accept();
}

void ReportWindow::bringUp() {
  const bool wasUp = isVisible();
  showNormal();
  raise();
  activateWindow();
  // What somebody works through stays as it is.
  if (!wasUp || m_report == nullptr || m_report != m_reader.report()) showReport();
}

void ReportWindow::checkLinks() {
  bringUp();
  m_tabs->setCurrentWidget(m_outside);
  m_check.plan();
}

/// A report is read only while somebody looks.
void ReportWindow::showReport() {
  if (!isVisible()) return;
  m_reader.want();
  const QString site = toQString(m_state.qzvskCurSite);
  setWindowTitle(site.isEmpty() ? tr("Scan Report") : tr("Report of %1").arg(site));
  if (site != std::exchange(m_siteShown, site)) {
    for (ReportTab* tab : {m_broken, m_changes, m_leftOut, m_pages, m_outside}) tab->forgetSelection();
    m_checkPanel->withdrawSheet();
  }
  m_compared.reset();
  m_report = m_reader.report();
  m_checkPanel->showReport(m_report.get());
  if (site.isEmpty()) return showEmpty(tr("Select a site to see the report of its last scan."));
  if (m_report == nullptr) return showEmpty(tr("Reading the report..."));
  if (!m_report->problem.empty()) return showEmpty(toQString(m_report->problem));
  if (!m_report->hasScan()) {
    showEmpty(tr("There is no report of this site yet. Its next complete scan makes one."));
    return showLeftOut();  // that is known of every scan
  }
  m_overview->showReport(m_report);
  showBroken();
  showPages();
  showOutside();
  showLeftOut();
  showChanges();
}

void ReportWindow::showEmpty(const QString& sentence) {
  m_overview->showHint(sentence);
  for (ReportTab* tab : {m_broken, m_changes, m_leftOut, m_pages, m_outside}) {
    tab->rows().setRows(0, {}, nullptr);
    tab->setHint(sentence);
    tab->setDetailHint({});
    m_tabs->setTabText(m_tabs->indexOf(tab), m_titles[static_cast<std::size_t>(m_tabs->indexOf(tab))]);
  }
}

void ReportWindow::countOn(const ReportTab& tab, std::size_t count) {
  const int place = m_tabs->indexOf(&tab);
  const QString number = QLocale().toString(static_cast<qulonglong>(count));
  m_tabs->setTabText(place, m_titles[static_cast<std::size_t>(place)] + QLatin1Char(' ') + number);
}

void ReportWindow::showBroken() {
  m_broken->setHint(tr("No page is broken."));
  showBrokenPages(m_broken->rows(), m_report);
  countOn(*m_broken, m_report->broken.size());
}

void ReportWindow::showPages() {
  m_pages->setHint(tr("The scan has met no page."));
  ui::showPages(m_pages->rows(), m_report);
  m_pages->setChoices(pageChoices(*m_report));
  countOn(*m_pages, m_report->now.pages.size());
  explainEmptyPages();
}

void ReportWindow::showOutside() {
  m_outside->setHint(tr("No page links out of the site."));
  ui::showOutside(m_outside->rows(), m_report);
  m_outside->setChoices(outsideChoices(*m_report));
  countOn(*m_outside, m_report->outside.size());
}

void ReportWindow::showLeftOut() {
  m_leftOut->setHint(tr("Nothing was left out."));
  ui::showLeftOut(m_leftOut->rows(), m_report);
  countOn(*m_leftOut, m_report->leftOut.groups.size());
}

void ReportWindow::showExamples() {
  const auto row = m_leftOut->selectedRow();
  m_leftOut->setDetailHint(row || m_leftOut->rows().rowCount() == 0 ? QString()
                                                                    : tr("Select a reason to see examples."));
  m_leftOut->setDetailText({});
  if (!row) return m_leftOut->details().setRows(0, {}, nullptr);
  m_leftOut->setDetailText(
      toQString(report::adviceFor(m_report->leftOut.groups[*row].reason, report::Reader::window)));
  ui::showExamples(m_leftOut->details(), m_report, *row);
}

void ReportWindow::showChanges() {
  if (!isVisible() || m_report == nullptr || !m_report->hasScan()) return;
  m_compared = m_reader.compared();
  const auto& title = m_titles[static_cast<std::size_t>(m_tabs->indexOf(m_changes))];
  if (m_compared == nullptr || !m_compared->changes.areKnown) {
    m_changes->setHint(m_report->former.id == 0
                           ? tr("There is no complete scan before this one to compare with.")
                           : tr("Comparing the scans..."));
    m_changes->rows().setRows(0, {}, nullptr);
    m_tabs->setTabText(m_tabs->indexOf(m_changes), title);
    return;
  }
  m_changes->setHint(tr("Nothing has changed since the scan before."));
  ui::showChanges(m_changes->rows(), m_compared);
  m_changes->setChoices(changeChoices(m_compared->changes));
  countOn(*m_changes, m_changes->rows().count());
  m_overview->showChanges(*m_compared);
}

void ReportWindow::showLinksOf(ReportTab& tab, const FindLinked& find) {
  const auto row = tab.selectedRow();
  if (!row) {
    tab.setDetailText({});
    tab.setDetailHint(tab.rows().rowCount() == 0 ? QString()
                                                 : tr("Select a row to see which pages link there."));
    return showLinks(tab.details(), nullptr);
  }
  const Linked linked = find(*row);
  if (!linked.target) {
    tab.setDetailText(toQString(linked.standing + (linked.known == nullptr ? "." : ":")));
    tab.setDetailHint({});
    return showLinks(tab.details(), linked.known);
  }
  tab.setDetailText(linkedText(linked.standing, linked.pages));
  const LinkingPages links = m_reader.linksTo(*linked.target);
  tab.setDetailHint(links == nullptr ? tr("Reading the links...") : QString());
  showLinks(tab.details(), links);
  if (links == nullptr) m_reader.wantLinks(*linked.target);
}

/// Somebody who looks for an address in vain wants to know why it is not there.
void ReportWindow::explainEmptyPages() {
  if (m_report == nullptr || !m_report->hasScan()) return;
  const std::string typed = toUtf8(m_pages->searched());
  const int found = m_pages->rows().rowCount();
  if (found == 0 && report::looksLikeAddress(typed)) {
    m_pages->setNarrowedHint(toQString(report::whyNotListed(*m_report, m_state.qzvskFiltersArray, typed)));
  } else {
    m_pages->setNarrowedHint(typed.empty() ? tr("There is no such page.")
                                           : tr("No page has this in its address or title."));
  }
  if (found == 1 && !typed.empty()) m_pages->table().selectRow(0);
}

void ReportWindow::showPage(const QString& address) {
  if (m_report == nullptr) return;
  m_tabs->setCurrentWidget(m_pages);
  if (const Page* page = m_report->find(toUtf8(address))) {
    m_pages->select(static_cast<std::size_t>(page - m_report->now.pages.data()));
  } else {
    m_pages->setSearch(address);
    m_pages->focusSearch();
  }
}

}  // namespace ui
