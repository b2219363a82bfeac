#include "xml_editor/found_rows.h"

#include <algorithm>
#include <string_view>
#include <tuple>

#include "platform/qt_text.h"
#include "xml_editor/menu_values.h"

namespace xml_editor {

namespace {

/// What a row is put into order by: the frequencies of the menu in their order there, everything else as
/// text.
struct Key {
  std::ptrdiff_t place = 0;
  std::string_view text = {};  // in the row, or in the menu
  int row = 0;

  bool operator<(const Key& other) const {
    return std::tie(place, text, row) < std::tie(other.place, other.text, other.row);
  }
};

Key keyOf(const std::string& text, Field field, int row) {
  const bool hasMenu = field == Field::changefreq || field == Field::priority;
  const MenuValue* chosen = hasMenu ? chosenValue(text, field) : nullptr;
  if (chosen != nullptr && field == Field::changefreq) return {chosen - kFrequencyMenu.data(), {}, row};
  Key key = {static_cast<std::ptrdiff_t>(kFrequencyMenu.size()), {}, row};
  if (chosen != nullptr) {
    key.text = chosen->title;
  } else if (const auto element = findElement(text, field)) {
    key.text = element->value;
  }
  return key;
}

}  // namespace

FoundRows::FoundRows(XmlTableModel& entries) : m_entries(entries) {
  setSourceModel(&entries);
  connect(&entries, &QAbstractItemModel::modelAboutToBeReset, this, &FoundRows::beginResetModel);
  connect(&entries, &QAbstractItemModel::modelReset, this, [this] {
    gather();
    endResetModel();
  });
  connect(&entries, &QAbstractItemModel::dataChanged, this,
          [this](const QModelIndex& first, const QModelIndex& last) {
            const QModelIndex shown = mapFromSource(first);
            if (shown.isValid()) emit dataChanged(shown, index(shown.row(), last.column()));
          });
}

void FoundRows::search(const QString& text) {
  beginResetModel();
  m_searched = text;
  gather();
  endResetModel();
}

void FoundRows::sort(int column, Qt::SortOrder order) {
  emit layoutAboutToBeChanged();
  const QModelIndexList before = persistentIndexList();
  QModelIndexList entries;
  for (const QModelIndex& each : before) entries.append(mapToSource(each));
  m_column = column;
  m_order = order;
  gather();
  QModelIndexList after;
  for (const QModelIndex& each : entries) after.append(mapFromSource(each));
  changePersistentIndexList(before, after);
  emit layoutChanged();
}

void FoundRows::gather() {
  const std::vector<std::string>& rows = m_entries.sitemap().rows();
  std::vector<Key> keys;
  for (int row = 0; row < m_entries.rowCount(); ++row) {
    if (!isFound(row)) continue;
    const std::string& text = rows[static_cast<std::size_t>(row)];
    keys.push_back(m_column < 0 ? Key{.row = row}
                                : keyOf(text, kFields[static_cast<std::size_t>(m_column)], row));
  }
  if (m_column >= 0) std::sort(keys.begin(), keys.end());
  if (m_column >= 0 && m_order == Qt::DescendingOrder) std::reverse(keys.begin(), keys.end());
  m_rows.clear();
  m_places.assign(rows.size(), -1);
  for (const Key& key : keys) {
    m_places[static_cast<std::size_t>(key.row)] = static_cast<int>(m_rows.size());
    m_rows.push_back(key.row);
  }
}

bool FoundRows::isFound(int row) const {
  if (m_searched.isEmpty()) return true;
  const std::string& text = m_entries.sitemap().rows()[static_cast<std::size_t>(row)];
  return platform::toQString(shownValue(text, Field::loc)).contains(m_searched, Qt::CaseInsensitive);
}

QModelIndex FoundRows::mapToSource(const QModelIndex& shown) const {
  if (!shown.isValid()) return {};
  return m_entries.index(m_rows[static_cast<std::size_t>(shown.row())], shown.column());
}

QModelIndex FoundRows::mapFromSource(const QModelIndex& entry) const {
  if (!entry.isValid()) return {};
  return index(m_places[static_cast<std::size_t>(entry.row())], entry.column());
}

QModelIndex FoundRows::index(int row, int column, const QModelIndex& parent) const {
  return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

int FoundRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int FoundRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : XmlTableModel::kColumns;
}

}  // namespace xml_editor
