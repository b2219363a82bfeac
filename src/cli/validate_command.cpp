#include "cli/validate_command.h"

#include <iostream>
#include <optional>
#include <vector>

#include "platform/gzip.h"
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
                        const std::string& contents) {
  for (const sitemaps::XmlFinding& finding : findings) printFinding(finding);
  const std::string path = printable(file.native());
  if (findings.empty()) {
    std::cout << path << " is valid: " << contents << ".\n";
    return exitDone;
  }
  std::cout << path << " is not valid: " << findings.size()
            << (findings.size() == 1 ? " fault.\n" : " faults.\n");
  return exitFoundFaults;
}

ExitCode validate(const std::filesystem::path& file, std::string_view text,
                  const sitemaps::XmlValidationBase& base) {
  if (sitemaps::isSitemapIndex(text))
    return reportFindings(file, sitemaps::validateSitemapIndex(text, base), "a sitemap index");
  const std::size_t entries = sitemaps::sitemapEntries(text).size();
  return reportFindings(file, sitemaps::validateXmlSitemap(text, base),
                        std::to_string(entries) + (entries == 1 ? " entry" : " entries"));
}

ExitCode validateSite(const CliContext& context, const std::string& name) {
  const std::filesystem::path file = context.controls.siteFolder(name) / sitemaps::kXmlSitemapFile;
  platform::FileContent content;
  {
    // A sitemap that a scan is still writing is not closed.
    const platform::FolderLock lock(context.controls.siteFolder(name));
    if (const auto refused = reportLockFailure(lock, context, name)) return *refused;
    content = platform::readFile(file);
  }
  if (!content.result.ok()) return reportFileFailure("Could not read", file, content.result);
  sitemaps::XmlValidationBase base = sitemaps::validationBaseNow();
  base.siteUrl = store::readSite(context.controls, name).details.url;
  base.empty = sitemaps::EmptyElements::areLeftOut;
  return validate(file, content.text, base);
}

/// As large sitemaps are published.
ExitCode validateCompressed(const std::filesystem::path& file, std::string_view content) {
  const platform::Gunzipped unpacked = platform::gunzipped(content, sitemaps::kMaxSitemapBytes);
  switch (unpacked.failure) {
    case platform::GunzipFailure::damaged:
      return reportFileFailure("Could not unpack", file,
                               {platform::FileStatus::failed, "the file is damaged or cut off"});
    case platform::GunzipFailure::tooLarge:
      return reportFindings(file, {{0, "", "Unpacked, the file is larger than 50 MB (52,428,800 bytes)"}},
                            {});
    default:
      return validate(file, unpacked.text, sitemaps::validationBaseNow());
  }
}

}  // namespace

ExitCode validateSitemap(const CliContext& context, const std::string& nameOrFile) {
  if (context.hasSite(nameOrFile)) return validateSite(context, nameOrFile);
  if (!platform::somethingAt(nameOrFile)) {
    printError("There is no site and no file named \"" + printable(nameOrFile) + "\".");
    return exitBadInput;
  }
  const platform::FileContent content = platform::readFile(nameOrFile);
  if (!content.result.ok()) return reportFileFailure("Could not read", nameOrFile, content.result);
  if (platform::isGzip(content.text)) return validateCompressed(nameOrFile, content.text);
  return validate(nameOrFile, content.text, sitemaps::validationBaseNow());
}

}  // namespace cli
