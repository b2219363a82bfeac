#include "sitemaps/edit_keeper.h"

#include <utility>

namespace sitemaps {

std::string KeptEdits::problem() const {
  if (!kept.ok()) return "The edited sitemaps of before could not be kept: " + kept.error;
  if (remembered.ok()) return {};
  return "What was written could not be remembered, so that the next scan takes it for edited: " +
         remembered.error;
}

EditKeeper::EditKeeper(const store::GlobalControls& controls, const store::StateFolder* state,
                       const std::string& siteName) {
  if (state == nullptr) return;
  m_former.emplace(controls, *state, siteName);
  m_scanned.emplace(controls, *state, siteName);
}

void EditKeeper::beforeDocuments() {
  if (!m_scanned) return;
  if (m_scanned->isEdited()) {
    m_edits.kept = m_former->keepPresent();
    m_edits.isSetKept = m_edits.kept.ok();
  }
  if (m_edits.kept.ok()) note(m_scanned->keepScanning());
}

void EditKeeper::documentsStarted(Replaced replaced) {
  // What is neither kept nor replaced is still somebody's edit.
  m_hasStarted = m_scanned && (replaced == Replaced::all || m_edits.kept.ok());
  if (m_hasStarted) note(m_scanned->keepScanning());
}

void EditKeeper::scanEnded() {
  if (m_hasStarted) note(m_scanned->endScan());
}

void EditKeeper::note(platform::FileResult remembered) {
  if (m_edits.remembered.ok()) m_edits.remembered = std::move(remembered);
}

}  // namespace sitemaps
