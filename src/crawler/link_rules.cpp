#include "crawler/link_rules.h"

#include <algorithm>
#include <array>

#include "platform/regex.h"
#include "platform/text.h"
#include "platform/uri.h"

namespace crawler {

namespace {

constexpr std::array<std::string_view, 14> kPageExtensions = {".php5", ".php4", ".php3", ".shtml", ".shtm",
                                                              ".cfml", ".phps", ".php",  ".jsp",   ".htm",
                                                              ".html", ".cfm",  ".asp",  ".aspx"};

constexpr std::string_view kMailto = "mailto:";
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

std::string climb(std::string_view href, std::string_view folder) {
  constexpr std::string_view kUp = "../";
  while (href.starts_with(kUp)) {
    href.remove_prefix(kUp.size());
    folder = parentOf(folder);
  }
  return std::string(folder).append(href);
}

/// The port is not carried over: a link from the root means the site at its standard address.
std::string fromRoot(std::string_view href, const LinkBase& base) {
  const platform::UriParts page = platform::splitUri(base.pageBaseURL);
  if (!page.scheme || page.host().empty()) return base.siteBaseURL;
  std::string link(*page.scheme);
  link.append("://").append(page.host()).append(href);
  return link;
}

/// What the site test compares: no scheme with its "://", no leading "www.", no trailing "/".
std::string_view comparablePart(std::string_view url) {
  const std::size_t scheme = platform::splitUri(url).scheme.value_or("").size();
  url.remove_prefix(std::min(scheme + 3, url.size()));
  if (url.starts_with(kWww)) url.remove_prefix(kWww.size());
  if (url.ends_with('/')) url.remove_suffix(1);
  return url;
}

/// Whether "://www." stands in the link in any case.
bool namesWww(std::string_view link) {
  constexpr std::string_view kMark = "://www.";
  const auto sameLetter = [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
  };
  return std::search(link.begin(), link.end(), kMark.begin(), kMark.end(), sameLetter) != link.end();
}

bool isWwwFormKnown(std::string_view link, const PageQueue& known) {
  if (namesWww(link)) return known.contains(platform::replaceText(link, "://www.", "://"));
  const std::size_t mark = link.find("://");
  if (mark == std::string_view::npos) return known.contains(link);
  if (link.find("://", mark + 3) == std::string_view::npos) {
    return known.contains(link.substr(0, mark + 3), kWww, link.substr(mark + 3));
  }
  return known.contains(platform::replaceText(link, "://", "://www."));
}

bool isFolderFormKnown(std::string_view link, const PageQueue& known, AllowedMedia media) {
  constexpr std::string_view kIndex = "index";
  for (const std::string_view extension : media) {
    if (!link.ends_with(extension)) continue;
    const std::string_view stem = link.substr(0, link.size() - extension.size());
    if (stem.ends_with(kIndex)) return known.contains(stem.substr(0, stem.size() - kIndex.size()));
  }
  return false;
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
  if (href == base.siteBaseURL || href.starts_with("http") || href.starts_with("ftp")) {
    return std::string(href);
  }
  if (href.starts_with(kMailto)) return href == kMailto ? std::string() : std::string(href);
  if (href.starts_with('#')) return base.pageBaseURLUnchanged;
  if (href.starts_with("../")) {
    std::string link = climb(href, base.pageBaseURL);
    return link.empty() ? base.siteBaseURL : link;
  }
  // "./" is taken for a link to the folder itself, whatever follows.
  if (href.starts_with("./")) return base.pageBaseURL;
  if (href.starts_with('/')) return fromRoot(href, base);
  return std::string(base.pageBaseURL).append(href);
}

bool hasForeignExtension(std::string_view link, AllowedMedia media) {
  if (link.starts_with(kMailto)) return false;
  const platform::UriParts parts = platform::splitUri(link);
  const std::size_t dot = parts.path.find('.');
  if (parts.query || dot == std::string_view::npos) return false;
  return std::find(media.begin(), media.end(), parts.path.substr(dot)) == media.end();
}

bool isFolderOfKnownIndex(std::string_view link, const PageQueue& known, AllowedMedia media) {
  if (link.starts_with(kMailto)) return false;
  const platform::UriParts parts = platform::splitUri(link);
  if (parts.query || parts.path.find('.') != std::string_view::npos) return false;
  const std::string_view index = link.ends_with('/') ? "index" : "/index";
  return known.containsAny(link, index, media);
}

std::string withPath(std::string link) {
  if (platform::splitUri(link).path.empty()) link += '/';
  return link;
}

bool isInternal(std::string_view link, std::string_view siteBaseURL) {
  if (link.starts_with(kMailto)) return false;
  return comparablePart(link).starts_with(comparablePart(siteBaseURL));
}

bool isKnownPage(std::string_view link, const PageQueue& known, AllowedMedia media) {
  return known.contains(link) || isFolderFormKnown(link, known, media) || isWwwFormKnown(link, known);
}

bool looksLikeLoop(std::string_view url) {
  return std::count(url.begin(), url.end(), '?') > 3;
}

}  // namespace crawler
