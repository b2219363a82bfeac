// What every command of the program works with: where the sites are, and how to talk to the user.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "store/add_edit_delete_sites.h"
#include "store/broken_reasons.h"
#include "store/global_controls.h"
#include "store/site_settings.h"

namespace cli {

/// What the program tells its caller. The main help lists them.
enum ExitCode : int {
  exitDone = 0,
  exitFoundBroken = 1,  // a scan finished and found broken pages
  exitFoundFaults = 1,  // a sitemap was checked and is not valid
  exitFoundNewer = 1,   // there is a newer version of the program
  exitBadInput = 2,     // bad usage or input
  exitUnreachable = 3,  // a scan's start URL, or the list of versions
  exitFileFailure = 4,  // a file could not be read or written, a scan failed, the list of versions is broken
  exitSiteBusy = 5,     // another program scans the site
  exitStopped = 130,    // by SIGINT, SIGTERM or SIGHUP
};

/// A setting that the arguments give, checked already.
struct GivenSetting {
  const store::SettingField* field;
  std::string text;

  void applyTo(store::SiteSettings& settings) const { static_cast<void>(field->setText(settings, text)); }
};
using GivenSettings = std::vector<GivenSetting>;

/// Made once, before the command runs.
struct CliContext {
  store::GlobalControls controls;
  store::StateFolder state;
  store::BrokenReasons reasons;
  std::vector<std::string> siteNames;  // as listed, sorted

  /// What changes sites.
  store::AddEditDeleteSites sites() const { return {controls, state}; }

  /// How the site is scanned; warns of what is wrong with its settings.
  store::SiteSettings settingsOf(std::string_view siteName) const;

  /// Sites are looked up in the listing alone, so that a name like "../x" leads nowhere.
  bool hasSite(std::string_view name) const;
};

/// Makes the data folder where it is missing, upgrades older records and lists the sites. Says on stderr what
/// went wrong; nothing when no command can run.
std::optional<CliContext> openContext();

/// `text` of a site or record made fit to be shown: control characters, which a terminal would obey,
/// characters that reverse the direction of text, and invalid UTF-8 become U+FFFD.
std::string printable(std::string_view text);

// Sentences on stderr. What they quote has to be printable() already; the report functions see to it
// themselves.
void printError(std::string_view sentence);
void printWarning(std::string_view sentence);

ExitCode reportUnknownSite(std::string_view name);
ExitCode reportBusySite(std::string_view name);

/// "Could not write /home/me/x: No space left on device", for `what` "Could not write".
std::string fileSentence(std::string_view what, const std::filesystem::path& path,
                         const platform::FileResult& result);
ExitCode reportFileFailure(std::string_view what, const std::filesystem::path& path,
                           const platform::FileResult& result);

/// Says why the lock on the site's folder was not given; nothing when it was.
std::optional<ExitCode> reportLockFailure(const platform::FolderLock& lock, const CliContext& context,
                                          std::string_view siteName);

}  // namespace cli
