#include "cli/site_commands.h"

#include <algorithm>
#include <iostream>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "cli/left_out_output.h"
#include "cli/password.h"
#include "cli/site_output.h"
#include "crawler/left_out_file.h"
#include "crawler/page_journal.h"
#include "crawler/site_password.h"
#include "platform/text.h"
#include "sitemaps/former_set.h"
#include "store/filters_file.h"
#include "store/site_input.h"
#include "store/site_list.h"

namespace cli {

namespace {

/// Prints the rules' own texts. All but the first rule's begin with a line feed, which sets off nothing here.
ExitCode reportInputErrors(std::string_view errors) {
  if (errors.starts_with('\n')) errors.remove_prefix(1);
  printError(errors);
  return exitBadInput;
}

/// A record holds one element a line, in UTF-8: what breaks that would never be read again. Fields of a
/// window cannot hold such text, arguments can.
bool fitsOneLine(std::string_view text) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; };
  return std::none_of(text.begin(), text.end(), isControl) && platform::decodeUtf8(std::string(text)) == text;
}

ExitCode reportOddCharacters() {
  printError("A site's name and URL cannot contain line breaks, other control characters or invalid UTF-8.");
  return exitBadInput;
}

/// Says why a site could not be changed; nothing when it was.
std::optional<ExitCode> reportUnsaved(const store::SaveResult& result, std::string_view what,
                                      const std::string& siteName) {
  switch (result.outcome) {
    case store::SaveOutcome::busy:
      return reportBusySite(siteName);
    case store::SaveOutcome::failed:
      return reportFileFailure(what, result.path, result.file);
    default:
      break;
  }
  if (!result.state.ok()) {
    printWarning("What is remembered of the site could not follow: " + printable(result.state.error));
  }
  return {};
}

/// What was given, checked and completed; nothing after a report of what is wrong with it.
std::optional<store::SiteEdit> checkEdit(const EditOptions& options) {
  if (!fitsOneLine(options.newName.value_or("")) || !fitsOneLine(options.newUrl.value_or(""))) {
    reportOddCharacters();
    return {};
  }
  store::SiteEdit edit{.ignoreRobots = options.ignoreRobots};
  std::string errors;
  if (options.newName) {
    store::CheckedText name = store::checkSiteName(*options.newName);
    edit.name = std::move(name.text);
    errors += name.error;
  }
  if (options.newUrl) {
    store::CheckedText url = store::checkSiteUrl(*options.newUrl);
    edit.url = std::move(url.text);
    errors += url.error;
  }
  if (errors.empty()) return edit;
  reportInputErrors(errors);
  return {};
}

/// Says why the site's settings could not be changed; nothing when they were.
std::optional<ExitCode> saveSettings(const CliContext& context, const std::string& name,
                                     const GivenSettings& given) {
  if (given.empty()) return {};
  const auto saved = store::changeSettings(context.controls, context.state, name, [&](auto& settings) {
    for (const GivenSetting& each : given) each.applyTo(settings);
  });
  if (saved.ok()) return {};
  if (saved.status == platform::FileStatus::busy) return reportBusySite(name);
  return reportFileFailure("Could not save", store::settingsFile(context.state, name), saved);
}

/// A password that is to be kept.
struct NewPassword {
  bool isFine = true;  // false after a report
  std::optional<std::string> text = {};
};

/// Takes it from standard input where that is wanted. `settings` are those that the site is going to have.
NewPassword takePassword(bool fromInput, store::SiteSettings settings, const GivenSettings& given) {
  if (!fromInput) return {};
  for (const GivenSetting& each : given) each.applyTo(settings);
  if (settings.httpUser.empty()) {
    printError(kNoUser);
    return {.isFine = false};
  }
  std::optional<std::string> password = readPassword(std::cin);
  return {.isFine = password.has_value(), .text = std::move(password)};
}

