#include "cli/validate_command.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <vector>

#include "platform/gzip.h"
#include "sitemaps/site_export.h"
#include "sitemaps/split_sitemaps.h"
#include "sitemaps/xml_format.h"
#include "sitemaps/xml_validation.h"
#include "store/site_list.h"

namespace cli {

namespace {

/// "entry 12, lastmod: The date lies in the future."
void printFinding(const sitemaps::XmlFinding& finding) {
  std::string place = finding.entry > 0 ? "entry " + std::to_string(finding.entry) : std::string("sitemap");
  if (!finding.element.empty()) place += ", " + finding.element;
  std::cout << printable(place) << ": " << printable(finding.message) << '\n';
}

/// Prints the findings; without any, what the file holds: "2 entries".
ExitCode reportFindings(const std::filesystem::path& file, const std::vector<sitemaps::XmlFinding>& findings,
                        const std::string& contents, ShownFindings shown) {
  constexpr std::size_t kFirst = 100;
  const std::size_t count = shown == ShownFindings::all ? findings.size() : std::min(findings.size(), kFirst);
  for (std::size_t i = 0; i < count; ++i) printFinding(findings[i]);
  if (count < findings.size()) std::cout << "and " << findings.size() - count << " more; --all prints all.\n";
  const std::string path = printable(file.native());
  if (findings.empty()) {
    std::cout << path << " is valid: " << contents << ".\n";
    return exitDone;
  }
  std::cout << path << " is not valid: " << findings.size()
            << (findings.size() == 1 ? " fault.\n" : " faults.\n");
  return exitFoundFaults;
}

std::string entriesOf(std::string_view text) {
  const std::size_t entries = sitemaps::sitemapEntries(text).size();
  return std::to_string(entries) + (entries == 1 ? " entry" : " entries");
}

ExitCode validateText(const std::filesystem::path& file, std::string_view text, ShownFindings shown) {
  const sitemaps::XmlValidationBase base = sitemaps::validationBaseNow();
  if (sitemaps::isSitemapIndex(text))
    return reportFindings(file, sitemaps::validateSitemapIndex(text, base), "a sitemap index", shown);
  return reportFindings(file, sitemaps::validateXmlSitemap(text, base), entriesOf(text), shown);
}

ExitCode validateSite(const CliContext& context, const std::string& name, ShownFindings shown) {
  const std::filesystem::path file = context.controls.siteFolder(name) / sitemaps::kXmlSitemapFile;
  platform::FileContent content;
  {
    // A sitemap that a scan is still writing is not closed.
    const platform::FolderLock lock(context.controls.siteFolder(name));
    if (const auto refused = reportLockFailure(lock, context, name)) return *refused;
    content = platform::readFile(file);
  }
  if (!content.result.ok()) return reportFileFailure("Could not read", file, content.result);
  const auto findings =
      sitemaps::validateAsPublished(content.text, store::readSite(context.controls, name).details.url);
  return reportFindings(file, findings, entriesOf(content.text), shown);
}

/// As large sitemaps are published.
ExitCode validateCompressed(const std::filesystem::path& file, std::string_view content,
                            ShownFindings shown) {
  const platform::Gunzipped unpacked = platform::gunzipped(content, sitemaps::kMaxSitemapBytes);
  switch (unpacked.failure) {
    case platform::GunzipFailure::damaged:
      return reportFileFailure("Could not unpack", file,
                               {platform::FileStatus::failed, "the file is damaged or cut off"});
    case platform::GunzipFailure::tooLarge:
      return reportFindings(file, {{0, "", "Unpacked, the file is larger than 50 MB (52,428,800 bytes)"}}, {},
                            shown);
    default:
      return validateText(file, unpacked.text, shown);
  }
}

}  // namespace

ExitCode validateSitemap(const CliContext& context, const std::string& nameOrFile, ShownFindings shown) {
  if (context.hasSite(nameOrFile)) return validateSite(context, nameOrFile, shown);
  if (!platform::somethingAt(nameOrFile)) {
    printError("There is no site and no file named \"" + printable(nameOrFile) + "\".");
    return exitBadInput;
  }
  const platform::FileContent content = platform::readFile(nameOrFile);
  if (!content.result.ok()) return reportFileFailure("Could not read", nameOrFile, content.result);
  if (platform::isGzip(content.text)) return validateCompressed(nameOrFile, content.text, shown);
  return validateText(nameOrFile, content.text, shown);
}

}  // namespace cli
