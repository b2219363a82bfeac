#include "ui/site_table_model.h"

#include <QLocale>
#include <algorithm>
#include <chrono>

#include "platform/qt_text.h"
#include "sitemaps/former_set.h"
#include "store/site_list.h"

namespace ui {

SiteTableModel::SiteTableModel(const store::GlobalControls& controls, const store::StateFolder& stateFolder)
    : m_controls(controls), m_stateFolder(stateFolder), m_reasons(stateFolder) {}

void SiteTableModel::rebuild(std::vector<std::string>* problems) {
  store::SiteList list = store::siteTableRows(m_controls, m_stateFolder);
  sitemaps::finishRestores(m_controls, m_stateFolder, list.names);
  std::vector<Row> rows;
  rows.reserve(list.names.size());
  for (const std::string& name : list.names) rows.push_back(readRow(name));
  beginResetModel();
  m_rows = std::move(rows);
  endResetModel();
  if (problems != nullptr) *problems = std::move(list.problems);
}

void SiteTableModel::refresh(const std::string& name) {
  const int row = rowOf(name);
  if (row < 0) return;
  m_rows[static_cast<std::size_t>(row)] = readRow(name);
  emit dataChanged(index(row, 0), index(row, columnTotal - 1));
}

QString SiteTableModel::longestText(int column) const {
  QString longest;
  for (const Row& row : m_rows) {
    const QString each = text(row, column);
    if (each.size() > longest.size()) longest = each;
  }
  return longest;
}

int SiteTableModel::rowOf(const std::string& name) const {
  const auto found =
      std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& row) { return row.name == name; });
  return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int SiteTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int SiteTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columnTotal;
}

QVariant SiteTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Row& row = m_rows[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return text(row, index.column());
    case Qt::ToolTipRole:
      return index.column() == siteColumn ? platform::toQString(row.name) : QVariant();
    case sortRole:
      return sortValue(row, index.column());
    case Qt::TextAlignmentRole:
      return static_cast<int>(Qt::AlignVCenter |
                              (index.column() == siteColumn ? Qt::AlignLeft : Qt::AlignRight));
    default:
      return {};
  }
}

QVariant SiteTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>(Qt::AlignVCenter | (section == siteColumn ? Qt::AlignLeft : Qt::AlignRight));
  }
  if (role != Qt::DisplayRole) return {};
  switch (section) {
    case siteColumn:
      return tr("Site");
    case pagesColumn:
      return tr("Pages");
    case linksColumn:
      return tr("Links");
    case brokenColumn:
      return tr("Broken");
    case lastScanColumn:
      return tr("Last scan");
    default:
      return {};
  }
}

SiteTableModel::Row SiteTableModel::readRow(const std::string& name) const {
  const store::SiteDetails details = store::readSite(m_controls, name).details;
  Row row{name, std::max(0, details.pagesFound), std::max(0, details.totalLinks),
          static_cast<int>(details.badLinks.size())};
  if (const auto saved = m_reasons.savedAt(name)) {
    const auto time = std::chrono::file_clock::to_sys(*saved);
    row.lastScan = QDateTime::fromSecsSinceEpoch(
        std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count());
  }
  return row;
}

/// Sites that were never scanned come before those of which the scan found nothing.
QVariant SiteTableModel::sortValue(const Row& row, int column) {
  const auto count = [&](int number) { return row.pages > 0 ? number : -1; };
  switch (column) {
    case siteColumn:
      return platform::toQString(row.name);
    case pagesColumn:
      return count(row.pages);
    case linksColumn:
      return count(row.links);
    case brokenColumn:
      return count(row.broken);
    case lastScanColumn:
      return row.lastScan;
    default:
      return {};
  }
}

QString SiteTableModel::text(const Row& row, int column) const {
  const QLocale locale;
  // A site that was never scanned has nothing to count.
  const auto count = [&](int number) { return row.pages > 0 ? locale.toString(number) : QString(); };
  switch (column) {
    case siteColumn:
      return platform::toQString(row.name);
    case pagesColumn:
      return count(row.pages);
    case linksColumn:
      return count(row.links);
    case brokenColumn:
      return count(row.broken);
    case lastScanColumn:
      return row.lastScan.isNull() ? QString() : locale.toString(row.lastScan.date(), QLocale::ShortFormat);
    default:
      return {};
  }
}

}  // namespace ui
