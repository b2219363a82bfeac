// The commands that show and change the list of sites. Each returns the program's exit code.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/cli_context.h"
#include "cli/confirmation.h"

namespace cli {

enum class OutputStyle { text, json };

ExitCode listSites(const CliContext& context, OutputStyle style);

struct AddOptions {
  std::string siteName;  // as typed
  std::string url;       // as typed
  GivenSettings settings = {};
  bool passwordFromInput = false;
};

ExitCode addSite(const CliContext& context, const AddOptions& options);

struct EditOptions {
  std::string siteName;
  std::optional<std::string> newName = {};  // as typed
  std::optional<std::string> newUrl = {};   // as typed
  std::optional<bool> ignoreRobots = {};
  GivenSettings settings = {};
  bool passwordFromInput = false;
};

/// What is not given stays as it is.
ExitCode editSite(const CliContext& context, const EditOptions& options);

ExitCode deleteSite(const CliContext& context, const std::string& name, Confirmation confirmation);

struct FilterOptions {
  std::string siteName;
  std::vector<std::string> deletions = {};  // each takes away one filter of exactly this text
  std::vector<std::string> additions = {};
};

/// Changes the site's filters, all or none, and lists them.
ExitCode changeFilters(const CliContext& context, const FilterOptions& options);

ExitCode showSite(const CliContext& context, const std::string& name, OutputStyle style);

/// Prints examples of what the site's last scan left out.
ExitCode showLeftOut(const CliContext& context, const std::string& name);

/// Prints the data folder, or the folder of a site.
ExitCode printFolder(const CliContext& context, const std::optional<std::string>& siteName);

}  // namespace cli
