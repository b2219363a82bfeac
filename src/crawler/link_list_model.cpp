#include "crawler/link_list_model.h"

#include <algorithm>
#include <utility>

#include "platform/qt_text.h"

namespace crawler {

namespace {

constexpr std::size_t kMaxLinks = 100'000;

}  // namespace

void LinkListModel::clear() {
  beginResetModel();
  m_links.clear();
  m_pages = nullptr;
  endResetModel();
}

void LinkListModel::append(std::deque<std::string> links) {
  if (links.empty() || m_pages) return;
  const std::size_t wanted = m_links.size() + links.size();
  if (wanted > kMaxLinks) {
    const std::size_t surplus = std::min(m_links.size(), wanted - kMaxLinks);
    beginRemoveRows({}, 0, static_cast<int>(surplus) - 1);
    m_links.erase(m_links.begin(), m_links.begin() + static_cast<std::ptrdiff_t>(surplus));
    endRemoveRows();
  }
  beginInsertRows({}, static_cast<int>(m_links.size()), static_cast<int>(m_links.size() + links.size()) - 1);
  std::move(links.begin(), links.end(), std::back_inserter(m_links));
  endInsertRows();
}

void LinkListModel::setPages(std::shared_ptr<const PageQueue> pages) {
  beginResetModel();
  m_links.clear();
  m_pages = std::move(pages);
  endResetModel();
}

int LinkListModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return static_cast<int>(m_pages ? m_pages->size() : m_links.size());
}

QVariant LinkListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  const auto row = static_cast<std::size_t>(index.row());
  return platform::toQString(m_pages ? (*m_pages)[row] : std::string_view(m_links[row]));
}

}  // namespace crawler