/// Keeps it, if there is one, for the site as it is stored now. Says why it could not be kept.
std::optional<ExitCode> savePassword(const CliContext& context, const std::string& name,
                                     const NewPassword& password) {
  if (!password.text) return {};
  const std::string url = store::readSite(context.controls, name).details.url;
  const auto key = crawler::passwordKey(url, context.settingsOf(name));
  if (!key) {
    printError(kNoUser);
    return exitBadInput;
  }
  platform::DesktopSecretStore secrets;
  if (keepPassword(secrets, *key, *password.text)) return {};
  return exitFileFailure;
}

/// Shows what is stored now.
ExitCode printStoredSite(const CliContext& context, const std::string& name) {
  const auto site = store::readSite(context.controls, name);
  if (!site.result.ok()) return reportFileFailure("Could not read", site.path, site.result);
  const std::string settings = store::settingsAsOptions(context.settingsOf(name));
  std::cout << printable(name) << ": " << printable(site.details.url)
            << (site.details.ignoreRobots ? " (robots.txt ignored)" : "")
            << (settings.empty() ? "" : " (" + printable(settings) + ")") << '\n';
  return exitDone;
}

/// Changes the filters; false after a report of what is wrong with the change.
bool changeAsTold(std::vector<std::string>& filters, const FilterOptions& options) {
  for (const std::string& text : options.deletions) {
    const auto found = std::find(filters.begin(), filters.end(), text);
    if (found == filters.end()) {
      printError("There is no filter \"" + printable(text) + "\". Nothing was changed.");
      return false;
    }
    filters.erase(found);
  }
  for (const std::string& text : options.additions) {
    const std::string_view filter = store::filterText(text);
    if (filter.empty()) {
      printError("Cannot Add Filter: There is nothing to add!");
      return false;
    }
    if (!fitsOneLine(filter)) {
      printError("A filter cannot contain line breaks, other control characters or invalid UTF-8.");
      return false;
    }
    filters.emplace_back(filter);
  }
  return true;
}

}  // namespace

ExitCode listSites(const CliContext& context, OutputStyle style) {
  std::vector<SiteRow> rows;
  ExitCode code = exitDone;
  for (const std::string& name : context.siteNames) {
    const auto site = store::readSite(context.controls, name);
    rows.push_back({name, site.details, {}});
    if (site.result.ok()) continue;
    rows.back().problem = fileSentence("Could not read", site.path, site.result);
    printWarning(*rows.back().problem);
    code = exitFileFailure;
  }
  if (style == OutputStyle::json) {
    printSitesJson(rows);
  } else if (rows.empty()) {
    std::cerr << "There are no sites yet. Add one with: veskel-cli add NAME URL\n";
  } else {
    printSitesTable(rows);
  }
  return code;
}

ExitCode addSite(const CliContext& context, const AddOptions& options) {
  if (!fitsOneLine(options.siteName) || !fitsOneLine(options.url)) return reportOddCharacters();
  const store::SiteInput input = store::checkSiteInput(options.siteName, options.url);
  if (!input.error.empty()) return reportInputErrors(input.error);
  const NewPassword password = takePassword(options.passwordFromInput, {}, options.settings);
  if (!password.isFine) return exitBadInput;

  const auto saved = context.sites().createNewSite(input.name, input.url);
  if (saved.outcome == store::SaveOutcome::nameTaken) {
    printError(store::kCreateNameTaken);
    return exitBadInput;
  }
  if (const auto code = reportUnsaved(saved, "Could not save", input.name)) return *code;
  if (const auto code = saveSettings(context, input.name, options.settings)) return *code;
  if (const auto code = savePassword(context, input.name, password)) return *code;
  return printStoredSite(context, input.name);
}

