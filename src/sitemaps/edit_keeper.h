// What becomes of edited documents when a scan writes new ones.
#pragma once

#include <optional>
#include <string>

#include "platform/files.h"
#include "sitemaps/former_set.h"
#include "sitemaps/scanned_set.h"
#include "store/global_controls.h"
#include "store/state_folder.h"

namespace sitemaps {

/// How keeping them went.
struct KeptEdits {
  bool isSetKept = false;                // the documents were edited, and are kept as they were
  platform::FileResult kept = {};        // of keeping them
  platform::FileResult remembered = {};  // of noting what the scan left

  /// What went wrong, a sentence without its full stop; empty when nothing did. No fault of the scan.
  std::string problem() const;
};

/// Goes with one scan, on its thread and under its lock. Nothing that fails here keeps the scan from its
/// work.
class EditKeeper {
 public:
  /// Without a state folder nothing is kept.
  EditKeeper(const store::GlobalControls& controls, const store::StateFolder* state,
             const std::string& siteName);

  /// The documents are about to be replaced; then they have been, or some of them; then the scan is over.
  enum class Replaced { all, some };
  void beforeDocuments();
  void documentsStarted(Replaced replaced);
  void scanEnded();

  const KeptEdits& edits() const { return m_edits; }

 private:
  void note(platform::FileResult remembered);

  std::optional<FormerSet> m_former;
  std::optional<ScannedSet> m_scanned;
  bool m_hasStarted = false;
  KeptEdits m_edits;
};

}  // namespace sitemaps
