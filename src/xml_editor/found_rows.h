// The rows of the table as they are shown: those that a search finds, in the order of a heading.
#pragma once

#include <QAbstractProxyModel>
#include <vector>

#include "xml_editor/xml_table_model.h"

namespace xml_editor {

/// Fit for a million rows, which Qt's own model of this kind is not: it takes rows out one by one. A row that
/// is edited keeps its place until a heading is clicked or something is searched for: it would be lost to the
/// eye otherwise. UI thread.
class FoundRows : public QAbstractProxyModel {
  Q_OBJECT

 public:
  /// Without a heading to go by, the order is that of the sitemap. `entries` is borrowed.
  explicit FoundRows(XmlTableModel& entries);

  /// Only rows whose address contains `text`, in any case, are shown from now on. Nothing is selected then.
  void search(const QString& text);
  bool searches() const { return !m_searched.isEmpty(); }

  /// By the column, or by no heading when it is -1. What is selected stays so.
  void sort(int column, Qt::SortOrder order) override;

  QModelIndex mapToSource(const QModelIndex& shown) const override;
  QModelIndex mapFromSource(const QModelIndex& entry) const override;
  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex&) const override { return {}; }
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;

 private:
  void gather();
  bool isFound(int row) const;

  XmlTableModel& m_entries;
  QString m_searched;
  int m_column = -1;
  Qt::SortOrder m_order = Qt::AscendingOrder;
  std::vector<int> m_rows;    // of the sitemap, as they are shown
  std::vector<int> m_places;  // of all rows of the sitemap among those that are shown; -1 when it is not
};

}  // namespace xml_editor
