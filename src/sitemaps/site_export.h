// What a site's export holds: its documents, read and made fit for the web.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/phrases.h"
#include "sitemaps/html_cleaning.h"
#include "sitemaps/layouts.h"
#include "sitemaps/split_sitemaps.h"
#include "store/global_controls.h"

namespace sitemaps {

/// What the user is told when a document is not there, or cannot be used.
inline constexpr std::string_view kExportMissing = platform::Phrases::noop(
    "The sitemap you are trying to export could not be found, please make sure you have scanned your site "
    "before exporting.");
inline constexpr std::string_view kExportUnusable = platform::Phrases::noop(
    "An error has occurred while exporting your sitemap, you may need to re-scan the site.\n");

enum class ExportFailure {
  none,
  missing,   // the site has no such document
  busy,      // a scan is writing it
  unusable,  // it cannot be read, or is no UTF-8; `reason` says what
};

/// A document ready to be written; `text` is empty unless `failure` is none.
struct [[nodiscard]] ExportedDocument {
  ExportFailure failure = ExportFailure::none;
  std::filesystem::path path = {};  // of the document in the site's folder
  std::string reason = {};
  std::string text = {};
};

/// One of the HTML sitemaps, without its markers.
ExportedDocument exportedHtml(const store::GlobalControls& controls, std::string_view siteName,
                              const Layout& layout, const CleaningProgress& progress = {});

/// The XML sitemap as publishableXml().
ExportedDocument exportedXml(const store::GlobalControls& controls, std::string_view siteName);

/// Whether the site's XML sitemap seems to be more than search engines take in one file. Judged by the counts
/// of the last scan and the size of the file, so that asking costs nothing.
bool wantsSplitting(const store::GlobalControls& controls, std::string_view siteName);

/// The names of all files that writing a split sitemap makes, the index last.
std::vector<std::string> splitFileNames(std::size_t partCount, Compression compression);

/// What sitemaps.org would say of a site's XML sitemap as the export writes it. `text` is that of its file,
/// and `siteUrl` as in XmlValidationBase.
std::vector<XmlFinding> validateAsPublished(std::string_view text, std::string siteUrl);

/// How writing a split sitemap went.
struct [[nodiscard]] SplitResult {
  platform::FileResult result;
  std::filesystem::path path = {};  // of the file that could not be written
};

/// Writes the files into an existing folder, replacing those of the same names. The index comes last, so that
/// it never names a file that is not there. `startUrl` as for sitemapIndex().
SplitResult writeSplit(const SplitSitemap& sitemap, std::string_view startUrl, Compression compression,
                       const std::filesystem::path& folder);

}  // namespace sitemaps
