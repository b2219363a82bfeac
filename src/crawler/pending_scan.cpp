#include "crawler/pending_scan.h"

#include <utility>

namespace crawler {

void PendingScan::restart(std::string_view startUrl) {
  const std::lock_guard lock(m_mutex);
  m_news = {};
  m_news.url = startUrl;
  m_told = false;
}

bool PendingScan::add(ScanEvent event) {
  const std::lock_guard lock(m_mutex);
  m_news.events.push_back(std::move(event));
  return first();
}

bool PendingScan::addLink(std::string_view link) {
  const std::lock_guard lock(m_mutex);
  m_news.links.emplace_back(link);
  if (m_news.links.size() > m_maxLinks) m_news.links.pop_front();
  return first();
}

bool PendingScan::setProgress(const ScanProgress& progress) {
  const std::lock_guard lock(m_mutex);
  m_news.progress = progress;
  return first();
}

bool PendingScan::setUrl(std::string_view url) {
  const std::lock_guard lock(m_mutex);
  m_news.url = url;
  return first();
}

ScanNews PendingScan::takeAll() {
  const std::lock_guard lock(m_mutex);
  m_told = false;
  ScanNews news{std::move(m_news.events), std::move(m_news.links), m_news.progress, m_news.url};
  m_news.events.clear();
  m_news.links.clear();
  return news;
}

bool PendingScan::first() {
  return !std::exchange(m_told, true);
}

}  // namespace crawler
