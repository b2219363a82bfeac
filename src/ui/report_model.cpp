#include "ui/report_model.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/qt_text.h"

namespace ui {

using Kind = ReportColumn::Kind;

namespace {

bool isText(const ReportColumn& column) {
  return column.kind == Kind::address || column.kind == Kind::text;
}

QVariant alignmentOf(const ReportColumn& column) {
  const bool isNumber = column.kind == Kind::number || column.kind == Kind::someNumber;
  return QVariant::fromValue(Qt::AlignVCenter | (isNumber ? Qt::AlignRight : Qt::AlignLeft));
}

/// Equal ones stay as they are.
template <typename Key>
void sortBy(std::vector<std::size_t>& rows, Qt::SortOrder order, Key key) {
  std::vector<std::pair<decltype(key(0)), std::size_t>> keyed;
  keyed.reserve(rows.size());
  for (const std::size_t row : rows) keyed.emplace_back(key(row), row);
  const auto before = [order](const auto& a, const auto& b) {
    return order == Qt::AscendingOrder ? a.first < b.first : b.first < a.first;
  };
  std::stable_sort(keyed.begin(), keyed.end(), before);
  std::transform(keyed.begin(), keyed.end(), rows.begin(), [](const auto& each) { return each.second; });
}

}  // namespace

ReportModel::ReportModel(std::vector<ReportColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), m_columns(std::move(columns)) {}

void ReportModel::setRows(std::size_t count, Cells cells, std::shared_ptr<const void> keeps) {
  beginResetModel();
  m_count = count;
  m_cells = std::move(cells);
  m_keeps = std::move(keeps);
  m_chosen.reset();
  gather();
  endResetModel();
}

void ReportModel::choose(std::shared_ptr<const std::vector<std::size_t>> rows) {
  beginResetModel();
  m_chosen = std::move(rows);
  gather();
  endResetModel();
}

void ReportModel::search(const QString& text) {
  beginResetModel();
  m_searched = text.trimmed();
  gather();
  endResetModel();
}

void ReportModel::gather() {
  if (m_chosen != nullptr) {
    m_order = *m_chosen;
  } else {
    m_order.resize(m_count);
    std::iota(m_order.begin(), m_order.end(), std::size_t{0});
  }
  if (!m_searched.isEmpty()) std::erase_if(m_order, [this](std::size_t row) { return !isFound(row); });
  arrange();
}

bool ReportModel::isFound(std::size_t row) const {
  for (int column = 0; column < columnCount(); ++column) {
    const ReportColumn& each = m_columns[static_cast<std::size_t>(column)];
    if (isText(each) && !each.isHiddenAtFirst &&
        platform::toQString(m_cells(row, column).text).contains(m_searched, Qt::CaseInsensitive))
      return true;
  }
  return false;
}

void ReportModel::arrange() {
  if (m_sortColumn < 0) return;
  const auto text = [this](std::size_t row) { return platform::toQString(m_cells(row, m_sortColumn).text); };
  const Kind kind = m_columns[static_cast<std::size_t>(m_sortColumn)].kind;
  if (kind == Kind::address) {  // in which every character counts
    sortBy(m_order, m_sortOrder, [&](std::size_t row) { return text(row).toCaseFolded(); });
  } else if (kind == Kind::text) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    sortBy(m_order, m_sortOrder, [&](std::size_t row) { return collator.sortKey(text(row)); });
  } else {
    sortBy(m_order, m_sortOrder, [this](std::size_t row) { return m_cells(row, m_sortColumn).number; });
  }
}

void ReportModel::sort(int column, Qt::SortOrder order) {
  emit layoutAboutToBeChanged({}, VerticalSortHint);
  const QModelIndexList former = persistentIndexList();
  std::vector<std::size_t> rows;
  for (const QModelIndex& index : former) rows.push_back(rowAt(index.row()));
  m_sortColumn = column;
  m_sortOrder = order;
  gather();
  std::vector<int> places(m_count, -1);
  for (std::size_t place = 0; place < m_order.size(); ++place)
    places[m_order[place]] = static_cast<int>(place);
  QModelIndexList present;
  for (qsizetype i = 0; i < former.size(); ++i)
    present.append(index(places[rows[static_cast<std::size_t>(i)]], former[i].column()));
  changePersistentIndexList(former, present);
  emit layoutChanged({}, VerticalSortHint);
}

int ReportModel::placeOf(std::size_t row) const {
  const auto found = std::find(m_order.begin(), m_order.end(), row);
  return found == m_order.end() ? -1 : static_cast<int>(found - m_order.begin());
}

int ReportModel::addressColumn() const {
  const auto found = std::find_if(m_columns.begin(), m_columns.end(),
                                  [](const ReportColumn& column) { return column.kind == Kind::address; });
  return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}

int ReportModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_order.size());
}

int ReportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QString ReportModel::textAt(std::size_t row, int column) const {
  const ReportCell cell = m_cells(row, column);
  switch (m_columns[static_cast<std::size_t>(column)].kind) {
    case Kind::address:
    case Kind::text:
      return platform::toQString(cell.text);
    case Kind::number:
      return QLocale().toString(static_cast<qlonglong>(cell.number));
    case Kind::someNumber:
      return cell.number == 0 ? QString() : QLocale().toString(static_cast<qlonglong>(cell.number));
    case Kind::code:
      return cell.number == 0 ? QString() : QString::number(cell.number);
  }
  return {};
}

QVariant ReportModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const ReportColumn& column = m_columns[static_cast<std::size_t>(index.column())];
  if (role == Qt::TextAlignmentRole) return alignmentOf(column);
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const QString text = textAt(rowAt(index.row()), index.column());
  // What makes lines in a title makes none in a table.
  if (role == Qt::DisplayRole) return column.kind == Kind::text ? text.simplified() : text;
  // A tool tip that looks like markup would be taken for it.
  return isText(column) && !text.isEmpty() ? QVariant(text.toHtmlEscaped().prepend(QStringLiteral("<p>")))
                                           : QVariant();
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const ReportColumn& column = m_columns[static_cast<std::size_t>(section)];
  if (role == Qt::TextAlignmentRole) return alignmentOf(column);
  return role == Qt::DisplayRole ? QVariant(column.heading) : QVariant();
}

}  // namespace ui