ExitCode editSite(const CliContext& context, const EditOptions& options) {
  const bool changesRecord = options.newName || options.newUrl || options.ignoreRobots;
  if (!changesRecord && options.settings.empty() && !options.passwordFromInput) {
    printError("There is nothing to change: give --name, --url, --ignore-robots or a setting.");
    return exitBadInput;
  }
  if (!context.hasSite(options.siteName)) return reportUnknownSite(options.siteName);
  const auto edit = checkEdit(options);
  if (!edit) return exitBadInput;
  const NewPassword password =
      takePassword(options.passwordFromInput, context.settingsOf(options.siteName), options.settings);
  if (!password.isFine) return exitBadInput;
  const std::string name = edit->name.value_or(options.siteName);
  // Saving under a taken name could give the other site this URL. Here nobody sees that site, so nothing is
  // done.
  store::SaveResult saved;
  if (changesRecord) {
    saved = context.sites().saveEditedSite(options.siteName, *edit, store::NameClash::refuse);
  }
  if (saved.outcome == store::SaveOutcome::nameTaken) {
    printError(store::renameNameTaken(printable(*edit->name)));
    return exitBadInput;
  }
  if (const auto code = reportUnsaved(saved, "Could not save", options.siteName)) return *code;
  if (const auto code = saveSettings(context, name, options.settings)) return *code;
  if (const auto code = savePassword(context, name, password)) return *code;
  return printStoredSite(context, name);
}

ExitCode deleteSite(const CliContext& context, const std::string& name, Confirmation confirmation) {
  if (!context.hasSite(name)) return reportUnknownSite(name);
  if (const auto code = confirm(confirmation, {"delete the site", "Nothing was deleted."}, name))
    return *code;
  const auto removed = context.sites().deleteSite(name);
  if (const auto code = reportUnsaved(removed, "Could not delete", name)) return *code;
  std::cout << "Deleted " << printable(name) << ".\n";
  return exitDone;
}

ExitCode changeFilters(const CliContext& context, const FilterOptions& options) {
  if (!context.hasSite(options.siteName)) return reportUnknownSite(options.siteName);
  const auto file = context.controls.siteFolder(options.siteName) / store::kFiltersFile;
  const bool changes = !options.deletions.empty() || !options.additions.empty();
  bool isGood = true;
  // A scan reads them from first to last page; looking at them is always possible.
  const store::Filters filters =
      changes ? store::changeFilters(context.controls, options.siteName,
                                     [&](auto& present) { return isGood = changeAsTold(present, options); })
              : store::loadFilterFile(context.controls, options.siteName);
  if (!isGood) return exitBadInput;
  if (filters.result.status == platform::FileStatus::busy) return reportBusySite(options.siteName);
  if (!filters.result.ok())
    return reportFileFailure(changes ? "Could not change" : "Could not read", file, filters.result);
  if (filters.entries.empty()) std::cerr << "The site has no filters.\n";
  for (const std::string& filter : filters.entries) std::cout << printable(filter) << '\n';
  return exitDone;
}

ExitCode showSite(const CliContext& context, const std::string& name, OutputStyle style) {
  if (!context.hasSite(name)) return reportUnknownSite(name);
  const auto site = store::readSite(context.controls, name);
  if (!site.result.ok()) return reportFileFailure("Could not read", site.path, site.result);
  const ShownSite shown{name,
                        context.controls.siteFolder(name),
                        site.details,
                        context.settingsOf(name),
                        context.reasons.lookUp(name, site.details.badLinks),
                        crawler::readLeftOut(context.state, name),
                        crawler::unfinishedScan(context.state, name).has_value(),
                        sitemaps::FormerSet(context.controls, context.state, name).isKept()};
  if (style == OutputStyle::json) {
    printSiteJson(shown);
  } else {
    printSite(shown);
  }
  return exitDone;
}

ExitCode showLeftOut(const CliContext& context, const std::string& name) {
  if (!context.hasSite(name)) return reportUnknownSite(name);
  const crawler::LeftOut leftOut = crawler::readLeftOut(context.state, name);
  if (leftOut.groups.empty()) std::cerr << "Nothing is known to have been left out.\n";
  printExamples(leftOut);
  return exitDone;
}

ExitCode printFolder(const CliContext& context, const std::optional<std::string>& siteName) {
  if (siteName && !context.hasSite(*siteName)) return reportUnknownSite(*siteName);
  const auto folder =
      siteName ? context.controls.siteFolder(*siteName) : context.controls.homeFolderLocation();
  // A program that reads the path needs it byte for byte.
  std::cout << (isatty(STDOUT_FILENO) != 0 ? printable(folder.native()) : folder.native()) << '\n';
  return exitDone;
}

}  // namespace cli
