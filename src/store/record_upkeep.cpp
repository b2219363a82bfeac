#include "store/record_upkeep.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/phrases.h"
#include "store/site_lock.h"
#include "store/site_record.h"

namespace store {

namespace {

namespace fs = std::filesystem;
using platform::FileResult;
using platform::FileStatus;
using platform::Phrases;

constexpr std::string_view kOlderExtension = ".qzvsk";
/// Of a new record while the older one goes. No longer than theirs, so that it fits wherever they do.
constexpr std::string_view kUpgradeExtension = ".qzNEW";

/// Documents of the layout that came with the older records. Nothing writes or reads them any more.
constexpr std::array<std::string_view, 6> kOlderDocuments = {
    "sitemap.html", "sitemap2.html", "sitemap3.html", "sitemap4.html", "sitemap5.html", "sitemap6.html"};

/// Notes what failed, "Could not write %1: %2"; true when nothing did.
bool passes(const FileResult& result, const char* sentence, const fs::path& path, Problems& problems) {
  if (result.ok()) return true;
  problems.push_back(Phrases::tr(sentence, {path.native(), result.error}));
  return false;
}

bool remove(const fs::path& file, Problems& problems) {
  const FileResult removed = platform::removeFile(file);
  return removed.status == FileStatus::missing ||
         passes(removed, Phrases::noop("Could not delete %1: %2"), file, problems);
}

fs::path recordBeside(fs::path file) {
  return file.replace_extension(kRecordExtension);
}

/// Puts the text in `newText` in its place, once the older record has gone.
void finishUpgrade(const fs::path& newText, Problems& problems) {
  for (const std::string_view document : kOlderDocuments) remove(newText.parent_path() / document, problems);
  const fs::path record = recordBeside(newText);
  if (!remove(record, problems)) return;
  passes(platform::moveTo(newText, record), Phrases::noop("Could not write the upgraded record %1: %2"),
         record, problems);
}

void upgradeRecord(const fs::path& olderFile, Problems& problems) {
  const auto older = platform::readFile(olderFile, platform::kMaxListBytes);
  if (older.result.status == FileStatus::missing) return;  // somebody else was faster
  if (!passes(older.result, Phrases::noop("Could not read the older record %1: %2"), olderFile, problems))
    return;
  const auto record = upgradedRecord(older.text);
  if (!record) {
    const FileResult foreign{FileStatus::failed, Phrases::tr("It is not a site record.")};
    passes(foreign, Phrases::noop("Could not upgrade %1: %2"), olderFile, problems);
    return;
  }
  fs::path newText = olderFile;
  newText.replace_extension(kUpgradeExtension);
  const FileResult written = platform::replaceFile(newText, *record);
  if (!passes(written, Phrases::noop("Could not write the upgraded record %1: %2"), recordBeside(newText),
              problems))
    return;
  if (remove(olderFile, problems)) {
    finishUpgrade(newText, problems);
  } else {
    remove(newText, problems);
  }
}

/// The lock on the folder of a record, wherever below the data folder that is.
platform::FolderLock lockBeside(const fs::path& file) {
  return platform::FolderLock(file.parent_path());
}

std::string recordName(std::string_view siteName) {
  return std::string(siteName) + std::string(kRecordExtension);
}

/// One folder of a site while it is put right, under its lock.
class Mending {
 public:
  Mending(const GlobalControls& controls, const StateFolder& state, std::string name, Problems& problems)
      : m_controls(controls),
        m_state(state),
        m_name(std::move(name)),
        m_record(controls.returnFullFileLocation(m_name)),
        m_problems(problems) {}

  void mend(const std::vector<std::string>& records) {
    if (!platform::somethingAt(m_record) && !takeRecordFrom(records)) return;
    auto content = platform::readFile(m_record, platform::kMaxListBytes);
    if (!content.result.ok() || !nameInRecord(content.text)) return;
    for (const std::string& other : records) dropIfLeft(other, content.text);
  }

 private:
  fs::path inFolder(const std::string& file) const { return m_controls.siteFolder(m_name) / file; }

  /// Whether the folder's record is there after all: the one record that it holds gets the folder's name.
  bool takeRecordFrom(const std::vector<std::string>& records) {
    if (records.size() != 1) return false;  // nobody can tell which one is the site's
    const fs::path file = inFolder(records[0]);
    const auto content = platform::readFile(file, platform::kMaxListBytes);
    // A record that does not name itself either was never a site's.
    const auto name = recordValue(content.text, kSiteName);
    if (!name || recordName(*name) != records[0]) return false;
    takeStateFrom(*name);
    return passes(platform::moveTo(file, m_record), Phrases::noop("Could not finish the renaming to %1: %2"),
                  m_record, m_problems);
  }

