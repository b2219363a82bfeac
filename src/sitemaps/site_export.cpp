#include "sitemaps/site_export.h"

#include <system_error>
#include <utility>

#include "platform/gzip.h"
#include "platform/phrases.h"
#include "platform/utf8.h"
#include "sitemaps/xml_cleaning.h"
#include "sitemaps/xml_format.h"
#include "store/site_list.h"

namespace sitemaps {

namespace {

ExportedDocument failed(std::filesystem::path path, ExportFailure failure, std::string reason) {
  return {failure, std::move(path), std::move(reason)};
}

/// Reads a document as it is. While a scan writes it, it is not yet what the user wants to publish.
ExportedDocument readDocument(const store::GlobalControls& controls, std::string_view siteName,
                              std::string_view fileName) {
  const std::filesystem::path folder = controls.siteFolder(siteName);
  const platform::FolderLock lock(folder);
  if (lock.result().status == platform::FileStatus::busy)
    return failed(folder / fileName, ExportFailure::busy, lock.result().error);
  platform::FileContent content = platform::readFile(folder / fileName);
  if (content.result.status == platform::FileStatus::missing)
    return failed(folder / fileName, ExportFailure::missing, content.result.error);
  if (!content.result.ok()) return failed(folder / fileName, ExportFailure::unusable, content.result.error);
  if (!platform::isUtf8(content.text))
    return failed(folder / fileName, ExportFailure::unusable,
                  platform::Phrases::tr("The file is not valid UTF-8."));
  return {ExportFailure::none, folder / fileName, {}, std::move(content.text)};
}

}  // namespace

ExportedDocument exportedHtml(const store::GlobalControls& controls, std::string_view siteName,
                              const Layout& layout, const CleaningProgress& progress) {
  ExportedDocument document = readDocument(controls, siteName, layout.fileName);
  if (document.failure == ExportFailure::none) document.text = withoutLinkIds(document.text, progress);
  return document;
}

ExportedDocument exportedXml(const store::GlobalControls& controls, std::string_view siteName) {
  ExportedDocument document = readDocument(controls, siteName, kXmlSitemapFile);
  if (document.failure == ExportFailure::none) document.text = publishableXml(document.text);
  return document;
}

bool wantsSplitting(const store::GlobalControls& controls, std::string_view siteName) {
  std::error_code error;
  const auto bytes = std::filesystem::file_size(controls.siteFolder(siteName) / kXmlSitemapFile, error);
  if (!error && bytes > kMaxSitemapBytes) return true;
  const int pages = store::readSite(controls, siteName).details.pagesUsed;
  return pages > 0 && static_cast<std::size_t>(pages) > kMaxSitemapEntries;
}

std::vector<std::string> splitFileNames(std::size_t partCount, Compression compression) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < partCount; ++i) names.push_back(partFileName(i, compression));
  names.emplace_back(kSitemapIndexFile);
  return names;
}

std::vector<XmlFinding> validateAsPublished(std::string_view text, std::string siteUrl) {
  XmlValidationBase base = validationBaseNow();
  base.siteUrl = std::move(siteUrl);
  // What is no text is not exported, and what is wrong with it is told as it stands.
  return validateXmlSitemap(platform::isUtf8(text) ? publishableXml(text) : text, base);
}

SplitResult writeSplit(const SplitSitemap& sitemap, std::string_view startUrl, Compression compression,
                       const std::filesystem::path& folder) {
  for (std::size_t i = 0; i < sitemap.partCount(); ++i) {
    const std::filesystem::path file = folder / partFileName(i, compression);
    std::string text = sitemap.part(i);
    if (compression == Compression::gzip) {
      std::optional<std::string> compressed = platform::gzipped(text);
      if (!compressed)
        return {{platform::FileStatus::failed, platform::Phrases::tr("not enough memory")}, file};
      text = *std::move(compressed);
    }
    if (platform::FileResult result = platform::replaceFile(file, text); !result.ok())
      return {std::move(result), file};
  }
  const std::filesystem::path index = folder / kSitemapIndexFile;
  return {platform::replaceFile(index, sitemapIndex(startUrl, sitemap.partCount(), compression)), index};
}

}  // namespace sitemaps
