#include "xml_editor/xml_sitemap.h"

#include <functional>
#include <utility>

#include "platform/phrases.h"
#include "platform/regex.h"
#include "sitemaps/sitemap_reader.h"
#include "sitemaps/xml_format.h"
#include "xml_editor/row_changes.h"

namespace xml_editor {

using platform::Phrases;

namespace {

std::size_t fingerprint(std::string_view text) {
  return std::hash<std::string_view>{}(text);
}

}  // namespace

SitemapText sitemapText(const std::vector<std::string>& rows) {
  constexpr std::size_t kUsualRow = 200;
  std::string text(sitemaps::kXmlHeader);
  text.reserve(text.size() + rows.size() * kUsualRow);
  text += "\n\t";
  for (std::size_t i = 0; i < rows.size(); ++i) {
    text += "<url>";
    for (const Field field : kFields) {
      const std::optional<sitemaps::ElementText> element = sitemaps::findElement(rows[i], field);
      if (!element) return {{}, MissingElement{i, field}};
      text += "\n\t\t";
      if (field == Field::loc && element->whole.find("&amp;") != std::string_view::npos) {
        text += platform::replaceText(element->whole, "&amp;", "&");
      } else {
        text += element->whole;
      }
    }
    text += "\n\t</url>";
    text += i + 1 == rows.size() ? "\n" : "\n\t";
  }
  text += "</urlset>";
  return {std::move(text), std::nullopt};
}

Contents XmlSitemap::load(const std::filesystem::path& file) {
  m_file = file;
  const platform::FileContent content = file.empty() ? platform::FileContent() : platform::readFile(file);
  m_read = content.result;
  m_fingerprint = fingerprint(content.text);
  sitemaps::SitemapRows read = sitemaps::readSitemap(content.text);
  m_rows = std::move(read.rows);
  m_otherElements = read.otherElements;
  return contents();
}

Contents XmlSitemap::contents() const {
  if (m_file.empty()) return Contents::none;
  if (m_read.status == platform::FileStatus::missing) return Contents::missing;
  if (!m_read.ok()) return Contents::unreadable;
  return m_rows.empty() ? Contents::noEntries : Contents::entries;
}

bool XmlSitemap::changedElsewhere() const {
  const platform::FileContent onDisk = platform::readFile(m_file);
  return onDisk.result.ok() && fingerprint(onDisk.text) != m_fingerprint;
}

Change XmlSitemap::setValue(std::size_t row, Field field, std::string_view value, std::string_view today) {
  std::string refused = refusal(field, value, today);
  if (!refused.empty()) return {ChangeStatus::refused, std::move(refused)};
  return choose(row, field, value);
}

Change XmlSitemap::choose(std::size_t row, Field field, std::string_view value) {
  return replaceRow(row, withValue(m_rows[row], field, value));
}

Change XmlSitemap::replaceRow(std::size_t row, std::string text) {
  std::swap(m_rows[row], text);
  Change change = updateXmlFile();
  if (!change.saved()) std::swap(m_rows[row], text);
  return change;
}

Change XmlSitemap::remove(std::size_t row) {
  const auto place = m_rows.begin() + static_cast<std::ptrdiff_t>(row);
  std::string removed = std::move(*place);
  m_rows.erase(place);
  Change change = updateXmlFile();
  if (!change.saved()) {
    m_rows.insert(m_rows.begin() + static_cast<std::ptrdiff_t>(row), std::move(removed));
    if (change.status == ChangeStatus::incomplete && change.row >= row) ++change.row;
  }
  return change;
}

TakenOver XmlSitemap::takeOver(const sitemaps::EditedValues& values) {
  TakenOver taken;
  std::vector<std::pair<std::size_t, std::string>> former;
  for (std::size_t row = 0; row < m_rows.size(); ++row) {
    std::string text = m_rows[row];
    const int count = values.putInto(text);
    if (count == 0) continue;
    taken.count += count;
    former.emplace_back(row, std::exchange(m_rows[row], std::move(text)));
  }
  if (taken.count > 0) taken.change = updateXmlFile();
  if (taken.change.saved()) return taken;
  for (auto& [row, text] : former) m_rows[row] = std::move(text);
  taken.count = 0;
  return taken;
}

/// Nobody's work is overwritten: neither that of a scan that is under way nor that of another program.
Change XmlSitemap::updateXmlFile() {
  SitemapText sitemap = sitemapText(m_rows);
  if (sitemap.missing) {
    return {ChangeStatus::incomplete,
            Phrases::tr("An entry of the sitemap has no %1 element, so the sitemap cannot be written.",
                        {elementName(sitemap.missing->field)}),
            sitemap.missing->row};
  }
  const platform::FolderLock lock(m_file.parent_path());
  if (lock.result().status == platform::FileStatus::busy) {
    return {ChangeStatus::scanned,
            Phrases::tr("The site is being scanned. Try again when that has finished.")};
  }
  if (changedElsewhere()) {
    return {ChangeStatus::outdated,
            Phrases::tr("Another program has changed the sitemap, so your change was not made.")};
  }
  const platform::FileResult written = platform::replaceFile(m_file, sitemap.text);
  if (!written.ok())
    return {ChangeStatus::failed, Phrases::tr("The sitemap could not be saved: %1", {written.error})};
  m_fingerprint = fingerprint(sitemap.text);
  m_otherElements = false;
  return {};
}

}  // namespace xml_editor
