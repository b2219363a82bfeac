// Tables that sort by their headings.
#pragma once

#include <QHeaderView>
#include <QTableView>

namespace ui {

/// A click on a heading sorts by it, another one the other way round, and a third gives the model's own order
/// back, in which the table starts. Its model has to be one that sorts.
inline void sortByHeadings(QTableView& table) {
  QHeaderView& header = *table.horizontalHeader();
  header.setSortIndicator(-1, Qt::AscendingOrder);
  header.setSortIndicatorClearable(true);
  table.setSortingEnabled(true);
}

}  // namespace ui
