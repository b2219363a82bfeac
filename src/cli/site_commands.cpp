#include "cli/site_commands.h"

#include <algorithm>
#include <iostream>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "cli/site_output.h"
#include "platform/text.h"
#include "store/add_edit_delete_sites.h"
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

ExitCode reportFailedSave(const store::SaveResult& result) {
  return reportFileFailure("Could not save", result.path, result.file);
}

/// Name and URL of an edited site, after all checks.
struct EditedSite {
  std::string name;
  std::string url;
};

/// Checks what was given; nothing after a report of what is wrong with it.
std::optional<EditedSite> checkEdit(const EditOptions& options, const std::string& currentUrl) {
  EditedSite edited{options.siteName, currentUrl};
  if (!fitsOneLine(options.newName.value_or("")) || !fitsOneLine(options.newUrl.value_or(""))) {
    reportOddCharacters();
    return {};
  }
  std::string errors;
  if (options.newName) {
    store::CheckedText name = store::checkSiteName(*options.newName);
    edited.name = std::move(name.text);
    errors += name.error;
  }
  if (options.newUrl) {
    store::CheckedText url = store::checkSiteUrl(*options.newUrl);
    edited.url = std::move(url.text);
    errors += url.error;
  }
  if (errors.empty()) return edited;
  reportInputErrors(errors);
  return {};
}

/// Saves name and URL where they changed.
ExitCode saveEdit(const CliContext& context, const EditOptions& options, const EditedSite& edited) {
  if (!options.newName && !options.newUrl) return exitDone;
  const store::AddEditDeleteSites sites(context.controls);
  // Saving under a taken name would give the other site this URL. Here nobody sees that site, so nothing is
  // done.
  if (sites.isNameTaken(options.siteName, edited.name)) {
    printError(store::renameNameTaken(printable(edited.name)));
    return exitBadInput;
  }
  const auto saved = sites.saveEditedSite(options.siteName, edited.name, edited.url);
  if (saved.outcome == store::SaveOutcome::failed) return reportFailedSave(saved);
  if (edited.name == options.siteName) return exitDone;
  if (const auto moved = context.reasons.rename(options.siteName, edited.name); !moved.ok()) {
    printWarning("The reasons of the broken pages could not be kept: " + printable(moved.error));
  }
  return exitDone;
}

/// Shows what is stored now, and tells when the record had no place for the new URL.
ExitCode printStoredSite(const CliContext& context, const std::string& name, const std::string& expectedUrl) {
  const auto site = store::readSite(context.controls, name);
  if (!site.result.ok()) return reportFileFailure("Could not read", site.path, site.result);
  if (site.details.url != expectedUrl) {
    return reportFileFailure("Could not change the URL in", context.controls.returnFullFileLocation(name),
                             {platform::FileStatus::failed, "The record has no URL."});
  }
  std::cout << printable(name) << ": " << printable(site.details.url)
            << (site.details.ignoreRobots ? " (robots.txt ignored)" : "") << '\n';
  return exitDone;
}

bool isYes(std::string_view answer) {
  const std::string folded = platform::foldCase(answer);
  return folded == "y" || folded == "yes";
}

/// Asks on the terminal.
bool userWantsDeletion(const std::string& name) {
  std::cerr << "Do you really want to delete the site:\n" << printable(name) << "\n[y/N] " << std::flush;
  std::string answer;
  std::getline(std::cin, answer);
  return isYes(answer);
}

