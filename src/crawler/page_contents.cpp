#include "crawler/page_contents.h"

#include <memory>
#include <utility>

#include "crawler/titles.h"
#include "web/page_reader.h"

namespace crawler {

namespace {

/// Three letters make an anchor, which takes many times that in memory. Further ones are passed over.
constexpr std::size_t kMaxAnchors = 1u << 18;

class AnchorCollector : public web::PageHandler {
 public:
  AnchorCollector() { m_anchors.reserve(32); }  // as many as most pages have

  void anchor(web::AnchorElement&& element) override {
    if (m_anchors.size() >= kMaxAnchors) return;
    Place& place = m_anchors.emplace_back();
    place.begin = m_text.size();
    place.hasHref = element.href.has_value();
    if (!place.hasHref) return;
    m_text += findHREFInNode(element);
    place.hrefEnd = m_text.size();
    m_text += findLinkTitle(element);
  }

  PageContents contents(const std::optional<std::string>& title) const {
    PageContents contents;
    contents.title = findPageHTMLTitleElement(title);
    auto text = std::make_unique_for_overwrite<char[]>(m_text.size());
    m_text.copy(text.get(), m_text.size());
    const std::string_view all(text.get(), m_text.size());
    contents.anchors.reserve(m_anchors.size());
    for (std::size_t i = 0; i < m_anchors.size(); ++i) {
      const Place& place = m_anchors[i];
      Anchor& anchor = contents.anchors.emplace_back();
      if (!place.hasHref) continue;
      const std::size_t end = i + 1 < m_anchors.size() ? m_anchors[i + 1].begin : all.size();
      anchor.href = all.substr(place.begin, place.hrefEnd - place.begin);
      anchor.title = all.substr(place.hrefEnd, end - place.hrefEnd);
    }
    contents.text = std::move(text);
    contents.textBytes = all.size();
    return contents;
  }

 private:
  /// Where an anchor's address lies in the text. Its title follows, as far as the next anchor.
  struct Place {
    std::size_t begin;
    std::size_t hrefEnd;
    bool hasHref;
  };

  std::vector<Place> m_anchors;
  std::string m_text;
};

}  // namespace

std::size_t PageContents::bytes() const {
  return title.capacity() + anchors.capacity() * sizeof(Anchor) + textBytes;
}

PageContents readPageContents(std::string_view markup) {
  AnchorCollector collector;
  const std::optional<std::string> title = web::readPage(markup, collector);
  return collector.contents(title);
}

}  // namespace crawler
