// Documents made fit for their export. Input: the document.
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "platform/regex.h"
#include "platform/utf8.h"
#include "sitemaps/broken_links_export.h"
#include "sitemaps/html_cleaning.h"
#include "sitemaps/split_sitemaps.h"
#include "sitemaps/xml_cleaning.h"
#include "sitemaps/xml_validation.h"

namespace {

using fuzz::require;

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += c;
    }
  }
  return lines;
}

std::string withoutMatches(const platform::Regex& pattern, std::string text) {
  std::size_t from = 0;
  while (const auto match = pattern.find(text, from)) {
    from = match->offset;
    text.erase(from, match->whole.size());
  }
  return text;
}

/// The markers as regular expressions, a line at a time.
void checkHtml(const std::string& document) {
  static const platform::Regex comment("<!-- LINKID: .*? -->");
  static const platform::Regex inAddress("---LINKID:.*?---");
  const std::vector<std::string> lines = linesOf(document);
  const std::vector<std::string> cleaned = linesOf(sitemaps::withoutLinkIds(document));
  require(cleaned.size() == lines.size(), "every line stays a line");
  if (!platform::isUtf8(document))
    return;  // no expression matches across bad bytes, and nothing like it is exported
  for (std::size_t i = 0; i < lines.size(); ++i) {
    require(cleaned[i] == withoutMatches(inAddress, withoutMatches(comment, lines[i])),
            "what the regular expressions find is taken, and nothing else");
  }
}

std::string withoutEach(std::string text, const std::string& what) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos;) text.erase(at, what.size());
  return text;
}

void checkXml(const std::string& document) {
  std::string expected = document;
  for (const char* element : {"lastmod", "changefreq", "priority"}) {
    expected = withoutEach(expected, "<" + std::string(element) + "></" + element + ">\n\t\t");
  }
  require(sitemaps::withoutEmptyElements(document) == withoutEach(expected, "\n\t\t<priority></priority>"),
          "the empty elements are taken, and nothing else");
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

/// Takes a table apart by the rules of RFC 4180.
std::vector<std::vector<std::string>> rowsOf(const std::string& table) {
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> row(1);
  bool quoted = false;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i] == '"') {
      const bool escaped = quoted && table.compare(i, 2, "\"\"") == 0;
      if (escaped) row.back() += table[i++];
      if (!escaped) quoted = !quoted;
    } else if (!quoted && table[i] == ',') {
      row.emplace_back();
    } else if (!quoted && table.compare(i, 2, "\r\n") == 0) {
      rows.push_back(row);
      row.assign(1, {});
      ++i;
    } else {
      row.back() += table[i];
    }
  }
  return rows;
}

void checkTable(const std::string& url, const std::string& reason) {
  const auto rows = rowsOf(sitemaps::brokenLinksCsv({{url, reason}, {reason, ""}}));
  require(rows.size() == 3 && rows[1].size() == 3 && rows[2].size() == 3, "a table has its rows and columns");
  require(rows[1][0] == url && rows[2][0] == reason, "addresses are read back");
  require(rows[1][2] == reason || rows[1][1] + " - " + rows[1][2] == reason, "reasons are read back");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = fuzz::textOf(data, size);
  const std::string document(rest);
  require(platform::isUtf8(document) == fuzz::isUtf8(document), "text is told from bytes");
  checkHtml(document);
  checkXml(document);
  checkPublished(document);
  checkSplit(document);
  const std::string first(fuzz::takeLine(rest));
  checkTable(first, std::string(rest));
  return 0;
}
