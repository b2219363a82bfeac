// A page's title and anchors, read from its tokens without a tree.
//
// Beyond the tokens these are the rules, by which pages come out as browsers show them:
//  - What script, style, title, textarea, xmp, iframe, noembed and plaintext hold is text. noscript and
//    noframes hold markup, as whole sites consist of frames. A line feed right behind the start tag of pre,
//    listing and textarea is not there.
//  - Within svg and math a tag that ends with "/>" is a whole element, "<![CDATA[" begins a section, and the
//    elements named above hold markup. An element that only HTML has ends them. HTML begins anew in
//    foreignObject, desc and title, in mi, mo, mn, ms and mtext, and in an annotation that says that it holds
//    HTML.
//  - template is no part of the page.
//  - The title is the first title element outside of svg and math, or else the first one in svg.
//  - An anchor ends at its end tag, at the next anchor, where the table cell, caption, object, applet,
//    marquee, button, svg or math ends that it began in, at the end tag of any other element around it,
//    and at the end of the page. An end tag in a table, cell or object within the anchor is not its own.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace web {

/// What is an anchor's first child node?
enum class FirstChild { none, image, other };

/// An anchor element as its page holds it: references decoded, nothing trimmed.
struct AnchorElement {
  std::optional<std::string> href = std::nullopt;  // nothing without the attribute
  std::string text = {};                           // of the anchor and all elements in it
  std::string name = {};                           // the attribute, empty without it
  FirstChild firstChild = FirstChild::none;
  /// The first child's start tag, if it is an image and there is neither text nor name: written back with all
  /// values in quotes, double ones if possible, and "&" in them as "&amp;". "<" and ">" stay as they are.
  /// Empty for a tag of more than 4 MB.
  std::string imageMarkup = {};
  // As written, for attributeValue(); views into the markup.
  std::string_view attributes = {};
  std::string_view firstImage = {};  // the attributes of the first image in it, wherever that stands
};

/// What else of a page leads elsewhere, or tells of the page, by its start tag alone.
enum class PageMark { area, base, frame, image, link, meta, script };  // frame: also iframe

class PageHandler {
 public:
  virtual ~PageHandler() = default;

  /// Told of each anchor, in the order of the page, also of those that lead nowhere.
  virtual void anchor(AnchorElement&& anchor) = 0;

  /// Told of each such element outside of svg and math, in the order of the page; an anchor around it comes
  /// later. `attributes` as written, for attributeValue().
  virtual void mark(PageMark, std::string_view /*attributes*/) {}
};

/// The value of the first attribute of this name (in lower case), references decoded; nothing without one.
std::optional<std::string> attributeValue(std::string_view attributes, std::string_view name);

/// Reads a page's markup (UTF-8), however broken. Returns the title's text, not trimmed; nothing without a
/// title. Takes time in proportion to the markup, and memory for one anchor and the title.
std::optional<std::string> readPage(std::string_view markup, PageHandler& handler);

}  // namespace web
