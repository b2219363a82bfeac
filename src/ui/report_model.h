// The rows of a report as a table that sorts and searches, however many they are.
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ui {

/// What stands in a cell; of the two, what its column shows.
struct ReportCell {
  std::string text = {};
  std::int64_t number = 0;
};

struct ReportColumn {
  enum class Kind {
    address,  // what is copied and opened; one of each table at most
    text,
    number,      // with separators, and 0 for none
    someNumber,  // likewise, and nothing for 0
    code,        // as it is, and nothing for 0
  };

  QString heading;
  Kind kind = Kind::text;
  bool isHiddenAtFirst = false;
  int letters = 0;  // it has room for at least, and for its heading
};

/// Shows what belongs to somebody else, by an order of its own: nothing is copied but the texts that are
/// seen or sorted by. All text is plain. UI thread.
class ReportModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit ReportModel(std::vector<ReportColumn> columns, QObject* parent = nullptr);

  /// What stands in a row and column; called as long as `keeps` is held.
  using Cells = std::function<ReportCell(std::size_t row, int column)>;
  /// Sorted and searched as before.
  void setRows(std::size_t count, Cells cells, std::shared_ptr<const void> keeps);
  /// These rows only, in this order until the user sorts; all of them for none.
  void choose(std::shared_ptr<const std::vector<std::size_t>> rows);
  /// Only rows that have the text in a column of addresses or texts, in whatever case. Columns that are
  /// hidden at first are not searched.
  void search(const QString& text);

  const std::vector<ReportColumn>& columns() const { return m_columns; }
  std::size_t count() const { return m_count; }  // of all rows, shown or not
  /// The row that stands at this place; and the place of a row, -1 where it is not shown.
  std::size_t rowAt(int place) const { return m_order[static_cast<std::size_t>(place)]; }
  int placeOf(std::size_t row) const;
  QString textAt(std::size_t row, int column) const;
  int addressColumn() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// By no column for -1: in the order given.
  void sort(int column, Qt::SortOrder order) override;

 private:
  void gather();
  void arrange();
  bool isFound(std::size_t row) const;

  const std::vector<ReportColumn> m_columns;
  std::size_t m_count = 0;
  Cells m_cells;
  std::shared_ptr<const void> m_keeps;
  std::shared_ptr<const std::vector<std::size_t>> m_chosen;
  QString m_searched;
  int m_sortColumn = -1;
  Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
  std::vector<std::size_t> m_order;  // rows by their places
};

}  // namespace ui
