#include "store/site_input.h"

#include <array>
#include <utility>

#include "platform/phrases.h"
#include "platform/regex.h"
#include "platform/text.h"
#include "platform/uri.h"

namespace store {

namespace {

using platform::Phrases;

constexpr std::array<std::string_view, 4> kForbiddenInNames = {"/", "\\", ".", "?"};

/// A URL that holds one of these is taken to name a page, so that no slash is added to it.
constexpr std::array<std::string_view, 14> kPageExtensions = {".aspx",  ".asp",  ".cfm",  ".html", ".htm",
                                                              ".jsp",   ".php",  ".phps", ".cfml", ".shtm",
                                                              ".shtml", ".php3", ".php4", ".php5"};

/// Each end is worn down at the other: a text with a blank at either end becomes empty and fails the blank
/// rule. The user shall notice such a blank, since the name is also a folder's name; cutting it off would
/// hide it.
std::string_view trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_suffix(1);
  while (!text.empty() && text.back() == ' ') text.remove_prefix(1);
  return text;
}

bool namesPage(std::string_view url) {
  const std::string folded = platform::foldCase(url);
  for (const std::string_view extension : kPageExtensions) {
    // Anywhere, not at the end alone: "index.php?page=2" names a page as well.
    if (folded.find(extension) != std::string::npos) return true;
  }
  return false;
}

/// A text that is no URI reference has no scheme, whatever it begins with.
std::string_view schemeOf(std::string_view url) {
  if (!platform::isUriReference(url)) return {};
  return platform::splitUri(url).scheme.value_or(std::string_view());
}

}  // namespace

CheckedText checkSiteName(std::string_view typed) {
  const std::string_view name = trimmed(typed);
  CheckedText checked{std::string(name), {}};
  if (name.empty()) checked.error = Phrases::tr("The site name field cannot be left blank.");
  for (const std::string_view forbidden : kForbiddenInNames) {
    // Once for each kind of character, so that the message tells how many there are to look for.
    if (name.find(forbidden) != std::string_view::npos) {
      checked.error += Phrases::tr("\nThe site name cannot contain the following characters: / \\ . or ?");
    }
  }
  return checked;
}

CheckedText checkSiteUrl(std::string_view typed) {
  std::string url(trimmed(typed));
  std::string error;
  if (url.empty()) error += Phrases::tr("\nThe site URL field cannot be left blank.");

  // Schemes are compared as written: "HTTP" counts as none, and the address gets a prefix that makes it fail
  // visibly.
  const std::string_view scheme = schemeOf(url);
  if (scheme == "ftp" || scheme == "ftps") {
    error += Phrases::tr("\nURLs must begin http:// or https://\nftp:// etc scans are not available.");
    url.clear();
  } else if (scheme != "http" && scheme != "https") {
    url.insert(0, "http://");
  }

  if (!url.ends_with('/') && !namesPage(url)) url += '/';
  url = platform::replaceText(url, " ", "%20");
  // The prefix stands twice when it was typed twice, or was added above to a URL that has it but is not well
  // formed.
  url = platform::replaceText(url, "http://http://", "http://");
  return {url, error};
}

SiteInput checkSiteInput(std::string_view typedName, std::string_view typedUrl) {
  CheckedText name = checkSiteName(typedName);
  CheckedText url = checkSiteUrl(typedUrl);
  return {std::move(name.text), std::move(url.text), name.error + url.error};
}

}  // namespace store
