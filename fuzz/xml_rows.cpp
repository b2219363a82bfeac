// The rows of an XML sitemap, their rewriting, and its validation. Input: a value to set, then the sitemap.
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "platform/text.h"
#include "sitemaps/sitemap_reader.h"
#include "sitemaps/xml_validation.h"
#include "xml_editor/row_changes.h"
#include "xml_editor/xml_sitemap.h"

namespace {

using fuzz::require;
using sitemaps::Field;
using Rows = std::vector<std::string>;

std::string joined(const Rows& rows) {
  std::string text;
  for (const std::string& row : rows) text += row;
  return text;
}

Rows read(std::string_view text) {
  return sitemaps::readSitemap(text).rows;
}

void checkRow(const std::string& row) {
  require(fuzz::isUtf8(row), "rows are UTF-8");
  require(row.starts_with("<url>") && row.ends_with("\n\t</url>"), "rows have their tags");
  for (const Field field : sitemaps::kFields) {
    const auto element = sitemaps::findElement(row, field);
    if (!element) continue;
    require(element->value.find_first_of("<>\n\r\t") == std::string_view::npos,
            "values are escaped, on one line");
    require(!element->value.starts_with(' ') && !element->value.ends_with(' '), "values are trimmed");
  }
}

void checkRewriting(const Rows& rows) {
  const xml_editor::SitemapText written = xml_editor::sitemapText(rows);
  if (written.missing) {
    require(written.text.empty() && written.missing->row < rows.size(),
            "nothing is written without an element");
    require(!sitemaps::findElement(rows[written.missing->row], written.missing->field),
            "the element is missing");
    return;
  }
  const Rows again = read(written.text);
  require(again.size() == rows.size(), "rewriting keeps all rows");
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (const Field field : {Field::lastmod, Field::changefreq, Field::priority}) {
      require(sitemaps::shownValue(again[i], field) == sitemaps::shownValue(rows[i], field),
              "rewriting keeps the values");
    }
  }
}

void checkChange(const std::string& row, const std::string& value) {
  for (const Field field : sitemaps::kFields) {
    xml_editor::refusal(field, value, "2024-05-06");
    const bool has = sitemaps::findElement(row, field).has_value();
    const std::string changed = xml_editor::withValue(row, field, value);
    require(has || changed == row, "what is not there is not changed");
    const bool plain = value.find_first_of("<&\n") == std::string::npos;
    if (has && plain && field != Field::loc) {
      require(sitemaps::shownValue(changed, field) == value, "a value is taken as it was typed");
    }
  }
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string value(fuzz::takeLine(rest));
  const Rows rows = read(rest);
  for (const std::string& row : rows) {
    checkRow(row);
    checkChange(row, value);
  }
  require(read(joined(rows)) == rows, "what was read is read as the same again");
  checkRewriting(rows);
  const auto findings =
      sitemaps::validateXmlSitemap(rest, {.now = std::chrono::sys_days(std::chrono::year(2024) / 5 / 6)});
  for (const sitemaps::XmlFinding& finding : findings) {
    require(!finding.message.empty() && fuzz::isUtf8(finding.message), "findings can be shown");
  }
  require(!findings.empty() || (fuzz::isUtf8(rest) && rows.size() > 0), "a valid sitemap has entries");
}