  /// Makes `record` say the folder's name. False when it has no place for that.
  bool nameInRecord(std::string& record) {
    const auto name = recordValue(record, kSiteName);
    if (name == m_name) return true;
    std::string mended = withRecordValue(record, kSiteName, m_name);
    if (recordValue(mended, kSiteName) != m_name) return false;
    record = std::move(mended);
    return passes(platform::replaceFile(m_record, record), Phrases::noop("Could not write %1: %2"), m_record,
                  m_problems);
  }

  /// A renaming writes the record under the new name, renames the folder, and then removes the old record.
  /// What it leaves when it is cut off differs from the folder's record in what an edit changes alone.
  void dropIfLeft(const std::string& file, const std::string& record) {
    std::error_code ignored;
    if (file == m_record.filename() || fs::equivalent(inFolder(file), m_record, ignored)) return;
    const std::string other = platform::readFile(inFolder(file), platform::kMaxListBytes).text;
    const auto name = recordValue(other, kSiteName);
    if (!name || recordName(*name) != file) return;
    const std::string url = recordValue(record, kSiteUrl).value_or(std::string());
    const std::string edited = withIgnoreRobots(withRecordValue(other, kSiteUrl, url), ignoresRobots(record));
    if (withRecordValue(edited, kSiteName, m_name) != record) return;
    takeStateFrom(*name);
    remove(inFolder(file), m_problems);
  }

  /// What is remembered of the site under its former name, unless there is a site of that name.
  void takeStateFrom(const std::string& former) {
    if (platform::somethingAt(m_controls.siteFolder(former)) ||
        platform::somethingAt(m_state.ofSite(m_name)) || !platform::somethingAt(m_state.ofSite(former))) {
      return;
    }
    passes(m_state.rename(former, m_name), Phrases::noop("Could not take along %1: %2"),
           m_state.ofSite(former), m_problems);
  }

  const GlobalControls& m_controls;
  const StateFolder& m_state;
  std::string m_name;
  fs::path m_record;
  Problems& m_problems;
};

/// Whether the folder's one record is as it should be. Asked before the lock is taken.
bool isWell(const GlobalControls& controls, const std::string& name,
            const std::vector<std::string>& records) {
  if (records.size() != 1 || records[0] != recordName(name)) return false;
  const auto record = platform::readFile(controls.returnFullFileLocation(name), platform::kMaxListBytes).text;
  return recordValue(record, kSiteName).value_or(name) == name;
}

}  // namespace

bool hasExtension(const std::string& file, std::string_view extension) {
  return fs::path(file).extension() == extension;
}

bool upgradeRecords(const GlobalControls& controls, const std::vector<std::string>& files,
                    Problems& problems) {
  bool seen = false;
  for (const std::string& file : files) {
    const bool isOlder = hasExtension(file, kOlderExtension);
    if (!isOlder && !hasExtension(file, kUpgradeExtension)) continue;
    seen = true;
    const fs::path path = controls.homeFolderLocation() / file;
    const auto lock = lockBeside(path);
    if (!lock.result().ok()) continue;
    if (isOlder) upgradeRecord(path, problems);
    // Where the older record is still there, its upgrade begins anew.
    fs::path older = path;
    if (!isOlder && !platform::somethingAt(older.replace_extension(kOlderExtension)) &&
        platform::somethingAt(path)) {
      finishUpgrade(path, problems);
    }
  }
  return seen;
}

void mendRecords(const GlobalControls& controls, const StateFolder& state,
                 const std::vector<std::string>& records, Problems& problems) {
  std::map<std::string, std::vector<std::string>> recordsByFolder;
  for (const std::string& file : records) {
    const auto slash = file.find('/');
    if (slash == std::string::npos || file.find('/', slash + 1) != std::string::npos) continue;
    recordsByFolder[file.substr(0, slash)].push_back(file.substr(slash + 1));
  }
  for (const auto& [name, names] : recordsByFolder) {
    if (isWell(controls, name, names)) continue;
    const SiteLock lock(controls, name);
    if (lock.result().ok()) Mending(controls, state, name, problems).mend(names);
  }
}

}  // namespace store
