#include "cli/export_command.h"

#include <iostream>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "cli/document_output.h"
#include "platform/gzip.h"
#include "sitemaps/broken_links_export.h"
#include "sitemaps/script_text.h"
#include "sitemaps/site_export.h"
#include "sitemaps/xml_format.h"
#include "store/site_list.h"

namespace cli {

namespace {

ExitCode refuse(std::string_view sentence) {
  printError(sentence);
  return exitBadInput;
}

/// Says which of the options do not go together; nothing when all do.
std::optional<ExitCode> reportOddOptions(const ExportOptions& options) {
  if (options.layout && options.kind != ExportKind::html) return refuse("--layout is for the HTML sitemap.");
  if (options.format && options.kind != ExportKind::broken)
    return refuse("--format is for the broken pages.");
  if (options.splitFolder && options.kind != ExportKind::xml)
    return refuse("--split is for the XML sitemap.");
  if (options.gzip && options.kind != ExportKind::xml) return refuse("--gzip is for the XML sitemap.");
  if (options.splitFolder && options.output) return refuse("--split takes the place of --output.");
  if (!options.splitFolder && !options.output)
    return refuse("--output is required: a file, or - for standard output.");
  if (options.splitFolder.value_or(options.output.value_or("")).empty())
    return refuse("The file has no name.");
  if (options.gzip && options.output == kStandardOutput && isatty(STDOUT_FILENO) != 0)
    return refuse("Compressed data is not for a terminal.");
  return {};
}

ExitCode writeOutput(const ExportOptions& options, std::string_view text) {
  return writeDocument(*options.output, options.force, text);
}

ExitCode reportUnusable(const ExportOptions& options, const sitemaps::ExportedDocument& document) {
  const platform::FileResult cause = {platform::FileStatus::failed, document.reason};
  switch (document.failure) {
    case sitemaps::ExportFailure::busy:
      return reportBusySite(options.siteName);
    case sitemaps::ExportFailure::missing:
      printError(sitemaps::kExportMissing);
      return reportFileFailure("Could not read", document.path, cause);
    default:
      std::cerr << sitemaps::kExportUnusable;
      return reportFileFailure("Could not use", document.path, cause);
  }
}

ExitCode exportHtml(const CliContext& context, const ExportOptions& options) {
  const sitemaps::Layout* layout = sitemaps::layoutNamed(options.layout.value_or("3c"));
  if (layout == nullptr) return refuse("There is no layout \"" + printable(*options.layout) + "\".");
  const auto document = sitemaps::exportedHtml(context.controls, options.siteName, *layout);
  if (document.failure != sitemaps::ExportFailure::none) return reportUnusable(options, document);
  if (sitemaps::holdsScriptText(document.text)) {
    printWarning(
        "The sitemap holds text that a browser may run as a program; it comes from the pages of the "
        "website.");
  }
  return writeOutput(options, document.text);
}

ExitCode exportSplit(const CliContext& context, const ExportOptions& options, std::string_view text) {
  const sitemaps::SplitSitemap sitemap(text);
  const std::filesystem::path folder = *options.splitFolder;
  const auto compression = options.gzip ? sitemaps::Compression::gzip : sitemaps::Compression::none;
  const std::string startUrl = store::readSite(context.controls, options.siteName).details.url;
  if (sitemap.partCount() == 0 || startUrl.empty()) {
    printError(startUrl.empty() ? "The site has no URL, which the index needs."
                                : "The sitemap holds no pages.");
    return exitFileFailure;
  }
  const auto names = sitemaps::splitFileNames(sitemap.partCount(), compression);
  for (const std::string& name : names) {
    if (!options.force && platform::somethingAt(folder / name)) return reportExisting(folder / name);
  }
  const platform::FileResult made = platform::makeFolder(folder);
  if (!made.ok() && made.status != platform::FileStatus::exists)
    return reportFileFailure("Could not make", folder, made);
  const auto written = sitemaps::writeSplit(sitemap, startUrl, compression, folder);
  if (!written.result.ok()) return reportFileFailure("Could not write", written.path, written.result);
  std::cout << "Written to " << printable(folder.native()) << ":\n ";
  for (const std::string& name : names) std::cout << ' ' << name;
  std::cout << '\n';
  return exitDone;
}

ExitCode exportXml(const CliContext& context, const ExportOptions& options) {
  const auto document = sitemaps::exportedXml(context.controls, options.siteName);
  if (document.failure != sitemaps::ExportFailure::none) return reportUnusable(options, document);
  if (options.splitFolder) return exportSplit(context, options, document.text);
  if (sitemaps::SplitSitemap(document.text).partCount() > 1)
    printWarning("The sitemap is more than search engines take in one file; --split writes several.");
  std::optional<std::string> compressed;
  if (options.gzip) {
    compressed = platform::gzipped(document.text);
    if (!compressed) {
      printError("There is not enough memory to compress the sitemap.");
      return exitFileFailure;
    }
  }
  return writeOutput(options, compressed ? *compressed : document.text);
}

ExitCode exportBroken(const CliContext& context, const ExportOptions& options) {
  const platform::FolderLock lock(context.controls.siteFolder(options.siteName));
  if (const auto refused = reportLockFailure(lock, context, options.siteName)) return *refused;
  const store::SelectedSite site = store::readSite(context.controls, options.siteName);
  if (!site.result.ok()) return reportFileFailure("Could not read", site.path, site.result);
  const std::filesystem::path folder = context.controls.siteFolder(options.siteName);
  if (!platform::somethingAt(folder / store::kBadLinksFile) &&
      !platform::somethingAt(folder / sitemaps::kXmlSitemapFile)) {
    printError("The site \"" + printable(options.siteName) + "\" has not been scanned yet.");
    return exitFileFailure;
  }
  const std::string format = options.format.value_or("txt");
  if (format == "html") return writeOutput(options, sitemaps::brokenLinksHtml(site.details.badLinks));
  if (format == "txt") return writeOutput(options, sitemaps::brokenLinksText(site.details.badLinks));
  return writeOutput(
      options, sitemaps::brokenLinksCsv(context.reasons.lookUp(options.siteName, site.details.badLinks)));
}

}  // namespace

ExitCode exportSite(const CliContext& context, const ExportOptions& options) {
  if (const auto odd = reportOddOptions(options)) return *odd;
  if (!context.hasSite(options.siteName)) return reportUnknownSite(options.siteName);
  switch (options.kind) {
    case ExportKind::html:
      return exportHtml(context, options);
    case ExportKind::xml:
      return exportXml(context, options);
    default:
      return exportBroken(context, options);
  }
}

}  // namespace cli
