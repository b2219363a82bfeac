// The documents that a scan writes into a site's folder, growing page by page.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "sitemaps/layouts.h"

namespace sitemaps {

/// A file that could not be written as it should, and why.
struct FileProblem {
  std::filesystem::path path;
  platform::FileResult result;
};

/// Writes the documents of one scan. At every moment each file holds everything up to the last page written,
/// and a page costs the same however long the documents are. One thread at a time.
class SiteDocuments {
 public:
  explicit SiteDocuments(std::filesystem::path siteFolder);

  /// Replaces all documents by their openings. False when one of them could not be written.
  bool start();

  /// Adds a page to the pages-only documents. `entry` is its pageEntry().
  void appendPage(std::string_view entry);

  /// Adds a page's entry with the entries of its links to the all-links documents.
  void appendLinks(std::string_view block);

  /// Adds a page to the XML sitemap. `entry` is its xmlEntry().
  void appendXml(std::string_view entry);

  /// Closes all documents and puts them on disk for good.
  void finish();

  /// What went wrong so far: each file once, with the first cause. A file that could not take a piece ends
  /// before it and gets no more. One that disappears during the scan is not made again (somebody wants it
  /// gone), and counts as a problem.
  const std::vector<FileProblem>& problems() const { return m_problems; }

 private:
  struct Document {
    Layout layout;
    platform::FileAppender file;
    int cellsInRow = 0;
  };

  void appendCell(std::string_view block, Listing listing);
  void append(platform::FileAppender& file, std::string_view text);
  void note(const std::filesystem::path& file, const platform::FileResult& result);
  bool hasProblem(const std::filesystem::path& file) const;
  bool isCutShort(const std::filesystem::path& file) const;
  int cellsInLinkRow(int columns) const;

  std::vector<Document> m_documents;
  platform::FileAppender m_xml;
  std::vector<FileProblem> m_problems;
};

}  // namespace sitemaps
