#include "html_editor/html_document.h"

#include <utility>

#include "html_editor/anchor_edit.h"
#include "html_editor/layouts.h"
#include "html_editor/table_rebuild.h"
#include "platform/phrases.h"
#include "store/site_lock.h"
#include "store/site_record.h"

namespace html_editor {

HtmlDocument::HtmlDocument(store::SharedState& state, const store::GlobalControls& controls,
                           RecoveryCopies recovery)
    : m_state(state), m_controls(controls), m_recovery(std::move(recovery)) {}

Opened HtmlDocument::firstLoad(std::string_view site) {
  m_site = site;
  if (!site.empty()) return open(*layoutOfEntry(sitemapTypeArray.front()));
  m_selection.reset();
  m_isThere = false;
  take(text());
  return {};
}

Opened HtmlDocument::switchTo(const sitemaps::Layout& layout) {
  return open(layout);
}

Opened HtmlDocument::open(const sitemaps::Layout& layout) {
  m_selection.reset();
  m_copyKept = false;  // of another document, for which it may be offered
  m_layout = &layout;
  m_state.qzvskUTLLoc = m_controls.siteFolder(m_site) / layout.fileName;
  platform::FileContent content = platform::readFile(file());
  const Opened opened = {documentState(content.text), content.text.size()};
  m_isThere = opened.state == DocumentState::whole || opened.state == DocumentState::unfinished;
  // What is left of the former document must never be written into another one's file.
  take(m_isThere ? std::move(content.text) : text());
  return opened;
}

Question HtmlDocument::toSave() const {
  return isThere() && platform::somethingAt(file()) ? Question::save : Question::none;
}

void HtmlDocument::restyle(std::string text) {
  m_state.qzvskHTMLString = std::move(text);
  noteChange();
}

bool HtmlDocument::select(std::string_view href, std::string_view label) {
  std::optional<LinkSelection> clicked = isThere() ? selectLink(href, label) : std::nullopt;
  if (!clicked) return false;
  m_selection = std::move(clicked);
  return true;
}

bool HtmlDocument::editLink(std::string_view link, std::string_view title) {
  if (!m_selection) return false;
  AnchorEdit edit = editLinkAndTitle(text(), *m_selection, link, title);
  m_selection.reset();
  restyle(std::move(edit.document));
  return edit.found;
}

Removed HtmlDocument::removeLink(const LinkSelection& link) {
  LinkDeletion deletion = linkDeletion(text(), link, totalLinks());
  m_selection.reset();  // may be the link
  if (const auto remaining = checkForEmptyColumn(deletion.document); remaining && m_layout != nullptr)
    deletion.document = rebuildSitemaps(platform::readFile(file()).text, *remaining, m_layout->columns);
  restyle(std::move(deletion.document));
  return deletion.removed;
}

/// The count of LINKIDs that the site's record tells; 0 when it cannot be read.
int HtmlDocument::totalLinks() const {
  const platform::FileContent record =
      platform::readFile(m_controls.returnFullFileLocation(m_site), platform::kMaxListBytes);
  return store::recordCount(record.text, store::kTotalLinks).value_or(0);
}

Saving HtmlDocument::save() {
  Saving saving{write()};
  if (!saving.ok()) {
    saving.unsaved = text();
    keepCopy();
    m_copyKept = false;  // it outlives what happens to the document now
  }
  take(platform::readFile(file()).text);
  return saving;
}

platform::FileResult HtmlDocument::saveOrKeep() {
  platform::FileResult written = write();
  if (written.ok()) take(text());
  return written;
}

platform::FileResult HtmlDocument::write() {
  const store::SiteLock lock(m_controls, m_site);
  if (lock.result().status == platform::FileStatus::busy) return lock.result();
  const platform::FileContent onDisk = platform::readFile(file());
  if (onDisk.result.ok() && onDisk.text != m_original)
    return {platform::FileStatus::failed, platform::Phrases::tr("Another program has changed it.")};
  return platform::replaceFile(file(), text());
}

void HtmlDocument::discard() {
  m_copyKept = true;  // maybe by an earlier run
  take(m_original);
}

void HtmlDocument::readBack() {
  m_copyKept = true;
  take(platform::readFile(file()).text);
}

/// `text` is what the file holds, as far as we know.
void HtmlDocument::take(std::string text) {
  m_state.qzvskHTMLString = std::move(text);
  m_original = m_state.qzvskHTMLString;
  noteChange();
}

void HtmlDocument::noteChange() {
  m_state.qzvskNeedsSave = changed();
  if (!m_state.qzvskNeedsSave && m_copyKept) dropCopy(file());
}

/// Nothing is said when it fails: it is a second net, and the document is still in the window.
void HtmlDocument::keepCopy() {
  m_copyKept = true;
  static_cast<void>(m_recovery.save(file(), m_original, text()));
}

std::optional<std::string> HtmlDocument::keptChanges() const {
  return isThere() ? m_recovery.load(file(), m_original) : std::nullopt;
}

bool HtmlDocument::restore(const std::filesystem::path& file, std::string text) {
  if (file != this->file() || !isThere()) return false;
  m_copyKept = true;
  restyle(std::move(text));
  return true;
}

void HtmlDocument::dropCopy(const std::filesystem::path& file) {
  if (file == this->file()) m_copyKept = false;
  static_cast<void>(m_recovery.drop(file));
}

}  // namespace html_editor
