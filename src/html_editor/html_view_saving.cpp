// Saving the document in hand, asking about unsaved changes, and what waits for the answers.
#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

#include "html_editor/fixed_pages.h"
#include "html_editor/html_view_controller.h"
#include "html_editor/layouts.h"
#include "html_editor/preview.h"
#include "sitemaps/script_text.h"
#include "platform/files.h"
#include "platform/qt_text.h"

namespace html_editor {

using platform::toQString;
using platform::toUtf8;

namespace {

constexpr int kSave = 0;  // the answer to all questions of this file that have "Save Changes"
constexpr std::string_view kPreviewFile = "tmpMap.html";

}  // namespace

void HTMLViewController::saveNow(SaveMarker marker) {
  const auto saveOrLoadAnew = [this](int answer) {
    if (answer == kSave) {
      saveAndReadBack();
      return;
    }
    dropRecoveryCopy();
    firstLoad();
  };
  switch (marker) {
    case SaveMarker::savebutton:
      if (!platform::somethingAt(currentFile())) return;
      return m_sheets.choose(tr("Are you sure you want to save the changes you have made?"), {},
                             {tr("Save Changes"), tr("Cancel")}, platform::SheetQueue::kNoEscape,
                             saveOrLoadAnew);
    case SaveMarker::defaultAsk:
      if (!platform::somethingAt(currentFile())) return;
      return m_sheets.choose(
          tr("Changes have been made to this sitemap, would you like to save the changes you have made?"), {},
          {tr("Save Changes"), tr("Discard Changes")}, platform::SheetQueue::kNoEscape, saveOrLoadAnew);
    case SaveMarker::closewindow:
      saveAndReadBack();
      return;
    case SaveMarker::changemap:
      if (const platform::FileResult written = writeDocument(); !written.ok()) {
        chooserFollowsFile();
        return tellNotWritten(written);
      }
      saveActive();
      return switchLayout();
  }
}

/// Nobody's work is overwritten: neither that of a scan that is under way nor that of another program.
platform::FileResult HTMLViewController::writeDocument() {
  const std::filesystem::path file = m_state.qzvskUTLLoc;
  const platform::FolderLock lock(file.parent_path());
  if (lock.result().status == platform::FileStatus::busy) {
    return {platform::FileStatus::busy, "The site is being scanned."};
  }
  const platform::FileContent onDisk = platform::readFile(file);
  if (onDisk.result.ok() && onDisk.text != m_originalHTMLString) {
    return {platform::FileStatus::failed, "Another program has changed it."};
  }
  platform::FileResult written = platform::replaceFile(file, m_state.qzvskHTMLString);
  if (written.ok()) emit report(tr("Saved %1").arg(toQString(file.filename().native())));
  return written;
}

/// What is shown afterwards is what the file holds, whether that went well or not.
bool HTMLViewController::saveAndReadBack() {
  const platform::FileResult written = writeDocument();
  if (written.ok()) {
    readBack();
    saveActive();
    return true;
  }
  std::string unsaved = m_state.qzvskHTMLString;
  keepRecoveryCopy();
  m_copyKept = false;  // it outlives what happens to the document now
  readBack();
  showDocument();
  setPopupButtons();
  offerNotWritten(written, std::move(unsaved));
  return false;
}

void HTMLViewController::readBack() {
  m_state.qzvskHTMLString = platform::readFile(m_state.qzvskUTLLoc).text;
  m_originalHTMLString = m_state.qzvskHTMLString;
}

QString HTMLViewController::notWritten(const platform::FileResult& result) const {
  const std::filesystem::path file = m_state.qzvskUTLLoc;
  return tr("Could not write %1: %2").arg(toQString(file.filename().native()), toQString(result.error));
}

/// For a document that stays in hand.
void HTMLViewController::tellNotWritten(const platform::FileResult& result) {
  m_sheets.alert(notWritten(result), tr("Your changes are still here, and not saved."));
}

/// For one that has given way to what the file holds.
void HTMLViewController::offerNotWritten(const platform::FileResult& result, std::string text) {
  constexpr int kRestore = 0;
  m_sheets.choose(notWritten(result), tr("The sitemap is shown as it was last saved. Your changes are kept."),
                  {tr("Restore Changes"), tr("Discard Changes")}, platform::SheetQueue::kNoEscape,
                  [this, text = std::move(text), file = m_state.qzvskUTLLoc](int answer) {
                    if (answer == kRestore) return restore(file, text);
                    static_cast<void>(m_services.recovery.drop(file));
                  });
}

/// Shows which document is in hand, after another layout was chosen that could not be gone to.
void HTMLViewController::chooserFollowsFile() {
  for (int i = 0; i < m_sitemapTypePopup.count(); ++i) {
    const auto* layout = layoutOfEntry(toUtf8(m_sitemapTypePopup.itemData(i).toString()));
    if (layout != nullptr && layout->fileName == currentFile().filename().native()) {
      m_sitemapTypePopup.setCurrentIndex(i);
    }
  }
}

void HTMLViewController::changeMapType() {
  if (m_state.qzvskHTMLString == m_originalHTMLString) return switchLayout();
  m_sheets.choose(
      tr("Changes have been made to the look of this sitemap, would you like to save these changes?"), {},
      {tr("Save Changes"), tr("Discard")}, platform::SheetQueue::kNoEscape, [this](int answer) {
        if (answer == kSave) return saveNow(SaveMarker::changemap);
        dropRecoveryCopy();
        switchLayout();
      });
}

void HTMLViewController::switchLayout() {
  const QString entry = m_sitemapTypePopup.currentData().toString();
  const sitemaps::Layout* layout = layoutOfEntry(toUtf8(entry));
  if (layout == nullptr) return;
  m_siteTypeLabel.setText(entry);
  open(m_services.controls.siteFolder(siteName()) / layout->fileName);
  m_savedScrollPosition = {};
  clearLinkFields();
  showFile();
  if (m_hasDocument) return;
  readBack();
  markDirty(false);
  enableUnless(m_sitemapTypePopup, {});  // the other layouts may be there
}

void HTMLViewController::checkSave(std::function<void()> then) {
  if (then) m_afterAnswer.push_back(std::move(then));
  if (m_asking) return;
  m_asking = true;
  if (!m_state.qzvskNeedsSave) return answerCheckSave(false);
  m_sheets.choose(tr("Changes have been made to this sitemap, would you like to save before proceeding?"), {},
                  {tr("Save Changes"), tr("Discard")}, platform::SheetQueue::kNoEscape,
                  [this](int answer) { answerCheckSave(answer == kSave); });
}

void HTMLViewController::answerCheckSave(bool save) {
  m_asking = false;
  const auto waiting = std::exchange(m_afterAnswer, {});
  if (m_state.qzvskNeedsSave) {
    // Nothing that was to follow happens when saving failed: it would take the document out of reach.
    if (save && !saveAndReadBack()) return;
    if (!save) readBack();
    dropRecoveryCopy();
    markDirty(false);
    // The style editor goes on with the document.
    if (!save && m_hasDocument && isCurrentView()) {
      showDocument();
      setPopupButtons();
    }
  }
  for (const auto& step : waiting) step();
}

void HTMLViewController::afterQuestion(std::function<void()> step) {
  if (!m_asking) return step();
  m_afterAnswer.push_back(std::move(step));
}

void HTMLViewController::viewSitemapButton() {
  if (m_state.qzvskHTMLString == m_originalHTMLString) return externalBrowserView();
  m_sheets.choose(
      tr("Changes have been made to this sitemap, would you like to save the changes you have made?"), {},
      {tr("Save Changes"), tr("Discard Changes")}, platform::SheetQueue::kNoEscape, [this](int answer) {
        if (answer == kSave) {
          if (!saveAndReadBack()) return;
        } else {
          m_state.qzvskHTMLString = m_originalHTMLString;
          showDocument();
          setPopupButtons();
        }
        externalBrowserView();
      });
}

/// In the viewer a document can do nothing. In a browser what somebody has put into it may run.
void HTMLViewController::externalBrowserView() {
  if (!sitemaps::holdsScriptText(m_state.qzvskHTMLString) || m_services.passedScripts.contains(m_state.qzvskUTLLoc)) {
    return openPreview();
  }
  constexpr int kCancel = 1;
  m_sheets.choose(tr("This sitemap holds text that a browser may run as a program."),
                  tr("Veskel only shows it; a browser may run it."),
                  {tr("View in Browser"), tr("Cancel")}, kCancel, [this](int answer) {
                    if (answer == kCancel) return;
                    m_services.passedScripts.insert(m_state.qzvskUTLLoc);
                    openPreview();
                  });
}

void HTMLViewController::openPreview() {
  const std::filesystem::path file = m_services.controls.siteFolder(siteName()) / kPreviewFile;
  const platform::FileResult written = platform::replaceFile(file, previewText(m_state.qzvskHTMLString));
  if (!written.ok()) {
    m_sheets.alert(tr("Could not write the copy for the browser: %1").arg(toQString(written.error)));
  } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(toQString(file.native())))) {
    emit report(tr("No program was found to open %1").arg(toQString(file.native())));
  }
}

