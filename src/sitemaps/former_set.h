// The edited documents that a scan has replaced, kept once for each site, and how they come back.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "store/global_controls.h"
#include "store/state_folder.h"

namespace sitemaps {

enum class RestoreOutcome {
  done,
  nothingKept,
  busy,    // the site is being scanned, nothing was done
  failed,  // `path` and `file` say what and why, and all is as it was before
};

struct [[nodiscard]] RestoreResult {
  RestoreOutcome outcome = RestoreOutcome::done;
  std::filesystem::path path = {};
  platform::FileResult file = {};
};

/// A folder "former" in the site's state folder with the files of a set; those that were missing then are
/// missing there. It is whole at every moment: what is to take its place grows in "former.new", and the one
/// that goes is in "former.old". While a set is being restored the one that makes way for it is in
/// "former.restoring". A value.
class FormerSet {
 public:
  FormerSet(store::GlobalControls controls, store::StateFolder state, std::string siteName)
      : m_controls(std::move(controls)), m_state(std::move(state)), m_siteName(std::move(siteName)) {}

  bool isKept() const;

  /// Where the kept set's sitemap.xml is, if there is one.
  std::filesystem::path xmlSitemap() const;

  /// Copies what is in the site's folder, in place of what was kept. After a failure that still is. Whoever
  /// calls holds the site's lock.
  platform::FileResult keepPresent() const;

  /// Puts the kept set back and keeps the present one in its place, so that doing it twice changes nothing.
  /// Each file is replaced at once or not at all. Where that is cut off, finish() does the rest.
  RestoreResult restore() const;

  /// Ends what a process that was killed has begun to do. Does nothing else, nor while the site is being
  /// scanned.
  void finish() const;

 private:
  std::filesystem::path folder(std::string_view name) const { return m_state.ofSite(m_siteName) / name; }
  platform::FileResult copyPresent() const;
  RestoreResult putBack(std::string_view set) const;
  RestoreResult undone(RestoreResult why) const;
  platform::FileResult takePlaceOfKept(std::string_view set) const;
  platform::FileResult removeOld() const;
  platform::FileResult finishLocked() const;

  store::GlobalControls m_controls;
  store::StateFolder m_state;
  std::string m_siteName;
};

/// Has each of these sites finish(), cheaply where there is nothing to do.
void finishRestores(const store::GlobalControls& controls, const store::StateFolder& state,
                    const std::vector<std::string>& siteNames);

}  // namespace sitemaps
