#include "cli/report_command.h"

#include <iostream>
#include <string_view>
#include <utility>

#include "cli/document_output.h"
#include "cli/report_summary.h"
#include "platform/text.h"
#include "report/last_changes.h"
#include "report/report_csv.h"
#include "report/report_database.h"
#include "report/report_html.h"
#include "report/report_json.h"
#include "report/site_report.h"
#include "store/site_list.h"

namespace cli {

namespace {

ExitCode refuse(std::string_view sentence) {
  printError(sentence);
  return exitBadInput;
}

ExitCode reportUnreadable(const std::string& siteName, const platform::FileResult& result) {
  const std::string site = "\"" + printable(siteName) + "\"";
  if (result.status == platform::FileStatus::missing) {
    printError("There is no report of " + site + " yet: a scan that is complete makes one.");
  } else {
    const bool isOurs = result.error.starts_with("The report");  // and no matter of the file system
    printError("The report of " + site + " could not be read. " + printable(result.error) + "." +
               (isOurs ? " The next scan makes a new one." : ""));
  }
  return exitFileFailure;
}

/// "html", "json" or "csv"; nothing for other endings.
std::optional<std::string> formatOf(const ReportOptions& options) {
  if (options.format) return options.format;
  const std::string ending = platform::foldCase(std::filesystem::path(*options.output).extension().native());
  if (ending == ".html" || ending == ".htm") return "html";
  if (ending == ".json" || ending == ".csv") return ending.substr(1);
  return {};
}

std::string documentOf(const report::SiteReport& report, std::string_view format, bool broken) {
  if (format == "html") return reportHtml(report);
  if (format == "json") return broken ? brokenJson(report) : reportJson(report);
  return broken ? brokenCsv(report) : pagesCsv(report);
}

}  // namespace

ExitCode showReport(const CliContext& context, const ReportOptions& options) {
  const bool isDocument = options.output || options.format;
  const std::string output = options.output.value_or(std::string(kStandardOutput));
  if (output.empty()) return refuse("The file has no name.");
  const std::optional<std::string> format = isDocument ? formatOf(options) : std::nullopt;
  if (isDocument && !format)
    return refuse("Which format? The file's name ends in .html, .json or .csv, or give --format.");
  if (format == "html" && options.broken) return refuse("--broken is for the summary, json and csv.");
  if (!context.hasSite(options.siteName)) return reportUnknownSite(options.siteName);
  if (isDocument && output != kStandardOutput && !options.force && platform::somethingAt(output))
    return reportExisting(output);

  const std::string startUrl = store::readSite(context.controls, options.siteName).details.url;
  const auto [result, report] = report::readSiteReport(context.state, options.siteName, startUrl);
  if (!result.ok()) return reportUnreadable(options.siteName, result);
  if (isDocument) return writeDocument(output, options.force, documentOf(report, *format, options.broken));
  if (options.broken) {
    printBrokenPages(report);
  } else {
    printReport(report);
  }
  return exitDone;
}

ExitCode showChanges(const CliContext& context, const std::string& siteName) {
  if (!context.hasSite(siteName)) return reportUnknownSite(siteName);
  const report::LastChanges changes = report::readLastChanges(context.state, siteName);
  if (!changes.result.ok()) return reportUnreadable(siteName, changes.result);
  if (!changes.areKnown()) {
    std::cerr << "There is one complete scan so far, and nothing to compare it with.\n";
    return exitDone;
  }
  printLines(changes.text);
  return exitDone;
}

}  // namespace cli
