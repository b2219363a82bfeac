// How a site is scanned, as its user wants it: the settings that can be chosen a site.
//
// They are kept in the site's state folder, in "settings": UTF-8, one "key value" a line, and only what
// differs from the default. A new setting is a member of SiteSettings and a row in the table kSiteSettings:
// files, command line and window follow from that.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/files.h"
#include "platform/header_line.h"
#include "platform/phrases.h"
#include "store/global_controls.h"
#include "store/state_folder.h"

namespace store {

using platform::Phrases;

/// How links are read and followed.
enum class LinkStyle {
  simple,   // as plain text, by a few rules
  browser,  // as browsers do
};

/// What becomes of the sitemaps that a site has already.
enum class OwnSitemaps {
  passedOver,
  scanned,  // the pages that they name are scanned, too
};

/// What becomes of change frequencies and priorities that were edited, when a scan writes the entries anew.
enum class EditedValues {
  dropped,
  takenOver,  // they go into the new entries of the same addresses
};

/// A value, with the defaults of a new site.
struct SiteSettings {
  LinkStyle links = LinkStyle::simple;
  OwnSitemaps sitemaps = OwnSitemaps::passedOver;
  EditedValues values = EditedValues::dropped;
  int maxPages = 0;     // a scan stops as if cancelled after so many; 0: no limit
  int levels = 0;       // the most links from the start page to one that is scanned; 0: no limit
  int connections = 6;  // pages fetched at the same time
  std::chrono::milliseconds delay{0};     // at least so long between the starts of two requests
  std::string userAgent = {};             // what the program calls itself; empty: by its own name
  std::vector<std::string> headers = {};  // "Name: value", sent with every request to the site's own server
  std::string httpUser = {};  // for HTTP authentication; empty: none. The password is kept elsewhere

  bool operator==(const SiteSettings&) const = default;
};

/// A setting that is a number from `least` to `most`.
struct WholeNumber {
  int SiteSettings::*member;
  int least = 0;
  int most = std::numeric_limits<int>::max();
  std::string_view leastMeans = {};  // "no limit", where the least number is no number at all
};

/// A setting that is a time from nothing to `most`: in seconds, with up to three decimals.
struct Seconds {
  std::chrono::milliseconds SiteSettings::*member;
  std::chrono::seconds most;
  std::string_view noneMeans = {};  // "no delay"
};

/// A setting that is one of several, known by their names.
struct Choice {
  struct Option {
    std::string_view name;     // in the file and on the command line
    std::string_view caption;  // in the window
  };
  std::span<const Option> options;
  std::size_t (*get)(const SiteSettings&);  // which of the options counts
  void (*set)(SiteSettings&, std::size_t);

  /// A choice kept in an enum whose values count the options.
  template <auto Member>
  static constexpr Choice of(std::span<const Option> options) {
    return {options, [](const SiteSettings& settings) { return static_cast<std::size_t>(settings.*Member); },
            [](SiteSettings& settings, std::size_t option) {
              using Value = std::remove_reference_t<decltype(settings.*Member)>;
              settings.*Member = static_cast<Value>(option);
            }};
  }
};

/// A setting that is a text of one line.
struct Text {
  std::string SiteSettings::*member;
  std::string_view emptyMeans;
  std::string (*problem)(std::string_view text);  // "it cannot ...", empty for a text that is allowed
};

/// A setting that is any number of texts, of one line each.
struct Lines {
  std::vector<std::string> SiteSettings::*member;
  std::string_view form;                          // what one looks like
  std::string (*problem)(std::string_view line);  // likewise
};

/// All there is to know of one setting. Its words are English, and marked for translation.
struct SettingField {
  std::string_view key;      // in the file; "--" and it is the option of the command line
  std::string_view caption;  // in the window, "&" before the letter of its key
  std::string_view help;     // a sentence without its full stop
  std::variant<WholeNumber, Seconds, Choice, Text, Lines> value;

