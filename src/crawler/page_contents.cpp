#include "crawler/page_contents.h"

#include <utility>

#include "crawler/titles.h"
#include "web/page_reader.h"

namespace crawler {

namespace {

/// Three letters make an anchor, which takes many times that in memory. Further ones are passed over.
constexpr std::size_t kMaxAnchors = 1u << 18;

class AnchorCollector : public web::PageHandler {
 public:
  AnchorCollector() { anchors.reserve(32); }  // as many as most pages have

  void anchor(web::AnchorElement&& element) override {
    if (anchors.size() >= kMaxAnchors) return;
    Anchor& anchor = anchors.emplace_back();
    if (element.href) anchor.title = findLinkTitle(element);
    anchor.href = findHREFInNode(std::move(element));
  }

  std::vector<Anchor> anchors;
};

}  // namespace

std::size_t PageContents::bytes() const {
  std::size_t sum = title.capacity() + anchors.capacity() * sizeof(Anchor);
  for (const Anchor& anchor : anchors) {
    sum += anchor.title.capacity() + (anchor.href ? anchor.href->capacity() : 0);
  }
  return sum;
}

PageContents readPageContents(std::string_view markup) {
  AnchorCollector collector;
  const std::optional<std::string> title = web::readPage(markup, collector);
  return {findPageHTMLTitleElement(title), std::move(collector.anchors)};
}

}  // namespace crawler
