#include "crawler/titles.h"

#include <initializer_list>

#include "platform/regex.h"
#include "platform/text.h"

namespace crawler {

namespace {

using platform::Regex;

/// The first pattern's non-empty capture, else `otherwise`.
std::string_view firstCapture(std::string_view markup, std::initializer_list<const Regex*> patterns,
                              std::string_view otherwise) {
  for (const Regex* pattern : patterns) {
    const auto match = pattern->find(markup);
    if (match && !match->groups[0].empty()) return match->groups[0];
  }
  return otherwise;
}

/// An image's name; empty when it has neither attribute. An alternative text that is there but empty means
/// that the author wants no name, so the title is not looked at then. The markup is searched as a whole:
/// "data-alt=" counts.
std::string_view imageName(std::string_view markup) {
  static const Regex kAltDouble("alt=\"(.*?)\""), kAltSingle("alt='(.*?)'");
  static const Regex kTitleDouble("title=\"(.*?)\""), kTitleSingle("title='(.*?)'");
  // A value without quotes gives no name: the markup written back always has them.
  const std::string folded = platform::foldCase(markup);
  if (folded.find("alt=") != std::string::npos) {
    return firstCapture(markup, {&kAltDouble, &kAltSingle}, "Image Link With No Alt Tag");
  }
  if (folded.find("title=") != std::string::npos) {
    return firstCapture(markup, {&kTitleDouble, &kTitleSingle}, "Image Link With No Title or Alt Tags");
  }
  return {};
}

}  // namespace

std::string_view findHREFInNode(const web::AnchorElement& anchor) {
  return *anchor.href;
}

std::string_view findLinkTitle(const web::AnchorElement& anchor) {
  if (!anchor.text.empty()) return anchor.text;
  if (!anchor.name.empty()) return anchor.name;
  if (anchor.firstChild != web::FirstChild::image) return "No Link Name Found";
  const std::string_view name = imageName(anchor.imageMarkup);
  return name.empty() ? "Could not find link title" : name;
}

std::string findPageHTMLTitleElement(const std::optional<std::string>& titleText) {
  return titleText.value_or("").empty() ? std::string(kNoPageTitle) : *titleText;
}

bool isDirectoryListing(std::string_view title) {
  return title.starts_with("Index of /");
}

}  // namespace crawler