  /// The value as text, as in the file. Of Lines there are as many as there are lines, of all else one.
  std::vector<std::string> texts(const SiteSettings& settings) const;
  /// Takes the value from such a text; to Lines it is added, and the empty text takes them all away. Gives
  /// what is wrong with one that is not allowed, and nothing is changed: "it has to be 1 to 64". Else empty.
  [[nodiscard]] std::string setText(SiteSettings& settings, std::string_view text) const;
  /// "1 to 64", "0 (no limit) or more", "0 (no delay) to 60 seconds", "simple or browser".
  std::string allowed() const;
};

inline constexpr std::array kLinkStyles = {Choice::Option{"simple", Phrases::noop("Simple")},
                                           Choice::Option{"browser", Phrases::noop("As browsers do")}};

constexpr std::string_view nameOf(LinkStyle links) {
  return kLinkStyles[static_cast<std::size_t>(links)].name;
}

inline constexpr std::array kOwnSitemaps = {
    Choice::Option{"no", Phrases::noop("Passed over")},
    Choice::Option{"yes", Phrases::noop("Their pages are scanned, too")}};

inline constexpr std::array kEditedValues = {Choice::Option{"no", Phrases::noop("Dropped")},
                                             Choice::Option{"yes", Phrases::noop("Taken over")}};

inline constexpr SettingField kLinksSetting = {
    .key = "links",
    .caption = Phrases::noop("&Links"),
    .help = Phrases::noop("As browsers do, every page is found that a browser reaches"),
    .value = Choice::of<&SiteSettings::links>(kLinkStyles)};

/// The table of settings, in the order in which they are shown.
inline constexpr std::array kSiteSettings = {
    kLinksSetting,
    SettingField{
        .key = "sitemaps",
        .caption = Phrases::noop("Its &sitemaps"),
        .help = Phrases::noop("The sitemaps that the site has already may name pages to which no link leads"),
        .value = Choice::of<&SiteSettings::sitemaps>(kOwnSitemaps)},
    SettingField{.key = "keep-values",
                 .caption = Phrases::noop("&Edited values"),
                 .help = Phrases::noop(
                     "Change frequencies and priorities that were edited go into the new entries of the "
                     "same addresses"),
                 .value = Choice::of<&SiteSettings::values>(kEditedValues)},
    SettingField{
        .key = "max-pages",
        .caption = Phrases::noop("Most &pages"),
        .help = Phrases::noop("A scan stops after so many pages"),
        .value = WholeNumber{.member = &SiteSettings::maxPages, .leastMeans = Phrases::noop("no limit")}},
    SettingField{
        .key = "levels",
        .caption = Phrases::noop("Deepest le&vel"),
        .help = Phrases::noop("Pages up to so many links away from the start page are scanned"),
        .value = WholeNumber{.member = &SiteSettings::levels, .leastMeans = Phrases::noop("no limit")}},
    SettingField{.key = "connections",
                 .caption = Phrases::noop("&Connections"),
                 .help = Phrases::noop("So many pages are fetched at the same time"),
                 .value = WholeNumber{.member = &SiteSettings::connections, .least = 1, .most = 64}},
    SettingField{.key = "delay",
                 .caption = Phrases::noop("&Delay"),
                 .help = Phrases::noop("Between the starts of two requests passes at least so long"),
                 .value = Seconds{.member = &SiteSettings::delay,
                                  .most = std::chrono::seconds(60),
                                  .noneMeans = Phrases::noop("no delay")}},
    SettingField{.key = "user-agent",
                 .caption = Phrases::noop("&User agent"),
                 .help = Phrases::noop("So the program calls itself, to servers and to rules in robots.txt"),
                 .value = Text{.member = &SiteSettings::userAgent,
                               .emptyMeans = Phrases::noop("its own name and version"),
                               .problem = platform::headerTextProblem}},
    SettingField{.key = "header",
                 .caption = Phrases::noop("&Header lines"),
                 .help = Phrases::noop("Sent with every request to the site's own server, and to no other"),
                 .value = Lines{.member = &SiteSettings::headers,
                                .form = Phrases::noop("Name: value"),
                                .problem = platform::headerLineProblem}},
    SettingField{
        .key = "http-user",
        .caption = Phrases::noop("&Name"),
        .help = Phrases::noop("For a site that asks for a name and a password (HTTP authentication)"),
        .value = Text{.member = &SiteSettings::httpUser,
                      .emptyMeans = Phrases::noop("none"),
                      .problem = platform::userNameProblem}},
};

/// What differs from the defaults, as options of the command line: "--max-pages 50 --connections 2". Texts
/// are quoted as a shell wants it.
std::string settingsAsOptions(const SiteSettings& settings);

struct [[nodiscard]] StoredSettings {
  platform::FileResult result = {};          // of reading the file; a missing one is fine
  SiteSettings settings = {};                // the default for whatever could not be read
  std::vector<std::string> problems = {};    // what of this failed, one sentence each
  std::vector<std::string> otherLines = {};  // of settings that only a newer program knows

  std::string allProblems() const;  // on one line
};

/// What the file's text says, and the text that says it. Of a setting that stands there twice the last
/// counts.
StoredSettings parseSettings(std::string_view text);
std::string settingsText(const StoredSettings& stored);

/// The site's settings. Never fails: whatever is wrong is told in `problems`, and the default counts.
StoredSettings readSettings(const StateFolder& state, std::string_view siteName);

/// Where they are kept.
std::filesystem::path settingsFile(const StateFolder& state, std::string_view siteName);

/// Has `change` change the site's settings as they are now and writes them. Nobody else changes them
/// meanwhile; `busy` while the site is being scanned. A file that cannot be read is left as it is.
using SettingsChange = std::function<void(SiteSettings& settings)>;
platform::FileResult changeSettings(const GlobalControls& controls, const StateFolder& state,
                                    std::string_view siteName, const SettingsChange& change);

}  // namespace store
