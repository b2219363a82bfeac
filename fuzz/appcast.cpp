// A publisher's list of versions. Three lines to be compared as versions, then the list.
#include "update/appcast.h"

#include <string>

#include "fuzz_target.h"
#include "platform/text.h"
#include "update/plain_text.h"
#include "update/version.h"

namespace {

using fuzz::require;
using update::compareVersions;

void checkVersions(const std::string& a, const std::string& b, const std::string& c) {
  require(compareVersions(a, a) == 0, "a version is itself");
  require((compareVersions(a, b) < 0) == (compareVersions(b, a) > 0), "versions have an order both ways");
  if (compareVersions(a, b) <= 0 && compareVersions(b, c) <= 0) {
    require(compareVersions(a, c) <= 0, "versions have one order");
  }
  const bool isWhole = !a.empty() && a.find_first_not_of("0123456789.") == std::string::npos;
  if (isWhole) {
    require(compareVersions(a, a + ".0") == 0, "zeros at the end count for nothing");
    require(compareVersions(a, a + "-beta") > 0, "a pre-release comes before");
    require(compareVersions(a, a + ".1") < 0, "a version more is newer");
  }
}

void checkRelease(const update::Release& release) {
  require(update::isVersion(release.version), "versions can be compared");
  require(release.minimumSystem.empty() || update::isVersion(release.minimumSystem), "and so can systems");
  require(!release.shownVersion.empty() && release.shownVersion.size() <= 100, "a version can be shown");
  require(release.shownVersion.find_first_of("\n\t\r") == std::string::npos, "on one line");
  for (const std::string& address : {release.page, release.notesAddress})
    require(address.empty() || address.starts_with("https://"), "addresses are https");
  require(release.notes.size() <= (64u << 10) + 4, "notes are bounded");
  for (const std::string& text : {release.shownVersion, release.notes})
    require(fuzz::isUtf8(text), "texts are UTF-8");
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string a(takeLine(rest));
  const std::string b(takeLine(rest));
  checkVersions(a, b, std::string(takeLine(rest)));
  const std::string text = platform::decodeUtf8(std::string(rest));
  const update::Appcast appcast = update::parseAppcast(text);
  require(appcast.problem.empty() || appcast.releases.empty(), "what is broken offers nothing");
  for (const update::Release& release : appcast.releases) checkRelease(release);
  const std::string notes = update::textOfHtml(text, 100);
  require(isUtf8(notes) && notes.size() <= 104, "notes are cut off");
  require(notes.find_first_of("\t\r\x1B") == std::string::npos, "no terminal obeys them");
}
