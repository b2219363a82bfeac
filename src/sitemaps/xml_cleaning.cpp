#include "sitemaps/xml_cleaning.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/ascii.h"
#include "platform/regex.h"
#include "platform/uri.h"
#include "platform/xml_reader.h"
#include "sitemaps/row_text.h"
#include "sitemaps/sitemap_reader.h"
#include "sitemaps/split_sitemaps.h"
#include "sitemaps/xml_format.h"
#include "sitemaps/xml_references.h"

namespace sitemaps {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

/// An address as it may stand on the web: what RFC 3986 excludes is percent-encoded, the fragment included.
std::string asWebAddress(std::string_view address) {
  const std::size_t hash = address.find('#');
  std::string result = platform::requestAddress(address);
  if (hash == kNowhere) return result;
  // A query takes the characters that a fragment does, and a second "#" is none of them.
  const std::string asQuery = "?" + platform::replaceText(address.substr(hash + 1), "#", "%23");
  return result.append("#").append(platform::requestAddress(asQuery), 1);
}

/// Adds `text` with every "&" escaped that starts no reference, but in comments and their like.
void appendMended(std::string& to, std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t mark = std::min(text.find_first_of("&<", at), text.size());
    to += text.substr(at, mark - at);
    if (mark == text.size()) return;
    at = behindSection(text, mark);
    if (at != mark) {
      to += text.substr(mark, at - mark);
      continue;
    }
    if (text[mark] == '<') {
      to += '<';
    } else {
      to += referenceAt(text.substr(mark)) ? "&" : "&amp;";
    }
    at = mark + 1;
  }
}

/// What stands between the tags of a loc.
void appendAddress(std::string& to, std::string_view written) {
  if (written.find("<!") != kNowhere) return appendMended(to, written);
  std::string decoded;
  bool isXml = true;
  for (std::size_t at = 0; at < written.size();) {
    const auto reference = referenceAt(written.substr(at));
    if (!reference && (written[at] == '&' || written[at] == '<')) isXml = false;
    decoded += reference ? reference->character : std::string(1, written[at]);
    at += reference ? reference->length : 1;
  }
  const std::string_view address = platform::trimmed(decoded);
  const std::string fit = asWebAddress(address);
  to += isXml && fit == address ? std::string(written) : escapeXml(fit);
}

/// An entry, from "<url" to "</url>". One of strangers may hold several addresses.
void appendEntry(std::string& to, std::string_view entry) {
  constexpr std::string_view kLoc = "<loc>";
  std::size_t done = 0;
  for (;;) {
    const std::size_t tag = entry.find(kLoc, done);
    const std::size_t value = tag == kNowhere ? tag : tag + kLoc.size();
    const std::size_t end = entry.find("</loc", value);
    if (value == kNowhere || end == kNowhere) return appendMended(to, entry.substr(done));
    appendMended(to, entry.substr(done, value - done));
    appendAddress(to, entry.substr(value, end - value));
    done = end;
  }
}

std::string mended(std::string_view sitemap) {
  std::string text;
  text.reserve(sitemap.size() + sitemap.size() / 16);
  std::size_t done = 0;
  for (const std::string_view entry : sitemapEntries(sitemap)) {
    const auto start = static_cast<std::size_t>(entry.data() - sitemap.data());
    appendMended(text, sitemap.substr(done, start - done));
    appendEntry(text, entry);
    done = start + entry.size();
  }
  appendMended(text, sitemap.substr(done));
  return text;
}

/// Looks for faults and nothing else.
class FaultFinder : public platform::XmlHandler {
 public:
  void startElement(const platform::XmlName&, const std::vector<platform::XmlAttribute>&) override {}
  void endElement() override {}
  void text(std::string_view) override {}
  void documentType() override {}
  void fault(int, std::string_view) override { m_any = true; }

  bool any() const { return m_any; }

 private:
  bool m_any = false;
};

bool isWellFormed(std::string_view text) {
  FaultFinder finder;
  platform::readXml(text, finder);
  return !finder.any();
}

std::string writtenAnew(std::string_view sitemap) {
  std::string text(kXmlHeader);
  for (const std::string& row : readSitemap(sitemap).rows) {
    text += "\n\t";
    appendEntry(text, row);
  }
  return text.append(kXmlClosing);
}

}  // namespace

std::string withoutEmptyElements(std::string sitemap) {
  for (const std::string_view line :
       {"<lastmod></lastmod>\n\t\t", "<changefreq></changefreq>\n\t\t", "<priority></priority>\n\t\t",
        // The usual place of a priority is the end of its entry, where no other
        // element follows: there the line goes with the indentation before it.
        "\n\t\t<priority></priority>"}) {
    sitemap = platform::replaceText(sitemap, line, {});
  }
  return sitemap;
}

std::string publishableXml(std::string_view sitemap) {
  std::string text = mended(sitemap);
  if (!isWellFormed(text)) text = writtenAnew(sitemap);
  return withoutEmptyElements(std::move(text));
}

}  // namespace sitemaps
