#include "crawler/simple_link_rules.h"

#include <algorithm>
#include <array>

#include "crawler/known_endings.h"
#include "platform/regex.h"
#include "platform/text.h"
#include "platform/uri.h"

namespace crawler {

namespace {

constexpr std::array<std::string_view, 14> kPageExtensions = {".php5", ".php4", ".php3", ".shtml", ".shtm",
                                                              ".cfml", ".phps", ".php",  ".jsp",   ".htm",
                                                              ".html", ".cfm",  ".asp",  ".aspx"};

constexpr std::string_view kMailto = "mailto:";
constexpr std::string_view kMailScheme = "mailto";
constexpr std::string_view kWww = "www.";

/// `text` cut back from its end until it ends with "/" or is empty.
std::string_view cutBackToSlash(std::string_view text) {
  const std::size_t slash = text.rfind('/');
  return slash == std::string_view::npos ? std::string_view{} : text.substr(0, slash + 1);
}

bool namesFile(std::string_view url) {
  return platform::splitUri(url).path.find('.') != std::string_view::npos;
}

/// Up one folder: at least one character goes, then all up to the "/" before it.
std::string_view parentOf(std::string_view folder) {
  return folder.empty() ? folder : cutBackToSlash(folder.substr(0, folder.size() - 1));
}

/// A link as the texts it is made of, so that its length is known before it is put together.
struct LinkPieces {
  std::array<std::string_view, 4> pieces;

  std::size_t size() const {
    std::size_t bytes = 0;
    for (const std::string_view piece : pieces) bytes += piece.size();
    return bytes;
  }

