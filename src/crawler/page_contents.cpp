#include "crawler/page_contents.h"

#include <memory>
#include <utility>

#include "crawler/titles.h"
#include "web/page_reader.h"

namespace crawler {

namespace {

/// Three letters make an anchor, which takes many times that in memory. Further ones are passed over.
constexpr std::size_t kMaxAnchors = 1u << 18;

class SimpleReader : public web::PageHandler {
 public:
  void anchor(web::AnchorElement&& element) override {
    anchors.add(element.href ? Anchor{.href = findHREFInNode(element), .title = findLinkTitle(element)}
                             : Anchor{});
  }

  AnchorCollection anchors;
};

}  // namespace

void AnchorCollection::add(const Anchor& anchor) {
  if (m_places.size() >= kMaxAnchors) return;
  const std::size_t begin = m_text.size();
  m_text += anchor.href.value_or("");
  m_places.push_back({begin, m_text.size(), anchor.href.has_value(), anchor.isListed, anchor.isFollowed});
  m_text += anchor.title;
}

void AnchorCollection::moveTo(PageContents& contents) {
  auto text = std::make_unique_for_overwrite<char[]>(m_text.size());
  m_text.copy(text.get(), m_text.size());
  const std::string_view all(text.get(), m_text.size());
  contents.anchors.reserve(m_places.size());
  for (std::size_t i = 0; i < m_places.size(); ++i) {
    const Place& place = m_places[i];
    const std::size_t end = i + 1 < m_places.size() ? m_places[i + 1].begin : all.size();
    Anchor& anchor = contents.anchors.emplace_back();
    if (place.hasHref) anchor.href = all.substr(place.begin, place.hrefEnd - place.begin);
    anchor.title = all.substr(place.hrefEnd, end - place.hrefEnd);
    anchor.isListed = place.isListed;
    anchor.isFollowed = place.isFollowed;
  }
  contents.text = std::move(text);
  contents.textBytes = all.size();
}

std::size_t PageContents::bytes() const {
  return title.capacity() + anchors.capacity() * sizeof(Anchor) + textBytes;
}

PageContents readPageContents(std::string_view markup) {
  SimpleReader reader;
  PageContents contents;
  contents.title = findPageHTMLTitleElement(web::readPage(markup, reader));
  reader.anchors.moveTo(contents);
  return contents;
}

}  // namespace crawler
