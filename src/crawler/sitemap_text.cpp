#include "crawler/sitemap_text.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/ascii.h"
#include "platform/gzip.h"
#include "platform/phrases.h"
#include "platform/text.h"
#include "platform/xml_reader.h"
#include "sitemaps/xml_references.h"
#include "sitemaps/xml_validation.h"

namespace crawler {

namespace {

using platform::Phrases;

constexpr std::size_t kMaxAddressBytes = 8'192;

constexpr std::size_t kMaxXmlBytes = sitemaps::kMaxSitemapBytes / 4 * 5;

void addAddress(SitemapText& to, std::string_view address) {
  if (address.empty() || address.size() > kMaxAddressBytes) return;
  if (to.addresses.size() < sitemaps::kMaxSitemapEntries) {
    to.addresses.emplace_back(address);
  } else if (to.problem.empty()) {
    to.problem = Phrases::tr("It holds more than 50,000 addresses; the first ones count");
  }
}

/// Takes the addresses of root, entry and loc elements. Those of images and the like stand deeper, or in
/// another namespace.
class Handler : public platform::XmlHandler {
 public:
  explicit Handler(SitemapText& text) : m_text(text) {}

  void startElement(const platform::XmlName& name, const std::vector<platform::XmlAttribute>&) override {
    ++m_depth;
    if (m_depth == kRoot) {
      m_nameSpace = name.nameSpace;
      if (name.local == "urlset") m_text.kind = SitemapKind::pages;
      if (name.local == "sitemapindex") m_text.kind = SitemapKind::index;
    } else if (m_depth == kEntry) {
      m_inEntry = name.local == (m_text.kind == SitemapKind::index ? "sitemap" : "url");
    } else if (m_depth == kField) {
      m_inAddress = m_inEntry && name.local == "loc" && name.nameSpace == m_nameSpace;
      m_address.clear();
    }
  }

  void endElement() override {
    if (m_depth == kField && std::exchange(m_inAddress, false) && m_text.kind != SitemapKind::none)
      addAddress(m_text, platform::trimmed(m_address));
    --m_depth;
  }

  void text(std::string_view piece) override {
    // What is too long already needs no more.
    if (m_inAddress && m_address.size() <= 2 * kMaxAddressBytes) m_address += piece;
  }

  void documentType() override {}

  void fault(int line, std::string_view message) override {
    m_inAddress = false;  // what it was is not known
    if (m_text.problem.empty()) m_text.problem = Phrases::tr("Line %1: %2", {std::to_string(line), message});
  }

 private:
  enum Depth { kRoot = 1, kEntry = 2, kField = 3 };

  SitemapText& m_text;
  std::string m_nameSpace;  // of the root
  std::string m_address;
  int m_depth = 0;
  bool m_inEntry = false;
  bool m_inAddress = false;
};

/// Whether a "<" at `at` starts something: a tag ends before the next one starts.
bool startsMarkup(std::string_view xml, std::size_t at) {
  if (at + 1 == xml.size()) return false;
  const std::size_t end = xml.find_first_of("<>", at + 1);
  return xml[at + 1] == '!' || xml[at + 1] == '?' || (end != std::string_view::npos && xml[end] == '>');
}

/// The text with each "&", and each "<" that starts nothing, as the number of what it means. Many sites write
/// them as in an address, and the XML reader leaves out what follows; behind the first fault of a text it
/// leaves out all references that have names. Text that is made of little else is cut off before it has grown
/// to several times its length.
std::string withNumericReferences(std::string_view xml) {
  std::string numeric;
  numeric.reserve(xml.size());
  for (std::size_t at = 0; at < xml.size() && numeric.size() < kMaxXmlBytes;) {
    const std::size_t mark = std::min(xml.find_first_of("&<", at), xml.size());
    numeric.append(xml, at, mark - at);
    if (mark == xml.size()) break;
    at = std::max(sitemaps::behindSection(xml, mark), mark + 1);
    const std::optional<sitemaps::XmlReference> reference = sitemaps::referenceAt(xml.substr(mark));
    if (reference) at = mark + reference->length;
    if (reference && xml[mark + 1] != '#') {
      numeric += "&#" + std::to_string(reference->character.front()) + ";";
    } else if (reference || (xml[mark] == '<' && startsMarkup(xml, mark))) {
      numeric.append(xml, mark, at - mark);
    } else {
      numeric += xml[mark] == '<' ? "&#60;" : "&#38;";
    }
  }
  return numeric;
}

/// Changes `xml`, since a large file is not to be held more often than need be.
SitemapText readXmlSitemap(std::string& xml) {
  SitemapText text;
  Handler handler(text);
  xml = withNumericReferences(xml);
  platform::readXml(xml, handler);
  return text;
}

SitemapText readLines(std::string_view lines) {
  SitemapText text;
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find_first_of("\r\n"));
    lines.remove_prefix(std::min(lines.size(), line.size() + 1));
    const std::string_view address = platform::trimmed(line);
    if (platform::startsWithAnyCase(address, "http://") || platform::startsWithAnyCase(address, "https://")) {
      text.kind = SitemapKind::pages;
      addAddress(text, address);
    } else if (!address.empty() && text.kind == SitemapKind::none) {
      break;
    }
  }
  return text;
}

SitemapText problem(std::string_view what) {
  SitemapText text;
  text.problem = what;
  return text;
}

}  // namespace

SitemapText readSitemapText(std::string content) {
  if (platform::isGzip(content)) {
    platform::Gunzipped unpacked = platform::gunzipped(content, sitemaps::kMaxSitemapBytes);
    if (unpacked.failure == platform::GunzipFailure::damaged)
      return problem(Phrases::tr("The compressed file is damaged"));
    if (unpacked.failure == platform::GunzipFailure::tooLarge)
      return problem(Phrases::tr("It is larger than 50 MB"));
    content = std::move(unpacked.text);
  }
  content = platform::decodeUtf8(std::move(content));
  const bool isMarkup = platform::trimmed(std::string_view(content).substr(0, 1'024)).starts_with('<');
  SitemapText text = isMarkup ? readXmlSitemap(content) : readLines(content);
  return text.kind == SitemapKind::none ? problem(Phrases::tr("It is no sitemap")) : text;
}

}  // namespace crawler
