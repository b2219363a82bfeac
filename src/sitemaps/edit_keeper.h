// What becomes of edited documents when a scan writes new ones.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/files.h"
#include "sitemaps/edited_values.h"
#include "sitemaps/former_set.h"
#include "sitemaps/scanned_set.h"
#include "store/global_controls.h"
#include "store/site_settings.h"
#include "store/state_folder.h"

namespace sitemaps {

/// How keeping them went.
struct KeptEdits {
  bool isSetKept = false;                // the documents were edited, and are kept as they were
  platform::FileResult kept = {};        // of keeping them
  platform::FileResult remembered = {};  // of noting what the scan left
  platform::FileResult valuesKept =
      {};                   // of keeping edited values, should the scan end before it is complete
  int valuesTakenOver = 0;  // change frequencies and priorities

  /// What went wrong, a sentence without its full stop; empty when nothing did. No fault of the scan.
  std::string problem() const;
};

/// Goes with one scan, on its thread and under its lock. Nothing that fails here keeps the scan from its
/// work.
class EditKeeper {
 public:
  /// Without a state folder nothing is kept; edited values are taken over all the same, if they are to be.
  EditKeeper(const store::GlobalControls& controls, const store::StateFolder* state,
             const std::string& siteName, store::EditedValues values);

  /// The documents are about to be replaced; then they have been, or some of them; then the scan is over.
  enum class Replaced { all, some };
  void beforeDocuments();
  void documentsStarted(Replaced replaced);
  enum class Ended { complete, early };
  void scanEnded(Ended ended);

  /// Puts the values that were edited before the scan into the XML sitemap, which is finished. One that has
  /// gone is not missed.
  platform::FileResult takeOverValues();

  const KeptEdits& edits() const { return m_edits; }

 private:
  void note(platform::FileResult remembered);
  void gatherValues();
  void keepForNextScan(Ended ended);

  std::filesystem::path m_xmlSitemap;
  std::filesystem::path m_pendingValues;  // of scans that were not complete; empty without a state folder
  bool m_takesOver;
  EditedValues m_values;        // to be put into the XML sitemap
  bool m_areValuesPut = false;  // those that have an entry there
  std::optional<FormerSet> m_former;
  std::optional<ScannedSet> m_scanned;
  bool m_hasStarted = false;
  KeptEdits m_edits;
};

}  // namespace sitemaps
