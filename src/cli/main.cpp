// veskel-cli: sites and their sitemaps from a terminal or a timer.
#include <exception>
#include <functional>
#include <iostream>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/check_command.h"
#include "cli/cli_context.h"
#include "cli/completion.h"
#include "cli/export_command.h"
#include "cli/report_command.h"
#include "cli/restore_command.h"
#include "cli/scan_command.h"
#include "cli/site_commands.h"
#include "cli/update_command.h"
#include "cli/validate_command.h"
#include "platform/kernel_version.h"
#include "sitemaps/layouts.h"
#include "store/site_settings.h"
#include "update/update_check.h"

namespace {

using cli::CliContext;

/// The command that the arguments ask for, ready to run.
using Command = std::function<int(const CliContext&)>;

constexpr const char* kMainFooter = R"(Examples:
  veskel-cli add shop https://www.example.com
  veskel-cli filters shop --add "?sessionid="
  veskel-cli scan shop
  veskel-cli show shop
  veskel-cli report shop
  veskel-cli export shop xml --output sitemap.xml

Exit codes:
  0    done
  1    the scan finished and found broken pages (see scan --fail-on), or a
       sitemap is not valid
  2    bad usage or input
  3    the start URL could not be reached
  4    a file could not be read or written, a password could not be kept, or a
       scan ran out of memory
  5    the site is being scanned already
  130  stopped by SIGINT, SIGTERM or SIGHUP

The sites lie in "Library/Application Support/Quillfern/Veskel" in your home
directory; "veskel-cli where" prints the path.)";

CLI::Option* addName(CLI::App* command, std::string& name) {
  return command->add_option("NAME", name, "The site's name")->required()->type_name("");
}

/// Text as given, also when it is empty; nothing when the option was not used.
std::optional<std::string> givenText(const CLI::Option* option) {
  if (option->count() == 0) return {};
  return option->results().back();
}

CLI::Option* addText(CLI::App* command, const std::string& flag, const std::string& valueName,
                     const std::string& description) {
  return command->add_option(flag)->description(description)->type_name(valueName);
}

