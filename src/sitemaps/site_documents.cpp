#include "sitemaps/site_documents.h"

#include <algorithm>

#include "sitemaps/html_format.h"
#include "sitemaps/xml_format.h"

namespace sitemaps {

SiteDocuments::SiteDocuments(std::filesystem::path siteFolder) : m_xml(siteFolder / kXmlSitemapFile) {
  for (const Layout& layout : kLayouts) {
    m_documents.push_back({layout, platform::FileAppender(siteFolder / layout.fileName)});
  }
}

bool SiteDocuments::start() {
  for (Document& document : m_documents) {
    document.cellsInRow = 0;
    const std::filesystem::path& path = document.file.file();
    note(path, platform::replaceFile(path, documentOpening(document.layout.columns)));
  }
  note(m_xml.file(), platform::replaceFile(m_xml.file(), kXmlHeader));
  return m_problems.empty();
}

void SiteDocuments::appendPage(std::string_view entry) {
  appendCell(entry, Listing::pagesOnly);
}

void SiteDocuments::appendLinks(std::string_view block) {
  if (!block.empty()) appendCell(block, Listing::allLinks);
}

void SiteDocuments::appendXml(std::string_view entry) {
  append(m_xml, entry);
}

void SiteDocuments::finish() {
  for (Document& document : m_documents) {
    // A row of the pages-only table closes by the count of the all-links table. The two differ only when a
    // page came without content and so shares the next page's cell there.
    append(document.file, documentClosing(document.layout.columns, cellsInLinkRow(document.layout.columns)));
  }
  append(m_xml, kXmlClosing);
  for (const Document& document : m_documents) {
    note(document.file.file(), platform::syncFile(document.file.file()));
  }
  note(m_xml.file(), platform::syncFile(m_xml.file()));
}

void SiteDocuments::appendCell(std::string_view block, Listing listing) {
  for (Document& document : m_documents) {
    if (document.layout.listing != listing) continue;
    const Cell cell = wrapCell(block, document.layout.columns, document.cellsInRow);
    append(document.file, cell.text);
    document.cellsInRow = cell.cellsInRow;
  }
}

void SiteDocuments::append(platform::FileAppender& file, std::string_view text) {
  // What does not fit would be missing in the middle if smaller pieces still went in behind it.
  if (!isCutShort(file.file())) note(file.file(), file.append(text));
}

void SiteDocuments::note(const std::filesystem::path& file, const platform::FileResult& result) {
  if (!result.ok() && !hasProblem(file)) m_problems.push_back({file, result});
}

bool SiteDocuments::isCutShort(const std::filesystem::path& file) const {
  return std::any_of(m_problems.begin(), m_problems.end(), [&](const FileProblem& problem) {
    return problem.path == file && problem.result.status != platform::FileStatus::missing;
  });
}

bool SiteDocuments::hasProblem(const std::filesystem::path& file) const {
  return std::any_of(m_problems.begin(), m_problems.end(),
                     [&](const FileProblem& problem) { return problem.path == file; });
}

int SiteDocuments::cellsInLinkRow(int columns) const {
  for (const Document& document : m_documents) {
    if (document.layout.listing == Listing::allLinks && document.layout.columns == columns) {
      return document.cellsInRow;
    }
  }
  return 0;
}

}  // namespace sitemaps
