#include "crawler/page_contents.h"

#include <utility>

#include "crawler/titles.h"
#include "platform/markup.h"

namespace crawler {

namespace {

// A page may try to fill the memory. Several are held at the same time, so none may grow far beyond its
// markup.

/// Anchors may nest in broken markup, and the text of an inner one belongs to the outer ones too. Beyond this
/// much text in all, further anchors count as without text.
constexpr std::size_t kMaxCollectedText = 16u << 20;

/// Three letters make an anchor, which takes many times that in memory. Further ones are passed over.
constexpr std::size_t kMaxAnchors = 1u << 18;

/// An image's name is looked for in its markup, which takes several copies. One beyond this size has no name.
constexpr std::size_t kMaxImageMarkup = 4u << 20;

std::size_t sizeOf(const std::vector<platform::MarkupAttribute>& attributes) {
  std::size_t sum = 0;
  for (const platform::MarkupAttribute& attribute : attributes) {
    sum += attribute.name.size() + attribute.value.size();
  }
  return sum;
}

/// Markup of other languages within a page has prefixed names ("svg:a"). Its links are links too, as they are
/// for a reader of the page's tree, where the prefix is no part of the name.
std::string_view withoutPrefix(std::string_view name) {
  const std::size_t colon = name.find(':');
  return colon == 0 || colon == std::string_view::npos ? name : name.substr(colon + 1);
}

class ContentsCollector : public platform::MarkupHandler {
 public:
  void startElement(std::string_view qualifiedName,
                    const std::vector<platform::MarkupAttribute>& attributes) override {
    const std::string_view name = withoutPrefix(qualifiedName);
    noteFirstChild(name, attributes);
    ++m_depth;
    if (name == "a") {
      openAnchor(attributes);
    } else if (name == "title" && m_titleDepth == 0 && !m_title) {
      m_titleDepth = m_depth;
      m_title.emplace();
    }
  }

  void endElement(std::string_view name) override {
    if (withoutPrefix(name) == "a") endAnchor();
    if (m_depth == m_titleDepth) m_titleDepth = 0;
    --m_depth;
  }

  void text(std::string_view piece) override {
    m_awaitsFirstChild = settleFirstChild(FirstChild::other);
    if (m_titleDepth != 0) m_title->append(piece);
    if (!m_open.empty()) m_text.append(piece);
  }

  void otherNode() override { m_awaitsFirstChild = settleFirstChild(FirstChild::other); }

  PageContents take() {
    while (!m_open.empty()) closeAnchor();
    return {findPageHTMLTitleElement(m_title), std::move(m_anchors)};
  }

 private:
  /// An anchor whose end has not come yet.
  struct OpenAnchor {
    std::size_t index;      // in m_anchors
    std::size_t textStart;  // in m_text
    AnchorElement element;
  };

  void openAnchor(const std::vector<platform::MarkupAttribute>& attributes) {
    if (m_anchors.size() >= kMaxAnchors) {
      ++m_openPassedOver;
      return;
    }
    OpenAnchor anchor{m_anchors.size(), m_text.size(), {}};
    for (const platform::MarkupAttribute& attribute : attributes) {
      if (attribute.name == "href") anchor.element.href = attribute.value;
      if (attribute.name == "name") anchor.element.name = attribute.value;
    }
    m_anchors.emplace_back();
    m_open.push_back(std::move(anchor));
    m_awaitsFirstChild = true;
  }

  void endAnchor() {
    // Those passed over came last of all, so they are the inner ones.
    if (m_openPassedOver > 0) {
      --m_openPassedOver;
    } else if (!m_open.empty()) {
      closeAnchor();
    }
  }

  void closeAnchor() {
    AnchorElement& element = m_open.back().element;
    Anchor& anchor = m_anchors[m_open.back().index];
    anchor.href = findHREFInNode(element);
    if (anchor.href) {
      const std::size_t length = m_text.size() - m_open.back().textStart;
      m_collected += length;
      if (m_collected <= kMaxCollectedText) element.text = m_text.substr(m_open.back().textStart);
      anchor.title = findLinkTitle(element);
    }
    m_open.pop_back();
    if (m_open.empty()) m_text.clear();
    m_awaitsFirstChild = false;
  }

  void noteFirstChild(std::string_view name, const std::vector<platform::MarkupAttribute>& attributes) {
    if (!m_awaitsFirstChild) return;
    m_awaitsFirstChild = settleFirstChild(name == "img" ? FirstChild::image : FirstChild::other);
    if (name == "img" && sizeOf(attributes) <= kMaxImageMarkup) {
      m_open.back().element.imageMarkup = platform::serialiseStartTag(name, attributes);
    }
  }

  /// Returns false, the state of waiting afterwards.
  bool settleFirstChild(FirstChild kind) {
    if (m_awaitsFirstChild) m_open.back().element.firstChild = kind;
    return false;
  }

  std::vector<Anchor> m_anchors;
  std::vector<OpenAnchor> m_open;
  std::size_t m_openPassedOver = 0;
  std::string m_text;  // since the outermost open anchor began
  std::size_t m_collected = 0;
  bool m_awaitsFirstChild = false;  // nothing has come since the innermost open anchor began
  std::optional<std::string> m_title;
  int m_depth = 0;
  int m_titleDepth = 0;  // of the title element in hand; 0 outside of it
};

}  // namespace

std::size_t PageContents::bytes() const {
  std::size_t sum = title.capacity() + anchors.capacity() * sizeof(Anchor);
  for (const Anchor& anchor : anchors) {
    sum += anchor.title.capacity() + (anchor.href ? anchor.href->capacity() : 0);
  }
  return sum;
}

PageContents readPageContents(std::string_view markup, std::stop_token stop) {
  ContentsCollector collector;
  platform::readHtml(markup, collector, std::move(stop));
  return collector.take();
}

}  // namespace crawler
