#include "store/site_settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "platform/ascii.h"
#include "store/site_lock.h"
#include "store/text_lines.h"

namespace store {

namespace {

using platform::FileResult;
using platform::FileStatus;
using platform::trimmed;

constexpr std::size_t kMaxBytes = std::size_t{1} << 20;

using Texts = std::vector<std::string>;

Texts textsOf(const WholeNumber& number, const SiteSettings& settings) {
  return {std::to_string(settings.*number.member)};
}

Texts textsOf(const Seconds& seconds, const SiteSettings& settings) {
  std::array<char, 32> text;
  const double value = std::chrono::duration<double>(settings.*seconds.member).count();
  char* end = std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed).ptr;
  return {std::string(text.data(), end)};
}

Texts textsOf(const Choice& choice, const SiteSettings& settings) {
  return {std::string(choice.options[choice.get(settings)].name)};
}

Texts textsOf(const Text& text, const SiteSettings& settings) {
  return {settings.*text.member};
}

Texts textsOf(const Lines& lines, const SiteSettings& settings) {
  return settings.*lines.member;
}

bool setFrom(const WholeNumber& number, SiteSettings& settings, std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return false;
  if (value < number.least || value > number.most) return false;
  settings.*number.member = value;
  return true;
}

/// Whatever the locale says, the decimals stand behind a point.
bool setFrom(const Seconds& seconds, SiteSettings& settings, std::string_view text) {
  double value = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (error != std::errc() || end != text.data() + text.size()) return false;
  const double milliseconds = value * 1000;
  // No number is no time either.
  if (!(milliseconds >= 0 && value <= static_cast<double>(seconds.most.count()))) return false;
  settings.*seconds.member = std::chrono::milliseconds(std::llround(milliseconds));
  return true;
}

bool setFrom(const Choice& choice, SiteSettings& settings, std::string_view text) {
  const auto found = std::find_if(choice.options.begin(), choice.options.end(),
                                  [&](const Choice::Option& option) { return option.name == text; });
  if (found == choice.options.end()) return false;
  choice.set(settings, static_cast<std::size_t>(found - choice.options.begin()));
  return true;
}

std::string allowedBy(const WholeNumber& number) {
  std::string least = std::to_string(number.least);
  if (!number.leastMeans.empty()) least.append(" (").append(Phrases::tr(number.leastMeans)).append(")");
  if (number.most == std::numeric_limits<int>::max()) return Phrases::tr("%1 or more", {least});
  return Phrases::tr("%1 to %2", {least, std::to_string(number.most)});
}

std::string allowedBy(const Seconds& seconds) {
  return Phrases::tr("0 (%1) to %2 seconds",
                     {Phrases::tr(seconds.noneMeans), std::to_string(seconds.most.count())});
}

std::string allowedBy(const Choice& choice) {
  std::string text;
  for (const Choice::Option& option : choice.options) {
    if (!text.empty()) text += Phrases::tr(" or ");
    text += option.name;
  }
  return text;
}

std::string allowedBy(const Text& text) {
  return Phrases::tr("text, or nothing (%1)", {Phrases::tr(text.emptyMeans)});
}

std::string allowedBy(const Lines& lines) {
  return "\"" + Phrases::tr(lines.form) + "\"";
}

template <typename Kind>
std::string problemSetting(const Kind& kind, SiteSettings& settings, std::string_view text) {
  return setFrom(kind, settings, text) ? "" : Phrases::tr("it has to be %1", {allowedBy(kind)});
}

std::string problemSetting(const Text& kind, SiteSettings& settings, std::string_view text) {
  std::string problem = kind.problem(text);
  if (problem.empty()) settings.*kind.member = trimmed(text);
  return problem;
}

std::string problemSetting(const Lines& kind, SiteSettings& settings, std::string_view line) {
  if (trimmed(line).empty()) {
    (settings.*kind.member).clear();
    return {};
  }
  std::string problem = kind.problem(line);
  if (problem.empty()) (settings.*kind.member).emplace_back(trimmed(line));
  return problem;
}

bool isDefault(const SettingField& field, const SiteSettings& settings) {
  return field.texts(settings) == field.texts({});
}

/// The text as one word of a shell.
std::string asShellWord(std::string_view text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

}  // namespace

std::vector<std::string> SettingField::texts(const SiteSettings& settings) const {
  return std::visit([&](const auto& kind) { return textsOf(kind, settings); }, value);
}

std::string SettingField::setText(SiteSettings& settings, std::string_view text) const {
  return std::visit([&](const auto& kind) { return problemSetting(kind, settings, text); }, value);
}

std::string SettingField::allowed() const {
  return std::visit([](const auto& kind) { return allowedBy(kind); }, value);
}

std::string settingsAsOptions(const SiteSettings& settings) {
  std::string options;
  for (const SettingField& field : kSiteSettings) {
    if (isDefault(field, settings)) continue;
    const bool isText =
        std::holds_alternative<Text>(field.value) || std::holds_alternative<Lines>(field.value);
    for (const std::string& text : field.texts(settings)) {
      if (!options.empty()) options += ' ';
      options.append("--").append(field.key).append(" ").append(isText ? asShellWord(text) : text);
    }
  }
  return options;
}

std::string StoredSettings::allProblems() const {
  std::string all;
  for (const std::string& problem : problems) all.append(all.empty() ? "" : " ").append(problem);
  return all;
}

StoredSettings parseSettings(std::string_view text) {
  StoredSettings stored;
  for (const std::string& line : nonEmptyLines(text)) {
    const std::string_view entry = trimmed(line);
    const std::string_view key = entry.substr(0, entry.find(' '));
    const auto field = std::find_if(kSiteSettings.begin(), kSiteSettings.end(),
                                    [&](const SettingField& known) { return known.key == key; });
    if (field == kSiteSettings.end()) {
      stored.otherLines.push_back(line);
      continue;
    }
    const std::string problem = field->setText(stored.settings, trimmed(entry.substr(key.size())));
    if (problem.empty()) continue;
    stored.problems.push_back(Phrases::tr("The site's setting \"%1\" was ignored: %2.", {key, problem}));
  }
  return stored;
}

std::string settingsText(const StoredSettings& stored) {
  std::string text;
  for (const SettingField& field : kSiteSettings) {
    if (isDefault(field, stored.settings)) continue;
    for (const std::string& each : field.texts(stored.settings))
      text.append(field.key).append(" ").append(each).append("\n");
  }
  for (const std::string& line : stored.otherLines) text.append(line).append("\n");
  return text;
}

StoredSettings readSettings(const StateFolder& state, std::string_view siteName) {
  const auto file = settingsFile(state, siteName);
  platform::FileContent content = platform::readFile(file, kMaxBytes);
  if (content.result.status == FileStatus::missing) return {};
  StoredSettings stored = parseSettings(content.text);
  if (!content.result.ok()) {
    stored.problems.push_back(
        Phrases::tr("The site's settings were ignored: %1: %2.", {file.native(), content.result.error}));
  }
  stored.result = std::move(content.result);
  return stored;
}

std::filesystem::path settingsFile(const StateFolder& state, std::string_view siteName) {
  return state.ofSite(siteName) / "settings";
}

FileResult changeSettings(const GlobalControls& controls, const StateFolder& state, std::string_view siteName,
                          const SettingsChange& change) {
  const SiteLock lock(controls, siteName);
  if (!lock.result().ok()) return lock.result();
  StoredSettings stored = readSettings(state, siteName);
  if (!stored.result.ok()) return stored.result;
  const SiteSettings before = stored.settings;
  change(stored.settings);
  if (stored.settings == before && stored.problems.empty()) return {};
  const auto target = settingsFile(state, siteName);
  if (auto made = platform::makeFolders(target.parent_path()); !made.ok()) return made;
  return platform::replaceFile(target, settingsText(stored));
}

}  // namespace store
