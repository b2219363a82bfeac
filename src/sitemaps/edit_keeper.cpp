#include "sitemaps/edit_keeper.h"

#include <utility>

#include "platform/phrases.h"
#include "sitemaps/xml_format.h"

namespace sitemaps {

using platform::FileResult;
using platform::FileStatus;
using platform::Phrases;

std::string KeptEdits::problem() const {
  if (!kept.ok()) return Phrases::tr("The edited sitemaps of before could not be kept: %1", {kept.error});
  if (!remembered.ok()) {
    return Phrases::tr(
        "What was written could not be remembered, so that the next scan takes it for edited: %1",
        {remembered.error});
  }
  if (!valuesKept.ok()) return Phrases::tr("The edited values could not be kept: %1", {valuesKept.error});
  return {};
}

EditKeeper::EditKeeper(const store::GlobalControls& controls, const store::StateFolder* state,
                       const std::string& siteName, store::EditedValues values)
    : m_xmlSitemap(controls.siteFolder(siteName) / kXmlSitemapFile),
      m_takesOver(values == store::EditedValues::takenOver) {
  if (state == nullptr) return;
  m_pendingValues = state->ofSite(siteName) / "edited-values.xml";
  m_former.emplace(controls, *state, siteName);
  m_scanned.emplace(controls, *state, siteName);
}

void EditKeeper::beforeDocuments() {
  if (m_takesOver) gatherValues();
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

void EditKeeper::scanEnded(Ended ended) {
  if (m_hasStarted) note(m_scanned->endScan());
  if (m_areValuesPut && !m_pendingValues.empty()) keepForNextScan(ended);
}

/// The values of pages that a scan which was not complete has not come to.
void EditKeeper::keepForNextScan(Ended ended) {
  if (ended == Ended::early && !m_takesOver) return;
  if (ended == Ended::early && !m_values.isEmpty()) {
    m_edits.valuesKept = platform::replaceFile(m_pendingValues, m_values.text());
  } else if (auto removed = platform::removeFile(m_pendingValues); removed.status == FileStatus::failed) {
    m_edits.valuesKept = std::move(removed);
  }
}

/// What a scan before this one has gathered and could not put anywhere counts less than what is there now.
void EditKeeper::gatherValues() {
  if (!m_pendingValues.empty()) m_values.add(platform::readFile(m_pendingValues).text);
  m_values.add(platform::readFile(m_xmlSitemap).text);
  if (m_values.isEmpty() || m_pendingValues.empty()) return;
  m_edits.valuesKept = platform::makeFolders(m_pendingValues.parent_path());
  if (m_edits.valuesKept.ok()) m_edits.valuesKept = platform::replaceFile(m_pendingValues, m_values.text());
}

FileResult EditKeeper::takeOverValues() {
  EditedValues values = m_values;
  if (!values.isEmpty()) {
    platform::FileContent sitemap = platform::readFile(m_xmlSitemap);
    if (sitemap.result.status == FileStatus::missing) return {};
    if (!sitemap.result.ok()) return sitemap.result;
    const int count = values.moveInto(sitemap.text);
    FileResult written = count > 0 ? platform::replaceFile(m_xmlSitemap, sitemap.text) : FileResult{};
    if (!written.ok()) return written;
    m_edits.valuesTakenOver = count;
  }
  m_values = std::move(values);
  m_areValuesPut = true;
  return {};
}

void EditKeeper::note(FileResult remembered) {
  if (m_edits.remembered.ok()) m_edits.remembered = std::move(remembered);
}

}  // namespace sitemaps