  std::string joined() const {
    std::string link;
    link.reserve(size());
    for (const std::string_view piece : pieces) link.append(piece);
    return link;
  }
};

LinkPieces climb(std::string_view href, std::string_view folder) {
  constexpr std::string_view kUp = "../";
  while (href.starts_with(kUp)) {
    href.remove_prefix(kUp.size());
    folder = parentOf(folder);
  }
  return {folder, href};
}

/// What a link from the root starts with; empty for a page without a host. The port is not carried over: such
/// a link means the site at its standard address.
std::string rootOf(std::string_view pageUrl) {
  const platform::UriParts page = platform::splitUri(pageUrl);
  if (!page.scheme || page.host().empty()) return {};
  return LinkPieces{*page.scheme, "://", page.host()}.joined();
}

LinkPieces piecesOf(std::string_view href, const LinkBase& base, std::string_view root) {
  if (href == base.siteBaseURL) return {href};
  switch (href.empty() ? '\0' : href.front()) {
    case 'h':
      if (href.starts_with("http")) return {href};
      break;
    case 'f':
      if (href.starts_with("ftp")) return {href};
      break;
    case 'm':
      if (href.starts_with(kMailto)) return href == kMailto ? LinkPieces{} : LinkPieces{href};
      break;
    case '#':
      return {base.pageBaseURLUnchanged};
    case '.':
      if (href.starts_with("../")) {
        const LinkPieces link = climb(href, base.pageBaseURL);
        return link.size() == 0 ? LinkPieces{base.siteBaseURL} : link;
      }
      // "./" is taken for a link to the folder itself, whatever follows.
      if (href.starts_with("./")) return {base.pageBaseURL};
      break;
    case '/':
      return root.empty() ? LinkPieces{base.siteBaseURL} : LinkPieces{root, href};
    default:
      break;
  }
  return {base.pageBaseURL, href};
}

bool isMail(const SplitLink& link) {
  return link.parts.scheme == kMailScheme;
}

/// What the site test compares: no scheme with its "://", no leading "www.", no trailing "/".
std::string_view comparablePart(const SplitLink& link) {
  std::string_view url = link.text;
  const std::size_t scheme = link.parts.scheme.value_or("").size();
  url.remove_prefix(std::min(scheme + 3, url.size()));
  if (url.starts_with(kWww)) url.remove_prefix(kWww.size());
  if (url.ends_with('/')) url.remove_suffix(1);
  return url;
}

bool liesBelow(const SplitLink& link, std::string_view comparableBase) {
  return !isMail(link) && comparablePart(link).starts_with(comparableBase);
}

/// Why a link lies outside of a site that says so by its text.
LinkReason reasonOutside(const SplitLink& link, const SiteBounds& bounds) {
  const LinkReason reason = bounds.judge(link.parts);
  if (reason == LinkReason::otherPort && link.parts.port().empty()) return LinkReason::withoutPort;
  return reason == LinkReason::none ? LinkReason::aboveStart : reason;
}

/// Whether "://www." stands in the link in any case.
bool namesWww(std::string_view link) {
  constexpr std::string_view kMark = "://www.";
  const auto sameLetter = [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
  };
  return std::search(link.begin(), link.end(), kMark.begin(), kMark.end(), sameLetter) != link.end();
}

std::optional<std::size_t> findWwwForm(std::string_view link, const PageQueue& known) {
  if (namesWww(link)) return known.find(platform::replaceText(link, "://www.", "://"));
  const std::size_t mark = link.find("://");
  if (mark == std::string_view::npos) return known.find(link);
  if (link.find("://", mark + 3) == std::string_view::npos) {
    return known.find(link.substr(0, mark + 3), kWww, link.substr(mark + 3));
  }
  return known.find(platform::replaceText(link, "://", "://www."));
}

std::optional<std::size_t> findFolderForm(std::string_view link, const PageQueue& known, AllowedMedia media) {
  constexpr std::string_view kIndex = "index";
  for (const std::string_view extension : media) {
    if (!link.ends_with(extension)) continue;
    const std::string_view stem = link.substr(0, link.size() - extension.size());
    if (stem.ends_with(kIndex)) return known.find(stem.substr(0, stem.size() - kIndex.size()));
  }
  return {};
}

std::vector<std::string> joined(std::vector<std::string> first, const std::vector<std::string>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace

AllowedMedia pageExtensions() {
  return kPageExtensions;
}

std::string siteBaseOf(std::string_view startUrl) {
  return std::string(cutBackToSlash(startUrl));
}

std::string pageBaseOf(std::string_view pageUrl) {
  return std::string(namesFile(pageUrl) ? cutBackToSlash(pageUrl) : pageUrl);
}

std::string rebuildHREF(std::string_view href, const LinkBase& base) {
  return piecesOf(href, base, rootOf(base.pageBaseURL)).joined();
}

bool hasForeignExtension(const SplitLink& link, AllowedMedia media) {
  if (isMail(link)) return false;
  const std::size_t dot = link.parts.path.find('.');
  if (link.parts.query || dot == std::string_view::npos) return false;
  return std::find(media.begin(), media.end(), link.parts.path.substr(dot)) == media.end();
}

bool isFolderOfKnownIndex(const SplitLink& link, const PageQueue& known, AllowedMedia media) {
  if (isMail(link)) return false;
  if (link.parts.query || link.parts.path.find('.') != std::string_view::npos) return false;
  const std::string_view index = link.text.ends_with('/') ? "index" : "/index";
  return known.containsAny(link.text, index, media);
}

std::string withPath(std::string link) {
  if (platform::splitUri(link).path.empty()) link += '/';
  return link;
}

bool isInternal(const SplitLink& link, const SplitLink& siteBaseURL) {
  return liesBelow(link, comparablePart(siteBaseURL));
}

std::optional<std::size_t> findPage(std::string_view link, const PageQueue& known, AllowedMedia media) {
  if (const auto page = known.find(link)) return page;
  if (const auto page = findFolderForm(link, known, media)) return page;
  return findWwwForm(link, known);
}

SimpleLinkRules::SimpleLinkRules(std::string_view startUrl, const std::vector<std::string>& filters,
                                 const std::vector<std::string>& robotsRules, std::size_t maxBytes)
    : m_bounds(startUrl),
      m_base{.siteBaseURL = siteBaseOf(startUrl), .pageBaseURL = {}, .pageBaseURLUnchanged = {}},
      m_comparableBase(comparablePart(m_base.siteBaseURL)),
      m_filterCount(filters.size()),
      m_robotsRules(robotsRules),
      m_exclusions(joined(filters, robotsRules)),
      m_maxBytes(maxBytes) {}

JudgedPage SimpleLinkRules::judgePage(std::string_view url, const FetchedPage& page, const PageQueue&) {
  return {.address = std::string(url),
          .use = page.isGood() ? JudgedPage::Use::listed : JudgedPage::Use::broken};
}

void SimpleLinkRules::enterPage(std::string_view url, const PageContents&) {
  m_base.pageBaseURLUnchanged = url;
  m_base.pageBaseURL = pageBaseOf(url);
  m_pageRoot = rootOf(m_base.pageBaseURL);
}

std::optional<std::string> SimpleLinkRules::makeAbsolute(std::string_view href) const {
  const LinkPieces link = piecesOf(href, m_base, m_pageRoot);
  if (link.size() > m_maxBytes) return {};
  return link.joined();
}

JudgedLink SimpleLinkRules::judge(std::string link, const PageQueue& known) const {
  const auto judged = [&](LinkReason reason, std::size_t which = 0) {
    return JudgedLink{std::move(link), reason, which};
  };
  if (link.empty()) return judged(LinkReason::empty);
  const SplitLink split(link);
  if (hasForeignExtension(split, m_allowedMedia)) {
    return judged(hasKnownOtherEnding(split.parts.path) ? LinkReason::otherType
                                                        : LinkReason::foreignExtension);
  }
  if (isFolderOfKnownIndex(split, known, m_allowedMedia)) return judged(LinkReason::folderOfKnownIndex);
  if (const auto which = m_exclusions.find(link)) {
    return *which < m_filterCount ? judged(LinkReason::filter, *which)
                                  : judged(LinkReason::robots, *which - m_filterCount);
  }
  const bool hasPath = !split.parts.path.empty();
  if (!hasPath) link = withPath(std::move(link));
  const bool isInside = liesBelow(hasPath ? split : SplitLink(link), m_comparableBase);
  return judged(isInside ? LinkReason::none : reasonOutside(link, m_bounds));
}

std::optional<std::size_t> SimpleLinkRules::findPage(std::string_view link, const PageQueue& known) const {
  return crawler::findPage(link, known, m_allowedMedia);
}

}  // namespace crawler
