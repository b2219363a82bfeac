// The pages that a site's own sitemaps name, as further places for a scan to start from.
#pragma once

#include <cstddef>
#include <functional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "platform/http_client.h"
#include "web/url.h"

namespace crawler {

/// So many sitemaps of a site are asked for. One of them names up to 50,000 pages.
constexpr std::size_t kMaxSitemapFiles = 1'000;

/// A sitemap that was read, or could not be.
struct SiteSitemap {
  std::string address;
  std::string problem;  // what is wrong, in words without a full stop; empty when nothing is
};

/// Told of each page named: its address, in the one form of web::Url without its fragment, and the sitemap
/// that names it, valid during the call only. A page may be named several times.
using NamedPage = std::function<void(std::string_view address, const SiteSitemap& sitemap)>;

/// Asks for the sitemaps of the site that starts at `start`, one after the other, and tells `namedPage` of
/// every http or https address in them, whichever site's it is. They are those that robots.txt names
/// (`named`, as written there), then sitemap.xml at the host's root and in the folder of `start`, which may
/// be missing without a word. An index is followed to the sitemaps of its own site, and so is one that it
/// names, but no further. Each sitemap is read once. Returns them in the order asked for; a stop ends it
/// early, with those that were read by then.
std::vector<SiteSitemap> readSiteSitemaps(platform::HttpClient& client, const web::Url& start,
                                          const std::vector<std::string>& named, const NamedPage& namedPage,
                                          std::stop_token stop);

}  // namespace crawler