/// The filters after the change; nothing after a report of what is wrong with it.
std::optional<std::vector<std::string>> changedFilters(std::vector<std::string> filters,
                                                       const FilterOptions& options) {
  for (const std::string& text : options.deletions) {
    const auto found = std::find(filters.begin(), filters.end(), text);
    if (found == filters.end()) {
      printError("There is no filter \"" + printable(text) + "\". Nothing was changed.");
      return {};
    }
    filters.erase(found);
  }
  for (const std::string& text : options.additions) {
    const std::string_view filter = store::filterText(text);
    if (filter.empty()) {
      printError("Cannot Add Filter: There is nothing to add!");
      return {};
    }
    if (!fitsOneLine(filter)) {
      printError("A filter cannot contain line breaks, other control characters or invalid UTF-8.");
      return {};
    }
    filters.emplace_back(filter);
  }
  return filters;
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

ExitCode addSite(const CliContext& context, const std::string& typedName, const std::string& typedUrl) {
  if (!fitsOneLine(typedName) || !fitsOneLine(typedUrl)) return reportOddCharacters();
  const store::SiteInput input = store::checkSiteInput(typedName, typedUrl);
  if (!input.error.empty()) return reportInputErrors(input.error);

  const auto saved = store::AddEditDeleteSites(context.controls).createNewSite(input.name, input.url);
  switch (saved.outcome) {
    case store::SaveOutcome::nameTaken:
      printError(store::kCreateNameTaken);
      return exitBadInput;
    case store::SaveOutcome::failed:
      return reportFailedSave(saved);
    case store::SaveOutcome::saved:
      break;
  }
  return printStoredSite(context, input.name, input.url);
}

ExitCode editSite(const CliContext& context, const EditOptions& options) {
  if (!options.newName && !options.newUrl && !options.ignoreRobots) {
    printError("There is nothing to change: give --name, --url or --ignore-robots.");
    return exitBadInput;
  }
  if (!context.hasSite(options.siteName)) return reportUnknownSite(options.siteName);
  // The lock stays with the folder when that is renamed.
  const platform::FolderLock lock(context.controls.siteFolder(options.siteName));
  if (const auto code = reportLockFailure(lock, context, options.siteName)) return *code;

  const auto site = store::readSite(context.controls, options.siteName);
  if (!site.result.ok()) return reportFileFailure("Could not read", site.path, site.result);
  const auto edited = checkEdit(options, site.details.url);
  if (!edited) return exitBadInput;
  if (const auto code = saveEdit(context, options, *edited); code != exitDone) return code;
  if (options.ignoreRobots) {
    const auto turned = store::setIgnoreRobots(context.controls, edited->name, *options.ignoreRobots);
    const auto record = context.controls.returnFullFileLocation(edited->name);
    if (!turned.ok()) return reportFileFailure("Could not turn the robots switch in", record, turned);
  }
  return printStoredSite(context, edited->name, edited->url);
}

ExitCode deleteSite(const CliContext& context, const std::string& name, Confirmation confirmation) {
  if (!context.hasSite(name)) return reportUnknownSite(name);
  if (confirmation == Confirmation::ask) {
    if (isatty(STDIN_FILENO) == 0) {
      printError("Nobody can be asked here whether to delete the site: give --yes.");
      return exitBadInput;
    }
    if (!userWantsDeletion(name)) {
      std::cerr << "Nothing was deleted.\n";
      return exitDone;
    }
  }
  const auto folder = context.controls.siteFolder(name);
  const platform::FolderLock lock(folder);
  if (const auto code = reportLockFailure(lock, context, name)) return *code;
  const auto removed = store::AddEditDeleteSites(context.controls).deleteSite(name);
  if (!removed.ok()) return reportFileFailure("Could not delete", folder, removed);
  if (const auto forgotten = context.reasons.remove(name); !forgotten.ok()) {
    printWarning("The reasons of the broken pages could not be deleted: " + printable(forgotten.error));
  }
  std::cout << "Deleted " << printable(name) << ".\n";
  return exitDone;
}

ExitCode changeFilters(const CliContext& context, const FilterOptions& options) {
  if (!context.hasSite(options.siteName)) return reportUnknownSite(options.siteName);
  const auto file = context.controls.siteFolder(options.siteName) / store::kFiltersFile;
  std::optional<platform::FolderLock> lock;
  const bool changes = !options.deletions.empty() || !options.additions.empty();
  if (changes) {  // a scan reads them from first to last page; looking at them is always possible
    lock.emplace(context.controls.siteFolder(options.siteName));
    if (const auto code = reportLockFailure(*lock, context, options.siteName)) return *code;
  }
  store::Filters filters = store::loadFilterFile(context.controls, options.siteName);
  if (!filters.result.ok()) return reportFileFailure("Could not read", file, filters.result);
  if (changes) {
    auto changed = changedFilters(std::move(filters.entries), options);
    if (!changed) return exitBadInput;
    filters.entries = *std::move(changed);
    const auto saved = store::saveFilters(context.controls, options.siteName, filters.entries);
    if (!saved.ok()) return reportFileFailure("Could not write", file, saved);
  }
  if (filters.entries.empty()) std::cerr << "The site has no filters.\n";
  for (const std::string& filter : filters.entries) std::cout << printable(filter) << '\n';
  return exitDone;
}

ExitCode showSite(const CliContext& context, const std::string& name, OutputStyle style) {
  if (!context.hasSite(name)) return reportUnknownSite(name);
  const auto site = store::readSite(context.controls, name);
  if (!site.result.ok()) return reportFileFailure("Could not read", site.path, site.result);
  const ShownSite shown{name, context.controls.siteFolder(name), site.details,
                        context.reasons.lookUp(name, site.details.badLinks)};
  if (style == OutputStyle::json) {
    printSiteJson(shown);
  } else {
    printSite(shown);
  }
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
