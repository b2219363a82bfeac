// Documents made fit for their export. Input: the document.
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "platform/regex.h"
#include "platform/utf8.h"
#include "sitemaps/html_cleaning.h"
#include "sitemaps/split_sitemaps.h"
#include "sitemaps/xml_cleaning.h"
#include "sitemaps/xml_validation.h"

namespace {

using fuzz::require;

std::string withoutMatches(const platform::Regex& pattern, std::string text) {
  std::size_t from = 0;
  while (const auto match = pattern.find(text, from)) {
    from = match->offset;
    text.erase(from, match->whole.size());
  }
  return text;
}

/// The markers as regular expressions, whose dots match no line end.
void checkHtml(const std::string& document) {
  static const platform::Regex comment("<!-- LINKID: .*? -->");
  static const platform::Regex inAddress("---LINKID:.*?---");
  const std::string cleaned = sitemaps::withoutLinkIds(document);
  // No expression matches across bad bytes, and nothing like it is exported.
  require(
      !platform::isUtf8(document) || cleaned == withoutMatches(inAddress, withoutMatches(comment, document)),
      "what the regular expressions find is taken, and nothing else");
}

/// What is published is XML, and published once more it is the same.
void checkPublished(const std::string& document) {
  if (!platform::isUtf8(document)) return;  // nothing like it is exported
  const std::string text = sitemaps::publishableXml(document);
  require(sitemaps::publishableXml(text) == text, "nothing is mended twice");
  for (const sitemaps::XmlFinding& finding : sitemaps::validateXmlSitemap(text, {})) {
    require(!finding.message.starts_with("Line "), "what is published is well-formed");
    require(finding.message.find("percent-encoded") == std::string::npos ||
                text.find("<loc>") == std::string::npos,
            "addresses are fit for the web");
  }
}

void checkSplit(const std::string& document) {
  const std::vector<std::string_view> entries = sitemaps::sitemapEntries(document);
  const sitemaps::SplitLimits limits = {1 + document.size() % 3, 600 + document.size() / 2};
  const sitemaps::SplitSitemap sitemap(document, limits);
  std::size_t next = 0;
  for (std::size_t i = 0; i < sitemap.partCount(); ++i) {
    const std::string part = sitemap.part(i);
    const std::vector<std::string_view> shared = sitemaps::sitemapEntries(part);
    require(!shared.empty() && shared.size() <= limits.entries, "a part has entries, and not too many");
    require(shared.size() == 1 || part.size() <= limits.bytes, "a part is not too large");
    require(part.ends_with("\n</urlset>"), "a part is closed");
    for (const std::string_view entry : shared) {
      require(next < entries.size() && entry == entries[next++], "the parts hold the entries in order");
    }
  }
  require(next == entries.size(), "the parts hold all entries");
}

}  // namespace

void fuzz::tryInput(std::string_view input) {
  const std::string document(input);
  require(platform::isUtf8(document) == fuzz::isUtf8(document), "text is told from bytes");
  checkHtml(document);
  checkPublished(document);
  checkSplit(document);
}
