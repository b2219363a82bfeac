// From an href to a page of the site. Input: the start address, the address of the page in hand, the href,
// then the known pages, one a line.
#include <string>

#include "crawler/simple_link_rules.h"
#include "fuzz_target.h"
#include "platform/uri.h"

namespace {

using crawler::LinkBase;
using fuzz::require;

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

void checkPath(const std::string& link) {
  const std::string whole = crawler::withPath(link);
  require(whole == link || whole == link + "/", "a path is added at the end or not at all");
  if (link.find_first_of("?#") == std::string::npos) {
    require(crawler::withPath(whole) == whole, "a link with a path gets none");
  }
}

void checkKnown(const std::string& link, crawler::PageQueue& known) {
  const auto media = crawler::pageExtensions();
  if (known.size() == 0) require(!crawler::findPage(link, known, media).has_value(), "nothing is known at first");
  known.append(link);
  for (std::size_t i = 0; i < known.size(); ++i) {
    require(crawler::findPage(std::string(known[i]), known, media).has_value(), "what was appended is known");
  }
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string start = "http://" + std::string(fuzz::takeLine(rest));
  const std::string page = "http://" + std::string(fuzz::takeLine(rest));
  const std::string href(fuzz::takeLine(rest));
  crawler::PageQueue known;
  while (!rest.empty()) known.append(fuzz::takeLine(rest));

  const LinkBase base{crawler::siteBaseOf(start), crawler::pageBaseOf(page), page};
  require(start.starts_with(base.siteBaseURL) && base.siteBaseURL.ends_with('/'), "a base is a folder");
  require(page.starts_with(base.pageBaseURL), "a page lies in its base");
  require(crawler::isInternal(start, base.siteBaseURL), "a site holds its start");
  checkRebuilding(href, base);

  const std::string link = crawler::rebuildHREF(href, base);
  if (!link.starts_with("mailto:")) require(crawler::isInternal(link, link), "a link lies in itself");
  require(!crawler::isInternal("mailto:" + link, base.siteBaseURL), "mail leads out of every site");
  checkPath(link);
  checkKnown(crawler::withPath(link), known);
}
