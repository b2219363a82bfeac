#include "crawler/sitemap_starts.h"

#include <chrono>
#include <optional>
#include <unordered_set>
#include <utility>

#include "crawler/site_bounds.h"
#include "crawler/sitemap_text.h"
#include "platform/phrases.h"
#include "sitemaps/xml_validation.h"

namespace crawler {

namespace {

using platform::Phrases;

/// A scan that waits for sitemaps does nothing else.
constexpr std::chrono::minutes kTimeout{2};

constexpr int kDeepestIndex = 1;  // one within another

/// Whether both are on one site's host, in whichever folders.
bool isSameSite(const web::Url& a, const web::Url& b) {
  const LinkReason reason = SiteBounds(a.href()).judge(platform::splitUri(b.href()));
  return reason == LinkReason::none || reason == LinkReason::aboveStart;
}

class Reader {
 public:
  Reader(platform::HttpClient& client, const NamedPage& namedPage, std::stop_token stop)
      : m_client(client), m_namedPage(namedPage), m_stop(std::move(stop)) {}

  enum class Presence { named, perhaps };

  void read(const std::optional<web::Url>& url, Presence presence, int depth = 0);
  std::vector<SiteSitemap> result() { return std::move(m_sitemaps); }

 private:
  SitemapText fetch(const std::string& address);
  void follow(const web::Url& index, const std::vector<std::string>& addresses, std::size_t place, int depth);
  void tellPages(const web::Url& base, const std::vector<std::string>& addresses, const SiteSitemap& sitemap);

  platform::HttpClient& m_client;
  const NamedPage& m_namedPage;
  std::stop_token m_stop;
  std::vector<SiteSitemap> m_sitemaps;
  std::unordered_set<std::string> m_asked;
};

void Reader::read(const std::optional<web::Url>& url, Presence presence, int depth) {
  if (!url || !url->isWeb() || m_asked.size() == kMaxSitemapFiles || m_stop.stop_requested()) return;
  std::string address(url->withoutFragment());
  if (!m_asked.insert(address).second) return;
  SitemapText text = fetch(address);
  if (m_stop.stop_requested() || (presence == Presence::perhaps && text.kind == SitemapKind::none)) return;
  const std::size_t place = m_sitemaps.size();
  m_sitemaps.push_back({std::move(address), std::move(text.problem)});
  if (text.kind == SitemapKind::pages) tellPages(*url, text.addresses, m_sitemaps.back());
  if (text.kind == SitemapKind::index) follow(*url, text.addresses, place, depth);
}

SitemapText Reader::fetch(const std::string& address) {
  using platform::FetchFailure;
  platform::HttpAnswer answer =
      m_client.fetch({.url = address, .timeout = kTimeout, .maxBytes = sitemaps::kMaxSitemapBytes}, m_stop);
  if (answer.status == 200) return readSitemapText(std::move(answer.body));
  SitemapText none;
  if (answer.failure == FetchFailure::none) {
    none.problem = std::to_string(answer.status) + " - " + std::string(platform::reasonPhrase(answer.status));
  } else {
    none.problem = Phrases::tr(platform::failureText(answer.failure));
  }
  return none;
}

void Reader::follow(const web::Url& index, const std::vector<std::string>& addresses, std::size_t place,
                    int depth) {
  const auto note = [&](std::string_view problem) {
    if (m_sitemaps[place].problem.empty()) m_sitemaps[place].problem = problem;
  };
  if (depth > kDeepestIndex)
    return note(Phrases::tr("It is an index within an index of indexes, which is not followed"));
  for (const std::string& address : addresses) {
    if (m_asked.size() == kMaxSitemapFiles)
      return note(Phrases::tr("No more than 1,000 sitemaps of a site are read"));
    const std::optional<web::Url> url = web::parseUrl(address, &index);
    if (url && !isSameSite(*url, index)) {
      note(Phrases::tr("It names sitemaps of another site, which are not read"));
    } else {
      read(url, Presence::named, depth + 1);
    }
  }
}

void Reader::tellPages(const web::Url& base, const std::vector<std::string>& addresses,
                       const SiteSitemap& sitemap) {
  for (const std::string& address : addresses) {
    if (m_stop.stop_requested()) return;
    const std::optional<web::Url> url = web::parseUrl(address, &base);
    if (url && url->isWeb()) m_namedPage(url->withoutFragment(), sitemap);
  }
}

}  // namespace

std::vector<SiteSitemap> readSiteSitemaps(platform::HttpClient& client, const web::Url& start,
                                          const std::vector<std::string>& named, const NamedPage& namedPage,
                                          std::stop_token stop) {
  Reader reader(client, namedPage, std::move(stop));
  for (const std::string& address : named)
    reader.read(web::parseUrl(address, &start), Reader::Presence::named);
  for (const char* usual : {"/sitemap.xml", "sitemap.xml"})
    reader.read(web::parseUrl(usual, &start), Reader::Presence::perhaps);
  return reader.result();
}

}  // namespace crawler
