// From an href to a page of the site. Input: the start address, the address of the page in hand, the href,
// then the known pages, one a line.
#include <algorithm>
#include <set>
#include <string>

#include "crawler/simple_link_rules.h"
#include "fuzz_target.h"
#include "platform/uri.h"

namespace {

using crawler::LinkBase;
using fuzz::require;

struct KnownPages {
  crawler::PageQueue queue;
  std::set<std::string, std::less<>> all;

  void append(std::string_view page) {
    queue.append(page);
    all.emplace(page);
  }
  bool contains(const std::string& page) const { return all.contains(page); }
};

void checkRebuilding(std::string_view href, const LinkBase& base) {
  const std::string link = crawler::rebuildHREF(href, base);
  require(link.empty() == (href == "mailto:"), "only a bare mailto leads nowhere");
  if (href.starts_with("http") || href.starts_with("ftp")) require(link == href, "an absolute link stays");
  if (href.starts_with('#')) require(link == base.pageBaseURLUnchanged, "a fragment leads to its page");
  // What the parent folder is may be odd, but climbing never reaches beyond what the page's folder begins
  // with.
  if (href == "../")
    require(base.pageBaseURL.starts_with(link) || link == base.siteBaseURL, "climbing goes up");
}

void checkExtensions(const std::string& link) {
  const auto media = crawler::pageExtensions();
  const platform::UriParts parts = platform::splitUri(link);
  if (parts.query || parts.path.find('.') == std::string_view::npos) {
    require(!crawler::hasForeignExtension(link, media), "a query or a path without a dot has no extension");
  }
  for (const std::string_view extension : media) {
    const std::string page = "http://a.test/page" + std::string(extension);
    require(!crawler::hasForeignExtension(page, media), "page extensions are no foreign ones");
    require(crawler::hasForeignExtension(page + "x", media) ==
                (std::find(media.begin(), media.end(), std::string(extension) + "x") == media.end()),
            "an extension counts whole");
  }
}

void checkFolderOfIndex(const std::string& link, const KnownPages& known) {
  const auto media = crawler::pageExtensions();
  const bool found = crawler::isFolderOfKnownIndex(link, known.queue, media);
  const platform::UriParts parts = platform::splitUri(link);
  if (link.starts_with("mailto:") || parts.query || parts.path.find('.') != std::string_view::npos) {
    require(!found, "mail, queries and files are no folders");
    return;
  }
  const std::string folder = link.ends_with('/') ? link : link + "/";
  const bool expected = std::any_of(media.begin(), media.end(), [&](std::string_view extension) {
    return known.contains(folder + "index" + std::string(extension));
  });
  require(found == expected, "a folder is known by any of its index pages");
}

void checkPath(const std::string& link) {
  const std::string whole = crawler::withPath(link);
  require(whole == link || whole == link + "/", "a path is added at the end or not at all");
  if (link.find_first_of("?#") == std::string::npos) {
    require(crawler::withPath(whole) == whole, "a link with a path gets none");
  }
}

/// Twice, to see that the answers follow the queue: before and after the link itself is appended.
void checkKnown(const std::string& link, KnownPages& known) {
  const auto media = crawler::pageExtensions();
  const bool before = crawler::isKnownPage(link, known.queue, media);
  if (known.contains(link)) require(before, "what was appended is known");
  if (known.all.empty()) require(!before, "nothing is known at first");
  known.append(link);
  require(crawler::isKnownPage(link, known.queue, media), "what was appended is known");
  if (link.ends_with('/')) {
    require(crawler::isKnownPage(link + "index.php5", known.queue, media), "a folder makes its index known");
  }
  if (link.starts_with("http://") && link.find("://", 7) == std::string::npos) {
    std::string lower = link;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (!lower.starts_with("http://www.")) {
      require(crawler::isKnownPage("http://www." + link.substr(7), known.queue, media),
              "a page makes its www form known");
    }
  }
  for (const std::string& page : known.all) {
    require(crawler::isKnownPage(page, known.queue, media), "known pages stay known");
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = fuzz::textOf(data, size);
  const std::string start = "http://" + std::string(fuzz::takeLine(rest));
  const std::string page = "http://" + std::string(fuzz::takeLine(rest));
  const std::string href(fuzz::takeLine(rest));
  KnownPages known;
  while (!rest.empty()) known.append(fuzz::takeLine(rest));

  const LinkBase base{crawler::siteBaseOf(start), crawler::pageBaseOf(page), page};
  require(start.starts_with(base.siteBaseURL) && base.siteBaseURL.ends_with('/'), "a base is a folder");
  require(page.starts_with(base.pageBaseURL), "a page lies in its base");
  require(crawler::isInternal(start, base.siteBaseURL), "a site holds its start");
  checkRebuilding(href, base);

  const std::string link = crawler::rebuildHREF(href, base);
  if (!link.starts_with("mailto:")) require(crawler::isInternal(link, link), "a link lies in itself");
  require(!crawler::isInternal("mailto:" + link, base.siteBaseURL), "mail leads out of every site");
  checkExtensions(link);
  checkFolderOfIndex(link, known);
  checkPath(link);
  checkKnown(crawler::withPath(link), known);
  return 0;
}