/// An option that takes one text each time it is used, and may be used several times.
CLI::Option* addTexts(CLI::App* command, const std::string& flag, const std::string& description) {
  return addText(command, flag, "TEXT ...", description)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

/// What stands for a setting's value in the help.
std::string valueName(const store::WholeNumber&) {
  return "N";
}
std::string valueName(const store::Seconds&) {
  return "SECONDS";
}
std::string valueName(const store::Choice& choice) {
  std::string names;
  for (const auto& option : choice.options) names += (names.empty() ? "" : "|") + std::string(option.name);
  return names;
}
std::string valueName(const store::Text&) {
  return "TEXT";
}
std::string valueName(const store::Lines&) {
  return "LINE";
}

constexpr const char* kKeepPassword = "and keep it in the desktop's secret service";

/// A choice between no and yes: its option alone means yes.
bool isSwitch(const store::SettingField& field) {
  const auto* choice = std::get_if<store::Choice>(&field.value);
  return choice != nullptr && choice->options[1].name == "yes";
}

bool isRepeatable(const store::SettingField& field) {
  return std::holds_alternative<store::Lines>(field.value);
}

/// Options of a command for all settings of a site; gives those that were used.
std::function<cli::GivenSettings()> addSettings(CLI::App* command) {
  std::vector<std::pair<const store::SettingField*, const CLI::Option*>> options;
  for (const store::SettingField& field : store::kSiteSettings) {
    const auto check = [&field](const std::string& text) -> std::string {
      store::SiteSettings settings;
      return field.setText(settings, text);
    };
    const std::string name = isSwitch(field)
                                 ? "[yes|no]"
                                 : std::visit([](const auto& kind) { return valueName(kind); }, field.value);
    std::string help = std::string(field.help) + ": " + field.allowed();
    for (const std::string& text : field.texts({})) {
      if (!text.empty()) help += " [" + text + "]";
    }
    if (isRepeatable(field)) help += "; to be given once for each, or '' for none";
    auto* option = addText(command, "--" + std::string(field.key), name, help);
    option->check(CLI::Validator(check, ""));
    if (isSwitch(field)) option->expected(0, 1);
    if (isRepeatable(field)) option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    options.emplace_back(&field, option);
  }
  return [options = std::move(options)] {
    cli::GivenSettings given;
    for (const auto& [field, option] : options) {
      if (isRepeatable(*field) && option->count() > 0) {
        given.push_back({field, ""});  // in place of those that the site has
        for (const std::string& text : option->results()) given.push_back({field, text});
      } else if (auto text = givenText(option)) {
        given.push_back({field, isSwitch(*field) && text->empty() ? "yes" : *std::move(text)});
      }
    }
    return given;
  };
}

void addPasswordFlag(CLI::App* command, bool& fromInput, const std::string& use) {
  command->add_flag("--password-stdin", fromInput,
                    "Take the password for --http-user from standard input, " + use);
}

void addSitesCommand(CLI::App& app, Command& chosen) {
  auto* command = app.add_subcommand("sites", "List the sites with the counts of their last scan");
  auto json = std::make_shared<bool>(false);
  command->add_flag("--json", *json, "Print a JSON array with one object a site");
  command->callback([json, &chosen] {
    chosen = [json](const CliContext& context) {
      return cli::listSites(context, *json ? cli::OutputStyle::json : cli::OutputStyle::text);
    };
  });
}

void addAddCommand(CLI::App& app, Command& chosen) {
  auto* command = app.add_subcommand("add", "Add a site");
  auto options = std::make_shared<cli::AddOptions>();
  addName(command, options->siteName);
  command->add_option("URL", options->url, "Where a scan of the site starts; http:// is added where missing")
      ->required()
      ->type_name("");
  const auto settings = addSettings(command);
  addPasswordFlag(command, options->passwordFromInput, kKeepPassword);
  command->footer("Example:\n  veskel-cli add shop www.example.com");
  command->callback([options, settings, &chosen] {
    options->settings = settings();
    chosen = [options](const CliContext& context) { return cli::addSite(context, *options); };
  });
}

void addEditCommand(CLI::App& app, Command& chosen) {
  auto* command =
      app.add_subcommand("edit", "Rename a site, change its URL, its robots switch or how it is scanned");
  auto options = std::make_shared<cli::EditOptions>();
  addName(command, options->siteName);
  const auto* newName = addText(command, "--name", "NEW", "Rename the site");
  const auto* newUrl = addText(command, "--url", "URL", "Where a scan starts from now on");
  const auto* robots = addText(command, "--ignore-robots", "yes|no", "Whether scans ignore robots.txt")
                           ->check(CLI::IsMember({"yes", "no"}, CLI::ignore_case).description(""));
  const auto settings = addSettings(command);
  addPasswordFlag(command, options->passwordFromInput,
                  std::string(kKeepPassword) + "; an empty line removes it");
  command->footer("Example:\n  veskel-cli edit shop --name store --url https://store.example.com");
  command->callback([options, newName, newUrl, robots, settings, &chosen] {
    options->settings = settings();
    options->newName = givenText(newName);
    options->newUrl = givenText(newUrl);
    if (const auto answer = givenText(robots)) options->ignoreRobots = *answer == "yes";
    chosen = [options](const CliContext& context) { return cli::editSite(context, *options); };
  });
}

void addDeleteCommand(CLI::App& app, Command& chosen) {
  auto* command = app.add_subcommand("delete", "Delete a site with all its sitemaps");
  struct Arguments {
    std::string name;
    bool yes = false;
  };
  auto arguments = std::make_shared<Arguments>();
  addName(command, arguments->name);
  command->add_flag("--yes", arguments->yes, "Do not ask; needed where no terminal is there to ask on");
  command->footer("Example:\n  veskel-cli delete shop --yes");
  command->callback([arguments, &chosen] {
    chosen = [arguments](const CliContext& context) {
      const auto confirmation = arguments->yes ? cli::Confirmation::given : cli::Confirmation::ask;
      return cli::deleteSite(context, arguments->name, confirmation);
    };
  });
}

void addRestoreCommand(CLI::App& app, Command& chosen) {
  auto* command = app.add_subcommand("restore", "Put back the edited sitemaps that a scan has replaced");
  auto name = std::make_shared<std::string>();
  auto yes = std::make_shared<bool>(false);
  addName(command, *name);
  command->add_flag("--yes", *yes, "Do not ask; needed where no terminal is there to ask on");
  command->footer(
      "A scan that replaces edited sitemaps keeps them. Those that make way here are kept in their place, so "
      "that restoring twice changes nothing.\n\n"
      "Example:\n  veskel-cli restore shop --yes");
  command->callback([name, yes, &chosen] {
    chosen = [name, yes](const CliContext& context) {
      return cli::restoreSite(context, *name, *yes ? cli::Confirmation::given : cli::Confirmation::ask);
    };
  });
}

void addFiltersCommand(CLI::App& app, Command& chosen) {
  auto* command =
      app.add_subcommand("filters", "List or change the texts that keep links out of the sitemaps");
  auto options = std::make_shared<cli::FilterOptions>();
  addName(command, options->siteName);
  const auto* additions = addTexts(command, "--add", "Leave out links that contain TEXT, in any case");
  const auto* deletions = addTexts(command, "--delete", "Take away one filter that is exactly TEXT");
  command->footer(
      "Deletions come first. When one filter is not there, nothing is changed at all.\n\n"
      "Example:\n  veskel-cli filters shop --add /private/ --add \"?print=\" --delete /old/");
  command->callback([options, additions, deletions, &chosen] {
    options->additions = additions->results();
    options->deletions = deletions->results();
    chosen = [options](const CliContext& context) { return cli::changeFilters(context, *options); };
  });
}

void addScanCommand(CLI::App& app, Command& chosen) {
  auto* command = app.add_subcommand("scan", "Scan a site and write its sitemaps");
  auto options = std::make_shared<cli::ScanOptions>();
  addName(command, options->siteName);
  const auto* loops =
      addText(command, "--loops", "continue|cancel", "When the site seems to lead in a circle [continue]")
          ->check(CLI::IsMember({"continue", "cancel"}).description(""));
  const auto* progress =
      addText(command, "--progress", "auto|bar|json|none", "How progress is shown [auto: bar on a terminal]")
          ->check(CLI::IsMember({"auto", "bar", "json", "none"}).description(""));
  const auto* failOn =
      addText(command, "--fail-on", "broken|new-broken|never",
              "Which broken pages make the exit code 1; new are those that were not broken in "
              "the complete scan before [broken]")
          ->check(CLI::IsMember({"broken", "new-broken", "never"}).description(""));
  command->add_flag("--continue", options->goesOn,
                    "Go on with a scan that was stopped or killed, or lost its network");
  const auto settings = addSettings(command);
  addPasswordFlag(command, options->passwordFromInput,
                  "for this scan. Without it the secret service is asked, and then you on the terminal");
  command->footer(
      "A setting that is given here counts for this scan, in place of what \"edit\" has set for the site.\n\n"
      "Example:\n  veskel-cli scan shop --loops cancel --progress json");
  command->callback([options, loops, progress, failOn, settings, &chosen] {
    options->settings = settings();
    const std::string failing = givenText(failOn).value_or("broken");
    options->failOn = failing == "never"        ? cli::FailOn::never
                      : failing == "new-broken" ? cli::FailOn::newBroken
                                                : cli::FailOn::broken;
    if (givenText(loops) == "cancel") options->loops = cli::LoopAnswer::cancelScan;
    const std::string style = givenText(progress).value_or("auto");
    options->progress = style == "bar"    ? cli::ProgressStyle::bar
                        : style == "json" ? cli::ProgressStyle::json
                        : style == "none" ? cli::ProgressStyle::none
                                          : cli::ProgressStyle::automatic;
    chosen = [options](const CliContext& context) { return cli::runScan(context, *options); };
  });
}

void addShowCommand(CLI::App& app, Command& chosen) {
  auto* command =
      app.add_subcommand("show", "Show a site, its last scan, what that left out and its broken pages");
  struct Arguments {
    std::string name;
    bool json = false;
    bool leftOut = false;
    bool changes = false;
  };
  auto arguments = std::make_shared<Arguments>();
  addName(command, arguments->name);
  auto* json = command->add_flag("--json", arguments->json, "Print a JSON object");
  auto* leftOut =
      command
          ->add_flag("--left-out", arguments->leftOut,
                     "Print examples of what the last scan left out, one a line: why, the address, the page "
                     "that links there")
          ->excludes(json);
  command
      ->add_flag("--changes", arguments->changes,
                 "Print what the last complete scan has changed since the one before, in two lines")
      ->excludes(json)
      ->excludes(leftOut);
  command->callback([arguments, &chosen] {
    chosen = [arguments](const CliContext& context) {
      if (arguments->changes) return cli::showChanges(context, arguments->name);
      if (arguments->leftOut) return cli::showLeftOut(context, arguments->name);
      return cli::showSite(context, arguments->name,
                           arguments->json ? cli::OutputStyle::json : cli::OutputStyle::text);
    };
  });
}

void addReportCommand(CLI::App& app, Command& chosen) {
  auto* command =
      app.add_subcommand("report", "Tell where broken links stand, what changed and which pages to look at");
  auto options = std::make_shared<cli::ReportOptions>();
  addName(command, options->siteName);
  const auto* output =
      addText(command, "--output", "FILE", "Write it to a file (.html, .json or .csv); - is standard output");
  const auto* format =
      addText(command, "--format", "html|json|csv", "The format, whatever the file's name ends in")
          ->check(CLI::IsMember({"html", "json", "csv"}).description(""));
  command->add_flag(
      "--broken", options->broken,
      "The broken pages alone, each with the pages that link there: printed, as json or as csv");
  command->add_flag("--force", options->force, "Replace a file that exists");
  command->footer(
      "Without --output a summary is printed. The page (html) holds everything in one file, to be sent to "
      "others; "
      "csv has a line a page.\n\n"
      "Examples:\n"
      "  veskel-cli report shop\n"
      "  veskel-cli report shop --output report.html\n"
      "  veskel-cli report shop --broken --output broken.csv --force");
  command->callback([options, output, format, &chosen] {
    options->output = givenText(output);
    options->format = givenText(format);
    chosen = [options](const CliContext& context) { return cli::showReport(context, *options); };
  });
}

void addCheckLinksCommand(CLI::App& app, Command& chosen) {
  auto* command =
      app.add_subcommand("check-links", "Ask whether what a site links to outside of it is still there");
  auto options = std::make_shared<cli::CheckOptions>();
  auto json = std::make_shared<bool>(false);
  addName(command, options->siteName);
  command->add_flag("--resources", options->resources, "Also the images, styles and scripts of its pages");
  command->add_flag("--again", options->again, "Ask all of them again, also where a check was stopped");
  command->add_flag("--json", *json, "Print a JSON array with one object an address");
  command->footer(
      "Asks the addresses that the last complete scan met, each once, at most one a second at each host. "
      "What "
      "the host would not say (403, 429) is no broken link.\n\n"
      "Example:\n  veskel-cli check-links shop --resources");
  command->callback([options, json, &chosen] {
    if (*json) options->style = cli::OutputStyle::json;
    chosen = [options](const CliContext& context) { return cli::checkLinks(context, *options); };
  });
}

void addExportCommand(CLI::App& app, Command& chosen) {
  auto* command = app.add_subcommand("export", "Write a sitemap, or the broken pages, to be published");
  struct Arguments {
    cli::ExportOptions options;
    std::string kind;
  };
  auto arguments = std::make_shared<Arguments>();
  addName(command, arguments->options.siteName);
  command->add_option("KIND", arguments->kind, "What is written")
      ->required()
      ->type_name("html|xml|broken")
      ->check(CLI::IsMember({"html", "xml", "broken"}).description(""));
  const auto* output = addText(command, "--output", "FILE", "Where to write; - is standard output");
  std::vector<std::string> layouts;
  for (const sitemaps::Layout* each : sitemaps::kLayoutsOffered) layouts.emplace_back(each->shortName);
  const auto* layout = addText(command, "--layout", CLI::detail::join(layouts, "|"),
                               "html: columns; po lists the pages only [3c]")
                           ->check(CLI::IsMember(layouts).description(""));
  const auto* format = addText(command, "--format", "txt|html|csv", "broken: how they are listed [txt]")
                           ->check(CLI::IsMember({"txt", "html", "csv"}).description(""));
  const auto* split =
      addText(command, "--split", "FOLDER",
              "xml, in place of --output: files of at most 50,000 pages and 50 MB, and their index");
  command->add_flag("--gzip", arguments->options.gzip, "xml: compress");
  command->add_flag("--force", arguments->options.force, "Replace files that exist");
  command->footer(
      "The marks that the editor needs, and elements that are empty, are left out. The index of a split "
      "sitemap "
      "names its files in the folder of the site's URL.\n\n"
      "Examples:\n"
      "  veskel-cli export shop html --layout 2cpo --output sitemap.html\n"
      "  veskel-cli export shop xml --split public --gzip\n"
      "  veskel-cli export shop broken --format csv --output -");
  command->callback([arguments, output, layout, format, split, &chosen] {
    cli::ExportOptions& options = arguments->options;
    options.kind = arguments->kind == "html"  ? cli::ExportKind::html
                   : arguments->kind == "xml" ? cli::ExportKind::xml
                                              : cli::ExportKind::broken;
    options.output = givenText(output);
    options.layout = givenText(layout);
    options.format = givenText(format);
    options.splitFolder = givenText(split);
    chosen = [arguments](const CliContext& context) { return cli::exportSite(context, arguments->options); };
  });
}

void addValidateCommand(CLI::App& app, Command& chosen) {
  auto* command = app.add_subcommand("validate", "Check an XML sitemap by the rules of sitemaps.org");
  auto target = std::make_shared<std::string>();
  auto all = std::make_shared<bool>(false);
  command->add_option("NAME|FILE", *target, "A site's name, or a file")->required()->type_name("");
  command->add_flag("--all", *all, "Print all faults, and not only the first 100");
  command->footer(
      "A file may be a sitemap or a sitemap index, and compressed (.gz).\n\n"
      "Examples:\n  veskel-cli validate shop\n  veskel-cli validate public/sitemap-1.xml.gz");
  command->callback([target, all, &chosen] {
    chosen = [target, all](const CliContext& context) {
      return cli::validateSitemap(context, *target,
                                  *all ? cli::ShownFindings::all : cli::ShownFindings::first);
    };
  });
}

void addWhereCommand(CLI::App& app, Command& chosen) {
  auto* command = app.add_subcommand("where", "Print the path of the data folder, or of a site's folder");
  const auto* name = addText(command, "NAME", "", "The site's name");
  command->footer("Example:\n  cd \"$(veskel-cli where shop)\"");
  command->callback([name, &chosen] {
    chosen = [site = givenText(name)](const CliContext& context) { return cli::printFolder(context, site); };
  });
}

/// There is none in a program that was built without the address of a list of versions.
void addCheckUpdateCommand(CLI::App& app, Command& chosen) {
  if (update::appcastAddress().empty()) return;
  auto* command = app.add_subcommand("check-update", "Ask whether there is a newer version of the program");
  command->footer("Reads " + std::string(update::appcastAddress()) +
                  "\nNothing is asked unless this command is given, and nothing is installed.\n\n"
                  "Exit codes:\n"
                  "  0    there is no newer version for this system\n"
                  "  1    there is one\n"
                  "  3    the list of versions could not be reached\n"
                  "  4    it could not be read");
  command->callback([&chosen] {
    chosen = [](const CliContext&) {
      const std::unique_ptr<platform::HttpClient> client = update::networkClient(VESKEL_VERSION);
      return cli::checkUpdate(*client, {.address = std::string(update::appcastAddress()),
                                        .programVersion = VESKEL_VERSION,
                                        .systemVersion = platform::kernelVersion()});
    };
  });
}

/// Prints the help that was asked for, or what is wrong with the arguments.
int reportUsage(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() != 0 && app.get_subcommands().empty() && !app.remaining().empty()) {
    // The library would only say that a command is required.
    cli::printError("Unknown command: " + cli::printable(app.remaining().front()));
    cli::printError("Run with --help for more information.");
    return cli::exitBadInput;
  }
  // The library's own codes, from 100 on, mean nothing to our callers.
  return app.exit(error) == 0 ? cli::exitDone : cli::exitBadInput;
}

