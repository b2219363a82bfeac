#include "cli/cli_context.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <utility>

#include "platform/text.h"
#include "sitemaps/former_set.h"
#include "store/site_list.h"

namespace cli {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

/// The character at the start of valid UTF-8 and its length in bytes.
struct Character {
  std::uint32_t code = 0;
  std::size_t length = 1;
};

Character firstCharacter(std::string_view text) {
  const auto byte = [&](std::size_t index) {
    return index < text.size() ? static_cast<std::uint32_t>(static_cast<unsigned char>(text[index])) : 0u;
  };
  const auto tail = [&](std::size_t index) { return byte(index) & 0x3Fu; };
  if (byte(0) < 0x80) return {byte(0), 1};
  if (byte(0) < 0xE0) return {((byte(0) & 0x1Fu) << 6) | tail(1), 2};
  if (byte(0) < 0xF0) return {((byte(0) & 0x0Fu) << 12) | (tail(1) << 6) | tail(2), 3};
  return {((byte(0) & 0x07u) << 18) | (tail(1) << 12) | (tail(2) << 6) | tail(3), 4};
}

bool isHarmless(std::uint32_t code) {
  const bool control = code < 0x20 || (code >= 0x7F && code < 0xA0);
  const bool lineEnd = code == 0x2028 || code == 0x2029;
  const bool direction = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
  return !control && !lineEnd && !direction;
}

}  // namespace

store::SiteSettings CliContext::settingsOf(std::string_view siteName) const {
  const store::StoredSettings stored = store::readSettings(state, siteName);
  for (const std::string& problem : stored.problems) printWarning(printable(problem));
  return stored.settings;
}

bool CliContext::hasSite(std::string_view name) const {
  return std::binary_search(siteNames.begin(), siteNames.end(), name);
}

std::optional<CliContext> openContext() {
  auto controls = store::GlobalControls::fromEnvironment();
  auto state = store::StateFolder::fromEnvironment();
  if (!controls || !state) {
    printError("Your home directory is not known: set the environment variable HOME.");
    return {};
  }
  if (const auto result = store::checkNeededFoldersExist(*controls); !result.ok()) {
    reportFileFailure("Could not use the data folder", controls->homeFolderLocation(), result);
    return {};
  }
  auto list = store::siteTableRows(*controls, *state);
  for (const std::string& problem : list.problems) printWarning(printable(problem));
  sitemaps::finishRestores(*controls, *state, list.names);
  return CliContext{*std::move(controls), *state, store::BrokenReasons(*state), std::move(list.names)};
}

std::string printable(std::string_view text) {
  const std::string valid = platform::decodeUtf8(std::string(text));
  std::string result;
  for (std::string_view rest = valid; !rest.empty();) {
    const auto [code, length] = firstCharacter(rest);
    const auto bytes = rest.substr(0, length);
    result += isHarmless(code) ? bytes : kReplacement;
    rest.remove_prefix(bytes.size());
  }
  return result;
}

void printError(std::string_view sentence) {
  std::cerr << sentence << '\n';
}

void printWarning(std::string_view sentence) {
  std::cerr << "Warning: " << sentence << '\n';
}

ExitCode reportUnknownSite(std::string_view name) {
  printError("There is no site named \"" + printable(name) + "\".");
  return exitBadInput;
}

ExitCode reportBusySite(std::string_view name) {
  printError("The site \"" + printable(name) + "\" is being scanned.");
  return exitSiteBusy;
}

std::string fileSentence(std::string_view what, const std::filesystem::path& path,
                         const platform::FileResult& result) {
  return std::string(what) + " " + printable(path.native()) + ": " + printable(result.error);
}

ExitCode reportFileFailure(std::string_view what, const std::filesystem::path& path,
                           const platform::FileResult& result) {
  printError(fileSentence(what, path, result));
  return exitFileFailure;
}

std::optional<ExitCode> reportLockFailure(const platform::FolderLock& lock, const CliContext& context,
                                          std::string_view siteName) {
  if (lock.result().ok()) return {};
  if (lock.result().status == platform::FileStatus::busy) return reportBusySite(siteName);
  return reportFileFailure("Could not lock", context.controls.siteFolder(siteName), lock.result());
}

}  // namespace cli
