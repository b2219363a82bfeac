// What the crawl needs of a page: its title and its links, as small values made in one pass over the markup.
#pragma once

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace crawler {

struct Anchor {
  std::optional<std::string> href;  // as written, entities decoded; nothing without the attribute
  std::string title;                // findLinkTitle(); empty when there is no href
};

struct PageContents {
  std::string title;            // findPageHTMLTitleElement(), never empty
  std::vector<Anchor> anchors;  // every anchor element in document order, also those that lead nowhere

  /// Roughly what it holds in memory.
  std::size_t bytes() const;
};

/// Reads a page's markup (valid UTF-8), however broken. A page made to exhaust its reader is read in part
/// (platform/markup.h), and so is one with more than a quarter of a million anchors. What that leaves depends
/// on the markup alone, unless a stop ends the reading.
PageContents readPageContents(std::string_view markup, std::stop_token stop = {});

}  // namespace crawler
