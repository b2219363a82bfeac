#include "crawler/kept_pages.h"

#include <utility>

namespace crawler {

namespace {

bool isWorthKeeping(const FetchedPage& page) {
  return page.failure == platform::FetchFailure::none && page.status < 500 && page.status != 429;
}

}  // namespace

void KeptPages::expect(std::string_view url) {
  if (!isKept(url)) m_pages.expect(url);
}

std::shared_ptr<const FetchedPage> KeptPages::page(std::string_view url, std::stop_token stop) {
  if (m_journal == nullptr) return m_pages.page(url, stop);
  keepPage();
  m_url = url;
  m_date.reset();
  m_wasKept = isKept(url);
  if (m_wasKept) {
    std::optional<PageRecord> record = m_journal->find(url);
    // What cannot be read any more is fetched here: it was not announced.
    if (!record) record.emplace(visitPage(m_client, m_reading, url, stop));
    m_date = std::move(record->date);
    m_page = std::make_shared<const FetchedPage>(std::move(record->page));
  } else {
    m_page = m_pages.page(url, stop);
    m_isToBeKept = !stop.stop_requested() && isWorthKeeping(*m_page);
  }
  return m_page;
}

std::string KeptPages::lastModified(std::stop_token stop) {
  if (m_journal == nullptr || (!m_wasKept && !m_isToBeKept)) return m_pages.lastModified(stop);
  if (m_date) return *m_date;
  m_date = !m_wasKept                     ? m_pages.lastModified(stop)
           : m_page->lastModified.empty() ? askLastModified(m_client, m_url, stop)
                                          : m_page->lastModified;
  if (stop.stop_requested()) m_isToBeKept = false;  // the date may be missing for that reason alone
  return *m_date;
}

void KeptPages::keepPage() {
  if (std::exchange(m_isToBeKept, false)) m_journal->add(m_url, *m_page, m_date);
}

void KeptPages::finish() {
  if (m_journal == nullptr) return;
  keepPage();
  m_page.reset();
  m_journal->finish();
}

}  // namespace crawler
