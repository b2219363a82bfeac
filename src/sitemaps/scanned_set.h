// Whether anybody has changed the documents of a site since its last scan.
#pragma once

#include <array>
#include <filesystem>
#include <string_view>

#include "platform/files.h"
#include "sitemaps/layouts.h"
#include "store/global_controls.h"
#include "store/state_folder.h"

namespace sitemaps {

/// The files that a scan leaves in a site's folder, and that belong together: the HTML documents, the XML
/// sitemap, the list of broken pages. Any of them may be missing.
extern const std::array<std::string_view, kLayouts.size() + 2> kSetFiles;

/// What the last scan left in a site's folder, remembered in the site's state folder in "scanned-documents":
/// a line a file, with its name, its stamp, its size and its checksum behind tabs. While a scan runs a
/// document's line has only what tells it from another file, since it grows; so it is known for the scan's
/// own even when that was killed. Whoever calls holds the site's lock. A value.
class ScannedSet {
 public:
  ScannedSet(const store::GlobalControls& controls, const store::StateFolder& state,
             std::string_view siteName);

  /// Whether some file is not as the last scan left it. So it is when nothing is remembered, and never when
  /// there are no files at all. Reads a document only when it was written to, or is another one, and has the
  /// size that it had.
  bool isEdited() const;

  /// The documents that are there are the scan's, and so are openings in their place, however they grow: to
  /// be told before they are replaced, and again once they have been.
  platform::FileResult keepScanning() const;
  /// What is there now is what the scan leaves.
  platform::FileResult endScan() const;

  /// Has a scan that was killed end, unless its documents were edited since.
  void endKilledScan() const;

 private:
  bool isUnfinished() const;
  platform::FileResult save(std::string_view text) const;

  std::filesystem::path m_folder;  // the site's
  std::filesystem::path m_memory;
};

}  // namespace sitemaps