/// Nothing is said when it fails: it is a second net, and the document is still in the window.
void HTMLViewController::keepRecoveryCopy() {
  m_recoveryTimer.stop();
  m_copyKept = true;
  static_cast<void>(
      m_services.recovery.save(m_state.qzvskUTLLoc, m_originalHTMLString, m_state.qzvskHTMLString));
}

void HTMLViewController::dropRecoveryCopy() {
  m_recoveryTimer.stop();
  m_copyKept = false;
  static_cast<void>(m_services.recovery.drop(m_state.qzvskUTLLoc));
}

void HTMLViewController::offerRecoveryCopy() {
  std::optional<std::string> copy = m_services.recovery.load(m_state.qzvskUTLLoc, m_originalHTMLString);
  if (!copy) return;
  constexpr int kRestore = 0;
  m_sheets.choose(tr("Changes to this sitemap were not saved."),
                  tr("They were kept when Veskel ended, or could not write the file."),
                  {tr("Restore Changes"), tr("Discard Changes")}, platform::SheetQueue::kNoEscape,
                  [this, copy = std::move(*copy), file = m_state.qzvskUTLLoc](int answer) {
                    if (answer == kRestore) return restore(file, copy);
                    static_cast<void>(m_services.recovery.drop(file));
                  });
}

void HTMLViewController::restore(const std::string& file, const std::string& text) {
  if (file != m_state.qzvskUTLLoc) return;  // it is offered when that one is opened again
  m_copyKept = true;
  m_state.qzvskHTMLString = text;
  showDocument();
  setPopupButtons();
}

}  // namespace html_editor
