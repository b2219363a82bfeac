#include "sitemaps/former_set.h"

#include "sitemaps/scanned_set.h"
#include "sitemaps/xml_format.h"
#include "store/site_lock.h"

namespace sitemaps {

namespace {

using platform::FileResult;
using platform::FileStatus;

constexpr std::string_view kKept = "former";
constexpr std::string_view kNew = "former.new";
constexpr std::string_view kOld = "former.old";  // about to be removed
constexpr std::string_view kRestoring = "former.restoring";

FileResult fineWhenMissing(FileResult result) {
  if (result.status == FileStatus::missing) return {};
  return result;
}

}  // namespace

bool FormerSet::isKept() const {
  return platform::somethingAt(folder(kKept));
}

std::filesystem::path FormerSet::xmlSitemap() const {
  return folder(kKept) / kXmlSitemapFile;
}

/// The copy is whole when this returns ok.
FileResult FormerSet::copyPresent() const {
  const auto copy = folder(kNew);
  if (auto removed = fineWhenMissing(platform::removeFolder(copy)); !removed.ok()) return removed;
  if (auto made = platform::makeFolders(copy); !made.ok()) return made;
  const auto fail = [&](FileResult why) {
    static_cast<void>(platform::removeFolder(copy));  // it would only take room
    return why;
  };
  for (const std::string_view name : kSetFiles) {
    const platform::FileContent file = platform::readFile(m_controls.siteFolder(m_siteName) / name);
    if (file.result.status == FileStatus::missing) continue;
    if (!file.result.ok()) return fail(file.result);
    if (auto written = platform::replaceFile(copy / name, file.text); !written.ok())
      return fail(std::move(written));
  }
  return {};
}

FileResult FormerSet::keepPresent() const {
  if (auto finished = finishLocked(); !finished.ok()) return finished;
  if (auto copied = copyPresent(); !copied.ok()) return copied;
  if (auto placed = takePlaceOfKept(kNew); !placed.ok()) return placed;
  return platform::syncFolder(m_state.ofSite(m_siteName));
}

RestoreResult FormerSet::restore() const {
  const store::SiteLock lock(m_controls, m_siteName);
  if (lock.result().status == FileStatus::busy) return {RestoreOutcome::busy};
  if (!lock.result().ok()) return {RestoreOutcome::failed, m_controls.siteFolder(m_siteName), lock.result()};
  const auto fail = [&](FileResult why) {
    return RestoreResult{RestoreOutcome::failed, folder(kKept), std::move(why)};
  };
  if (auto finished = finishLocked(); !finished.ok()) return fail(std::move(finished));
  if (!isKept()) return {RestoreOutcome::nothingKept};
  // What makes way comes back with the next restoring, and is as unedited then as it is now.
  ScannedSet(m_controls, m_state, m_siteName).endKilledScan();
  if (auto copied = copyPresent(); !copied.ok()) return fail(std::move(copied));
  if (auto moved = platform::moveTo(folder(kNew), folder(kRestoring)); !moved.ok())
    return fail(std::move(moved));
  // From here on the way is forward, also after a kill. Not every file system can make sure of that.
  static_cast<void>(platform::syncFolder(m_state.ofSite(m_siteName)));
  RestoreResult result = putBack(kKept);
  if (result.outcome != RestoreOutcome::done) return undone(std::move(result));
  if (auto placed = takePlaceOfKept(kRestoring); !placed.ok()) return undone(fail(std::move(placed)));
  return result;
}

/// Makes the files of a set those of the site.
RestoreResult FormerSet::putBack(std::string_view set) const {
  for (const std::string_view name : kSetFiles) {
    const auto file = m_controls.siteFolder(m_siteName) / name;
    const platform::FileContent former = platform::readFile(folder(set) / name);
    const bool isThere = former.result.status != FileStatus::missing;
    if (isThere && !former.result.ok()) return {RestoreOutcome::failed, folder(set) / name, former.result};
    FileResult put =
        isThere ? platform::replaceFile(file, former.text) : fineWhenMissing(platform::removeFile(file));
    if (!put.ok()) return {RestoreOutcome::failed, file, std::move(put)};
  }
  return {};
}

/// After a failure. Where there is no way back either, the next start of the program tries it forward.
RestoreResult FormerSet::undone(RestoreResult why) const {
  if (putBack(kRestoring).outcome != RestoreOutcome::done) return why;
  // It has to be gone at once: a part of it would be taken for a whole set.
  if (removeOld().ok() && platform::moveTo(folder(kRestoring), folder(kOld)).ok())
    static_cast<void>(removeOld());
  return why;
}

/// At each moment there is a kept set, or one that finishLocked() makes it again.
FileResult FormerSet::takePlaceOfKept(std::string_view set) const {
  if (auto removed = removeOld(); !removed.ok()) return removed;
  if (auto moved = fineWhenMissing(platform::moveTo(folder(kKept), folder(kOld))); !moved.ok()) return moved;
  FileResult placed = platform::moveTo(folder(set), folder(kKept));
  if (placed.ok()) {
    static_cast<void>(removeOld());
  } else {
    static_cast<void>(platform::moveTo(folder(kOld), folder(kKept)));
  }
  return placed;
}

FileResult FormerSet::removeOld() const {
  return fineWhenMissing(platform::removeFolder(folder(kOld)));
}

void FormerSet::finish() const {
  if (!platform::somethingAt(folder(kRestoring)) && !platform::somethingAt(folder(kOld))) return;
  const store::SiteLock lock(m_controls, m_siteName);
  // What cannot be done now is tried again with the next start.
  if (lock.result().ok()) static_cast<void>(finishLocked());
}

FileResult FormerSet::finishLocked() const {
  if (platform::somethingAt(folder(kRestoring))) {
    // Without a kept set it was put back already, and was about to make way.
    const RestoreResult result = isKept() ? putBack(kKept) : RestoreResult{};
    return result.outcome == RestoreOutcome::done ? takePlaceOfKept(kRestoring) : result.file;
  }
  if (!isKept()) return fineWhenMissing(platform::moveTo(folder(kOld), folder(kKept)));
  return removeOld();
}

void finishRestores(const store::GlobalControls& controls, const store::StateFolder& state,
                    const std::vector<std::string>& siteNames) {
  for (const std::string& name : siteNames) FormerSet(controls, state, name).finish();
}

}  // namespace sitemaps
