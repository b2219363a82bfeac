#include "ui/broken_links_model.h"

#include <utility>

#include "platform/http_client.h"
#include "platform/qt_text.h"

namespace ui {

void BrokenLinksModel::setPages(std::vector<store::BrokenPage> pages) {
  beginResetModel();
  m_pages = std::move(pages);
  endResetModel();
}

int BrokenLinksModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_pages.size());
}

int BrokenLinksModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columnTotal;
}

QVariant BrokenLinksModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  const store::BrokenPage& page = m_pages[static_cast<std::size_t>(index.row())];
  return platform::toQString(index.column() == urlColumn ? page.url
                                                         : platform::reasonInLanguage(page.reason));
}

QVariant BrokenLinksModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return section == urlColumn ? tr("URL") : tr("Reason");
}

}  // namespace ui
