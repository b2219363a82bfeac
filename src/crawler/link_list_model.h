// The addresses that a scan finds, for a list that shows them.
#pragma once

#include <QAbstractListModel>
#include <deque>
#include <memory>
#include <string>

#include "crawler/page_queue.h"

namespace crawler {

/// Either the newest links of a running scan, or the whole list of pages at its end.
class LinkListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  void clear();
  /// Adds links at the end. Beyond 100,000 the oldest go.
  void append(std::deque<std::string> links);
  /// Shows these instead, however many.
  void setPages(std::shared_ptr<const PageQueue> pages);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::deque<std::string> m_links;
  std::shared_ptr<const PageQueue> m_pages;  // null while links are shown
};

}  // namespace crawler
