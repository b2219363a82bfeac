// What the crawl needs of a page: its title and its links, as small values made in one pass over the markup.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace crawler {

/// Views into its page's contents.
struct Anchor {
  std::optional<std::string_view> href;  // as written, references decoded; nothing without the attribute
  std::string_view title;                // findLinkTitle(); empty when there is no href
};

/// Moved, never copied. All texts of the anchors lie in one piece: a page is read by one thread and dropped by
/// another, and thousands of small ones would keep both waiting for the memory's lock.
struct PageContents {
  std::string title = {};            // findPageHTMLTitleElement(), never empty
  std::vector<Anchor> anchors = {};  // every anchor element in document order, also those that lead nowhere
  std::unique_ptr<const char[]> text = {};
  std::size_t textBytes = 0;

  /// Roughly what it holds in memory.
  std::size_t bytes() const;
};

/// Reads a page's markup (UTF-8), however broken, by the rules of web/page_reader.h. Of a page with more than
/// a quarter of a million anchors the first ones come back.
PageContents readPageContents(std::string_view markup);

}  // namespace crawler
