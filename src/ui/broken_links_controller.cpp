#include "ui/broken_links_controller.h"

#include <QAction>
#include <QHeaderView>
#include <QLocale>
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/address_actions.h"
#include "platform/qt_text.h"
#include "report/latest_report.h"
#include "ui/sorted_table.h"

namespace ui {

using platform::control;
using platform::toQString;

BrokenLinksController::BrokenLinksController(const QMainWindow& mainWindow, const store::SharedState& state,
                                             ReportReader& reader)
    : m_state(state), m_reader(reader), m_view{mainWindow} {
  buildTable();
  setUpReportTable(m_view.badLinkPages, m_linking);
  m_noLinks = new EmptyHint(m_view.badLinkPages);
  connectButtons();
  connect(&reader, &ReportReader::reportChanged, this, [this] {
    if (m_isShown) showLinks();
  });
  connect(&reader, &ReportReader::linksRead, this, [this] {
    if (m_isShown && m_linking.rowCount() == 0) showLinks();
  });
}

void BrokenLinksController::buildTable() {
  QTableView& table = m_view.badLinkTable;
  m_found.setSourceModel(&m_pages);
  m_found.setSortLocaleAware(true);
  m_found.setSortCaseSensitivity(Qt::CaseInsensitive);
  m_found.setFilterCaseSensitivity(Qt::CaseInsensitive);
  m_found.setFilterKeyColumn(-1);
  table.setModel(&m_found);
  sortByHeadings(table);
  table.verticalHeader()->hide();
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setSectionResizeMode(BrokenLinksModel::urlColumn, QHeaderView::Stretch);
  table.horizontalHeader()->resizeSection(BrokenLinksModel::reasonColumn,
                                          table.fontMetrics().averageCharWidth() * 36);
  m_noPages = new EmptyHint(table);
  platform::addAddressActions(table, [this] { return selectedAddresses(); });
  auto* leave = new QAction(tr("&Leave This Out"), &table);
  leave->setObjectName(QStringLiteral("leaveOutMI"));
  table.addAction(leave);
  connect(leave, &QAction::triggered, this, [this] { emit leaveOut(selectedAddresses()); });
  connect(&m_view.badLinkSearch, &QLineEdit::textChanged, &m_found,
          &QSortFilterProxyModel::setFilterFixedString);
}

void BrokenLinksController::connectButtons() {
  QTableView& table = m_view.badLinkTable;
  const auto presses = [&](const QPushButton& button, const char* action) {
    connect(&button, &QPushButton::clicked, &control<QAction>(table, action), &QAction::trigger);
  };
  presses(m_view.copyBadLinkButton, platform::kCopySelection);
  presses(m_view.openBadLinkButton, platform::kOpenSelection);
  presses(m_view.leaveOutButton, "leaveOutMI");
  const auto exports = [this](const QPushButton& button, LinkingExport::Format format) {
    connect(&button, &QPushButton::clicked, this, [this, format] { emit exportWanted(format); });
  };
  exports(m_view.exportBrokenAsCSVButton, LinkingExport::Format::csv);
  exports(m_view.exportBrokenAsJSONButton, LinkingExport::Format::json);
  const auto enable = [this, &table] {
    const bool any = table.selectionModel()->hasSelection();
    for (QPushButton* button :
         {&m_view.copyBadLinkButton, &m_view.openBadLinkButton, &m_view.leaveOutButton}) {
      button->setEnabled(any);
      button->setToolTip(any ? QString() : tr("Select a page first"));
    }
    if (any) m_view.leaveOutButton.setToolTip(tr("Add a filter that keeps this address out of later scans"));
    control<QAction>(table, "leaveOutMI").setEnabled(any);
    showLinks();
  };
  connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, enable);
  connect(&m_found, &QAbstractItemModel::modelReset, this, enable);
  enable();
}

void BrokenLinksController::show() {
  m_isShown = true;
  m_reader.want();
  std::vector<store::BrokenPage> pages;
  for (std::size_t i = 0; i < m_state.qzvskBadLinkArray.size(); ++i) {
    const bool known = i < m_state.qzvskBadLinkReasonArray.size();
    pages.push_back(
        {m_state.qzvskBadLinkArray[i], known ? m_state.qzvskBadLinkReasonArray[i] : std::string()});
  }
  m_view.badLinkLabel.setText(m_state.qzvskCurSite.empty()
                                  ? tr("Select a site to see the broken pages of its last scan.")
                              : pages.empty() ? tr("No broken pages are known.")
                                              : tr("Broken &pages of the last scan"));
  m_noPages->setText(pages.empty() ? QString() : tr("No broken page has this in its address or reason."));
  m_pages.setPages(std::move(pages));
}

void BrokenLinksController::showLinks() {
  const report::Page* page = pageInHand();
  LinkingPages links;
  if (page != nullptr) links = m_reader.linksTo({false, page->number});
  QString text = tr("Pages that lin&k to the selected address");
  if (links != nullptr && page->linkedFrom > links->size())
    text = tr("The first %1 of %2 pages that lin&k to the selected address")
               .arg(links->size())
               .arg(QLocale().toString(page->linkedFrom));
  m_view.badLinkPagesLabel.setText(text);
  m_noLinks->setText(whyNoLinks(page));
  const bool isKnown = m_reader.report() != nullptr && report::whyNoLinks(*m_reader.report()).empty();
  for (QPushButton* button : {&m_view.exportBrokenAsCSVButton, &m_view.exportBrokenAsJSONButton}) {
    button->setEnabled(isKnown);
    button->setToolTip(isKnown ? tr("With the pages that link to each address")
                               : tr("There is no report of the last scan"));
  }
  ui::showLinks(m_linking, links);
  if (page != nullptr && links == nullptr) m_reader.wantLinks({false, page->number});
}

/// What is said in their place.
QString BrokenLinksController::whyNoLinks(const report::Page* page) const {
  const auto& report = m_reader.report();
  if (m_pages.rowCount() == 0) return {};
  if (report == nullptr) return tr("Reading the report...");
  if (const std::string why = report::whyNoLinks(*report); !why.empty()) return toQString(why);
  if (selectedAddresses().isEmpty()) return tr("Select a page to see which pages link to it.");
  if (page == nullptr) return tr("The report of the last scan does not have this address.");
  if (m_reader.linksTo({false, page->number}) == nullptr) return tr("Reading the links...");
  return tr("No page links to it: it was named by the site's own sitemaps, or is its start page.");
}

/// The one that the report has for the selected address; null when there is none.
const report::Page* BrokenLinksController::pageInHand() const {
  const auto& report = m_reader.report();
  const QStringList addresses = selectedAddresses();
  if (report == nullptr || addresses.isEmpty() || !report::whyNoLinks(*report).empty()) return nullptr;
  const std::string address = platform::toUtf8(addresses.first());
  const auto found = std::find_if(report->broken.begin(), report->broken.end(),
                                  [&](const report::Page* page) { return page->address == address; });
  return found == report->broken.end() ? nullptr : *found;
}

QStringList BrokenLinksController::selectedAddresses() const {
  QStringList addresses;
  for (const QModelIndex& row :
       m_view.badLinkTable.selectionModel()->selectedRows(BrokenLinksModel::urlColumn)) {
    addresses.append(row.data().toString());
  }
  return addresses;
}

}  // namespace ui
