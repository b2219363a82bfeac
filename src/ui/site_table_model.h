// The sites as a table: name, counts of the last scan, and when that was.
#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <string>
#include <vector>

#include "store/broken_reasons.h"
#include "store/global_controls.h"

namespace ui {

/// Rows are read from disk by rebuild() and refresh(), and only then.
class SiteTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// For what a column is sorted by: numbers as numbers.
  static constexpr int sortRole = Qt::UserRole;

  enum Column { siteColumn, pagesColumn, linksColumn, brokenColumn, lastScanColumn, columnTotal };

  /// Both are borrowed and outlive the model.
  SiteTableModel(const store::GlobalControls& controls, const store::StateFolder& stateFolder);

  /// Reads all sites anew, upgrading older records on the way. What could not be upgraded is told in
  /// `problems`.
  void rebuild(std::vector<std::string>* problems = nullptr);

  /// Reads one site's counts anew.
  void refresh(const std::string& name);

  /// The name at a row of this model.
  std::string siteName(int row) const { return m_rows[static_cast<std::size_t>(row)].name; }
  /// The longest text of a column, to make room for.
  QString longestText(int column) const;

  bool isEmpty() const { return m_rows.empty(); }
  /// -1 when there is no such site.
  int rowOf(const std::string& name) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Row {
    std::string name;
    int pages = 0;
    int links = 0;
    int broken = 0;
    QDateTime lastScan = {};  // null where unknown
  };

  Row readRow(const std::string& name) const;
  static QVariant sortValue(const Row& row, int column);
  QString text(const Row& row, int column) const;

  const store::GlobalControls& m_controls;
  const store::StateFolder& m_stateFolder;
  const store::BrokenReasons m_reasons;  // saved when the site is scanned
  std::vector<Row> m_rows;
};

}  // namespace ui
