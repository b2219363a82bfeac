// Saving the document in hand, asking about unsaved changes, and what waits for the answers.
#include <QDesktopServices>
#include <QUrl>

#include "html_editor/fixed_pages.h"
#include "html_editor/html_view_controller.h"
#include "html_editor/layouts.h"
#include "html_editor/preview.h"
#include "platform/enable_unless.h"
#include "platform/files.h"
#include "platform/qt_text.h"
#include "sitemaps/script_text.h"

namespace html_editor {

using platform::enableUnless;
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
    m_document.dropCopy(m_document.file());
    firstLoad();
  };
  switch (marker) {
    case SaveMarker::savebutton:
      if (m_document.toSave() == Question::none) return;
      return m_sheets.choose(tr("Are you sure you want to save the changes you have made?"), {},
                             {tr("Save Changes"), tr("Cancel")}, platform::SheetQueue::kNoEscape,
                             saveOrLoadAnew);
    case SaveMarker::defaultAsk:
      if (m_document.toSave() == Question::none) return;
      return m_sheets.choose(
          tr("Changes have been made to this sitemap, would you like to save the changes you have made?"), {},
          {tr("Save Changes"), tr("Discard Changes")}, platform::SheetQueue::kNoEscape, saveOrLoadAnew);
    case SaveMarker::closewindow:
      saveAndReadBack();
      return;
    case SaveMarker::changemap:
      if (const platform::FileResult written = m_document.saveOrKeep(); !written.ok()) {
        chooserFollowsFile();
        return tellNotWritten(written);
      }
      reportSaved();
      return switchLayout();
  }
}

void HTMLViewController::reportSaved() {
  emit report(tr("Saved %1").arg(toQString(m_document.file().filename().native())));
}

/// What is shown afterwards is what the file holds, whether that went well or not.
bool HTMLViewController::saveAndReadBack() {
  Saving saving = m_document.save();
  saveActive();
  if (saving.ok()) {
    reportSaved();
    return true;
  }
  showDocument();
  setPopupButtons();
  offerNotWritten(saving.result, std::move(saving.unsaved));
  return false;
}

QString HTMLViewController::notWritten(const platform::FileResult& result) const {
  return tr("Could not write %1: %2")
      .arg(toQString(m_document.file().filename().native()), toQString(result.error));
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
                  [this, text = std::move(text), file = m_document.file()](int answer) {
                    if (answer == kRestore) return restore(file, text);
                    m_document.dropCopy(file);
                  });
}

/// Shows which document is in hand.
void HTMLViewController::chooserFollowsFile() {
  for (int i = 0; i < m_view.sitemapTypePopup.count(); ++i) {
    const auto* layout = layoutOfEntry(toUtf8(m_view.sitemapTypePopup.itemData(i).toString()));
    if (layout == m_document.layout()) m_view.sitemapTypePopup.setCurrentIndex(i);
  }
}

void HTMLViewController::changeMapType() {
  if (m_document.toSwitch() == Question::none) return switchLayout();
  m_sheets.choose(
      tr("Changes have been made to the look of this sitemap, would you like to save these changes?"), {},
      {tr("Save Changes"), tr("Discard")}, platform::SheetQueue::kNoEscape, [this](int answer) {
        if (answer == kSave) return saveNow(SaveMarker::changemap);
        m_document.dropCopy(m_document.file());
        switchLayout();
      });
}

void HTMLViewController::switchLayout() {
  const QString entry = m_view.sitemapTypePopup.currentData().toString();
  const sitemaps::Layout* layout = layoutOfEntry(toUtf8(entry));
  if (layout == nullptr) return;
  m_view.siteTypeLabel.setText(entry);
  m_savedScrollPosition = {};
  showOpened(m_document.switchTo(*layout));
  enableUnless(m_view.sitemapTypePopup, {});  // where this one is missing the others may be there
}

void HTMLViewController::checkSave(std::function<void()> then) {
  if (then) m_afterAnswer.push_back(std::move(then));
  if (m_asking) return;
  m_asking = true;
  if (m_document.toLeave() == Question::none) return answerCheckSave(false);
  m_sheets.choose(tr("Changes have been made to this sitemap, would you like to save before proceeding?"), {},
                  {tr("Save Changes"), tr("Discard")}, platform::SheetQueue::kNoEscape,
                  [this](int answer) { answerCheckSave(answer == kSave); });
}

void HTMLViewController::answerCheckSave(bool save) {
  m_asking = false;
  const auto waiting = std::exchange(m_afterAnswer, {});
  if (m_document.toLeave() != Question::none) {
    // Nothing that was to follow happens when saving failed: it would take the document out of reach.
    if (save && !saveAndReadBack()) return;
    if (!save) m_document.readBack();
    saveActive();
    // The style editor goes on with the document.
    if (!save && isCurrentView()) {
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
  if (m_document.toPreview() == Question::none) return externalBrowserView();
  m_sheets.choose(
      tr("Changes have been made to this sitemap, would you like to save the changes you have made?"), {},
      {tr("Save Changes"), tr("Discard Changes")}, platform::SheetQueue::kNoEscape, [this](int answer) {
        if (answer == kSave) {
          if (!saveAndReadBack()) return;
        } else {
          m_document.discard();
          showDocument();
          setPopupButtons();
        }
        externalBrowserView();
      });
}

/// In the viewer a document can do nothing. In a browser what somebody has put into it may run.
void HTMLViewController::externalBrowserView() {
  if (!sitemaps::holdsScriptText(m_document.text()) || m_services.passedScripts.contains(m_document.file())) {
    return openPreview();
  }
  constexpr int kCancel = 1;
  m_sheets.choose(tr("This sitemap holds text that a browser may run as a program."),
                  tr("Veskel only shows it; a browser may run it."), {tr("View in Browser"), tr("Cancel")},
                  kCancel, [this](int answer) {
                    if (answer == kCancel) return;
                    m_services.passedScripts.insert(m_document.file());
                    openPreview();
                  });
}

void HTMLViewController::openPreview() {
  const std::filesystem::path file = m_document.file().parent_path() / kPreviewFile;
  const platform::FileResult written = platform::replaceFile(file, previewText(m_document.text()));
  if (!written.ok()) {
    m_sheets.alert(tr("Could not write the copy for the browser: %1").arg(toQString(written.error)));
  } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(toQString(file.native())))) {
    emit report(tr("No program was found to open %1").arg(toQString(file.native())));
  }
}

void HTMLViewController::offerRecoveryCopy() {
  std::optional<std::string> copy = m_document.keptChanges();
  if (!copy) return;
  constexpr int kRestore = 0;
  m_sheets.choose(tr("Changes to this sitemap were not saved."),
                  tr("They were kept when Veskel ended, or could not write the file."),
                  {tr("Restore Changes"), tr("Discard Changes")}, platform::SheetQueue::kNoEscape,
                  [this, copy = std::move(*copy), file = m_document.file()](int answer) {
                    if (answer == kRestore) return restore(file, copy);
                    m_document.dropCopy(file);
                  });
}

void HTMLViewController::restore(const std::filesystem::path& file, const std::string& text) {
  if (!m_document.restore(file, text)) return;
  showDocument();
  setPopupButtons();
}

}  // namespace html_editor
