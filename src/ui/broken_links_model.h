// The broken pages of the site in hand, with why they are broken where that is known.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "store/broken_reasons.h"

namespace ui {

class BrokenLinksModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { urlColumn, reasonColumn, columnTotal };

  using QAbstractTableModel::QAbstractTableModel;

  void setPages(std::vector<store::BrokenPage> pages);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<store::BrokenPage> m_pages;
};

}  // namespace ui
