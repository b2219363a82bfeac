#include "report/page_resources.h"

#include <algorithm>
#include <optional>

#include "platform/ascii.h"
#include "web/page_reader.h"
#include "web/url.h"

namespace report {

namespace {

class ResourceReader : public web::PageHandler {
 public:
  explicit ResourceReader(std::string_view url) : m_base(web::parseUrl(url)) {}

  void anchor(web::AnchorElement&&) override {}

  void mark(web::PageMark mark, std::string_view attributes) override {
    switch (mark) {
      case web::PageMark::base:
        return setBase(web::attributeValue(attributes, "href"));
      case web::PageMark::image:
      case web::PageMark::script:
        return add(web::attributeValue(attributes, "src"));
      case web::PageMark::link:
        if (isLoaded(web::attributeValue(attributes, "rel").value_or("")))
          add(web::attributeValue(attributes, "href"));
        return;
      default:
        return;
    }
  }

  std::vector<std::string> resources;

 private:
  static bool isLoaded(const std::string& rel) {
    const std::string words = platform::lowerAscii(rel);
    return words.find("stylesheet") != std::string::npos || words.find("icon") != std::string::npos;
  }

  void setBase(const std::optional<std::string>& href) {
    if (m_hasBase || !href || !m_base) return;
    m_hasBase = true;
    if (auto base = web::parseUrl(*href, &*m_base); base && base->isWeb()) m_base = std::move(base);
  }

  void add(const std::optional<std::string>& address) {
    if (!address || address->empty()) return;
    const std::optional<web::Url> url = web::parseUrl(*address, m_base ? &*m_base : nullptr);
    if (url && url->isWeb()) resources.emplace_back(url->withoutFragment());
  }

  std::optional<web::Url> m_base;
  bool m_hasBase = false;
};

}  // namespace

std::vector<std::string> pageResources(std::string_view markup, std::string_view url) {
  ResourceReader reader(url);
  static_cast<void>(web::readPage(markup, reader));
  return std::move(reader.resources);
}

}  // namespace report
