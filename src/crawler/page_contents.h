// What the crawl needs of a page: its title and its links, as small values made in one pass over the markup.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {
struct Encoding;
}

namespace crawler {

/// A link on a page. Views into its page's contents.
struct Anchor {
  std::optional<std::string_view> href = {};  // as written, references decoded; nothing without the attribute
  std::string_view title = {};                // its name in the documents; empty when there is no href
  bool isListed = true;                       // false for a frame: what it shows belongs to its page
  bool isFollowed = true;                     // false where its page wishes so
};

/// Moved, never copied. All texts of the anchors lie in one piece: a page is read by one thread and dropped
/// by another, and thousands of small ones would keep both waiting for the memory's lock.
struct PageContents {
  std::string title = {};            // findPageHTMLTitleElement(), never empty
  std::vector<Anchor> anchors = {};  // every link element in document order, also those that lead nowhere

  // Where the rules for the site ask for it:
  const platform::Encoding* encoding = nullptr;  // that the page is written in; null: UTF-8
  std::optional<std::string> base = {};          // what its links are relative to, as written
  std::optional<std::string> canonical = {};     // where it says that it stands, as written
  bool isIndexed = true;                         // false where it wishes to be left out

  std::unique_ptr<const char[]> text = {};
  std::size_t textBytes = 0;

  /// Roughly what it holds in memory.
  std::size_t bytes() const;
};

/// Collects the anchors of a page, whose texts may go behind add().
class AnchorCollection {
 public:
  AnchorCollection() { m_places.reserve(32); }  // as many as most pages have

  /// Of more than a quarter of a million the first ones are kept.
  void add(const Anchor& anchor);
  /// Once, at the end.
  void moveTo(PageContents& contents);

 private:
  /// Where an anchor's address lies in the text. Its title follows, as far as the next anchor.
  struct Place {
    std::size_t begin;
    std::size_t hrefEnd;
    bool hasHref;
    bool isListed;
    bool isFollowed;
  };

  std::vector<Place> m_places;
  std::string m_text;
};

/// Reads a page's markup (UTF-8), however broken, by the rules of web/page_reader.h. Of a page with more than
/// a quarter of a million anchors the first ones come back.
PageContents readPageContents(std::string_view markup);

}  // namespace crawler
