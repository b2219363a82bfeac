// Pages that a stopped scan has fetched already, and all others from where pages come from.
#pragma once

#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

#include "crawler/page_journal.h"
#include "crawler/page_source.h"
#include "platform/http_client.h"

namespace crawler {

/// Keeps each page that is worth it in a journal, and takes from there what the journal holds: a scan that
/// goes on visits the same pages in the same order as one that was never stopped, and asks the server for the
/// rest. Not kept is what may be answered better later: failures, and what a server says that is busy or in
/// trouble. What it works with is borrowed.
class KeptPages : public PageSource {
 public:
  /// Without a journal nothing is kept.
  KeptPages(PageSource& pages, PageJournal* journal, platform::HttpClient& client, PageReading reading)
      : m_pages(pages), m_journal(journal), m_client(client), m_reading(std::move(reading)) {}

  void expect(std::string_view url) override;
  std::shared_ptr<const FetchedPage> page(std::string_view url, std::stop_token stop) override;
  std::string lastModified(std::stop_token stop) override;

  /// The page visited last is the last one.
  void finish();

 private:
  bool isKept(std::string_view url) const { return m_journal != nullptr && m_journal->holds(url); }
  void keepPage();

  PageSource& m_pages;
  PageJournal* m_journal;
  platform::HttpClient& m_client;
  const PageReading m_reading;

  // Of the page visited last:
  std::string m_url;
  std::shared_ptr<const FetchedPage> m_page;
  std::optional<std::string> m_date;
  bool m_wasKept = false;     // it came from the journal
  bool m_isToBeKept = false;  // once its date is known, or nobody has asked for that
};

}  // namespace crawler