int runCommand(const Command& command) {
  const auto context = cli::openContext();
  if (!context) return cli::exitFileFailure;
  const int code = command(*context);
  if (!std::cout.flush()) {
    cli::printError("The output could not be written.");
    return cli::exitFileFailure;
  }
  return code;
}

int run(int argc, char** argv) {
  CLI::App app("Builds sitemaps for websites.", "veskel-cli");
  app.set_version_flag("--version", "veskel-cli " VESKEL_VERSION);
  app.require_subcommand(1);
  Command chosen;
  addSitesCommand(app, chosen);
  addAddCommand(app, chosen);
  addEditCommand(app, chosen);
  addDeleteCommand(app, chosen);
  addFiltersCommand(app, chosen);
  addScanCommand(app, chosen);
  addShowCommand(app, chosen);
  addReportCommand(app, chosen);
  addRestoreCommand(app, chosen);
  addCheckLinksCommand(app, chosen);
  addExportCommand(app, chosen);
  addValidateCommand(app, chosen);
  addWhereCommand(app, chosen);
  addCheckUpdateCommand(app, chosen);
  app.footer(kMainFooter);  // last: commands that exist later would take it over
  if (argc > 2 && argv[1] == std::string_view("complete") && argv[2] == std::string_view("--")) {
    return cli::printCompletions(app, {argv + 3, argv + argc});
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return reportUsage(app, error);
  }
  return runCommand(chosen);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::bad_alloc&) {
    cli::printError("There is not enough memory.");
  } catch (const std::exception& error) {
    cli::printError("Something unexpected failed: " + cli::printable(error.what()));
  }
  return cli::exitFileFailure;
}
