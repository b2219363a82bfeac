#include "crawler/browser_page.h"

#include <algorithm>
#include <optional>

#include "crawler/titles.h"
#include "platform/ascii.h"
#include "web/page_reader.h"

namespace crawler {

namespace {

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

/// Whether one of the words of a list between blanks or commas is `word`, in any case.
bool hasWord(std::string_view list, std::string_view word) {
  constexpr std::string_view kBetween = "\t\n\f\r ,";
  while (!list.empty()) {
    const std::size_t end = std::min(list.find_first_of(kBetween), list.size());
    if (platform::lowerAscii(list.substr(0, end)) == word) return true;
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return false;
}

/// The last part of an address that says something: "page.html" of "/a/page.html?x#y", "a" of "/a/".
std::string_view lastPart(std::string_view href) {
  const std::string_view whole = href;
  href = href.substr(0, href.find_first_of("?#"));
  while (href.ends_with('/')) href.remove_suffix(1);
  href.remove_prefix(href.rfind('/') + 1);  // behind none it begins at 0
  return href.empty() ? whole : href;
}

std::string nameOf(const web::AnchorElement& anchor) {
  const auto attribute = [](std::string_view attributes, std::string_view name) {
    return foldedName(web::attributeValue(attributes, name).value_or(""));
  };
  std::string name = foldedName(anchor.text);
  if (name.empty()) name = attribute(anchor.firstImage, "alt");
  if (name.empty()) name = attribute(anchor.firstImage, "title");
  if (name.empty()) name = attribute(anchor.attributes, "title");
  if (name.empty()) name = attribute(anchor.attributes, "aria-label");
  if (name.empty()) name = foldedName(lastPart(*anchor.href));
  return name.empty() ? std::string(findLinkTitle({})) : name;
}

bool wantsNoFollow(std::string_view attributes) {
  return hasWord(web::attributeValue(attributes, "rel").value_or(""), "nofollow");
}

class BrowserReader : public web::PageHandler {
 public:
  void anchor(web::AnchorElement&& element) override {
    if (!element.href) return;
    const std::string name = nameOf(element);
    anchors.add({.href = *element.href, .title = name, .isFollowed = !wantsNoFollow(element.attributes)});
  }

  void mark(web::PageMark mark, std::string_view attributes) override {
    switch (mark) {
      case web::PageMark::area:
        return area(attributes);
      case web::PageMark::base:
        if (!contents.base) contents.base = web::attributeValue(attributes, "href");
        return;
      case web::PageMark::frame:
        if (const auto source = web::attributeValue(attributes, "src"))
          anchors.add({.href = *source, .isListed = false});
        return;
      case web::PageMark::link:
        if (!contents.canonical &&
            hasWord(web::attributeValue(attributes, "rel").value_or(""), "canonical")) {
          contents.canonical = web::attributeValue(attributes, "href");
        }
        return;
      case web::PageMark::meta:
        return meta(attributes);
      case web::PageMark::image:
      case web::PageMark::script:
        return;
    }
  }

  PageContents contents;
  AnchorCollection anchors;
  RobotsWishes wishes;

 private:
  void area(std::string_view attributes) {
    web::AnchorElement element;
    element.href = web::attributeValue(attributes, "href");
    if (!element.href) return;
    element.text = web::attributeValue(attributes, "alt").value_or("");
    element.attributes = attributes;
    anchor(std::move(element));
  }

  void meta(std::string_view attributes) {
    if (platform::lowerAscii(platform::trimmed(web::attributeValue(attributes, "name").value_or(""))) !=
        "robots")
      return;
    const RobotsWishes found = robotsWishes(web::attributeValue(attributes, "content").value_or(""));
    wishes = {wishes.noIndex || found.noIndex, wishes.noFollow || found.noFollow};
  }
};

}  // namespace

PageContents readBrowserPage(std::string_view markup) {
  BrowserReader reader;
  const std::string title = foldedName(web::readPage(markup, reader).value_or(""));
  reader.contents.title = findPageHTMLTitleElement(title);
  reader.anchors.moveTo(reader.contents);
  applyWishes(reader.wishes, reader.contents);
  return std::move(reader.contents);
}

RobotsWishes robotsWishes(std::string_view text) {
  if (const std::size_t colon = text.find(':'); colon != std::string_view::npos) {
    // "unavailable_after: ..." has a colon of its own, and wishes nothing of what counts here.
    text = text.substr(0, text.rfind(',', colon) == std::string_view::npos ? 0 : text.rfind(',', colon));
  }
  const bool none = hasWord(text, "none");
  return {none || hasWord(text, "noindex"), none || hasWord(text, "nofollow")};
}

void applyWishes(const RobotsWishes& wishes, PageContents& contents) {
  if (wishes.noIndex) contents.isIndexed = false;
  if (!wishes.noFollow) return;
  for (Anchor& anchor : contents.anchors) anchor.isFollowed = false;
}

std::string foldedName(std::string_view text) {
  std::string name;
  bool blank = false;
  while (!text.empty()) {
    const bool noBreak = text.starts_with(kNoBreakSpace);
    if (noBreak || platform::kBlanks.find(text.front()) != std::string_view::npos) {
      blank = !name.empty();
      text.remove_prefix(noBreak ? kNoBreakSpace.size() : 1);
      continue;
    }
    if (blank) name += ' ';
    blank = false;
    name += text.front();
    text.remove_prefix(1);
  }
  return name;
}

}  // namespace crawler
