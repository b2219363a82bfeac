// Editing and deleting single links in the HTML viewer.
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QTimer>

#include "html_editor/html_view_controller.h"
#include "platform/address_actions.h"
#include "platform/qt_text.h"

namespace html_editor {

using platform::toQString;
using platform::toUtf8;
using platform::translated;

namespace {

constexpr std::chrono::milliseconds kFollowUpDelay{500};

/// What a question about a link begins with.
QString named(const LinkSelection& link) {
  return platform::shortened(toQString(link.titleEditInput)) + QLatin1Char('\n') +
         platform::shortened(toQString(link.linkEditInput)) + QStringLiteral("\n\n");
}

}  // namespace

void HTMLViewController::linkClicked(const QString& href, const QString& label, QPointF scrolledTo) {
  m_savedScrollPosition = scrolledTo;
  // Under a sheet nobody clicks: this one has come late, and the sheet is about another link.
  if (!m_document.isThere() || m_sheets.busy()) return;
  if (m_document.select(toUtf8(href), toUtf8(label))) {
    showSelection();
  } else {
    m_view.deleteButton.setEnabled(false);
  }
}

/// The commands of the view for the selected link: in its context menu, and by keys while it has the focus.
void HTMLViewController::buildLinkMenu() {
  const auto add = [this](const char* name, const QString& text, auto slot) {
    auto* action = new QAction(text, m_scanWebView);
    action->setObjectName(QLatin1String(name));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, slot);
    m_scanWebView->addAction(action);
    return action;
  };
  add(platform::kCopySelection, tr("&Copy Address"), &HTMLViewController::copyLinkAddress);
  add(platform::kOpenSelection, tr("&Open in Browser"), &HTMLViewController::openLinkInBrowser);
  add("deleteSelection", tr("&Delete Link..."), &HTMLViewController::deleteLinkAction)
      ->setShortcut(QKeySequence::Delete);
  connect(m_scanWebView, &SitemapWebView::menuWanted, this, [this](QPoint place) {
    if (!m_document.selection() || m_sheets.busy()) return;
    auto* menu = new QMenu(m_scanWebView);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(m_scanWebView->actions());
    menu->popup(m_scanWebView->mapToGlobal(place));
  });
}

void HTMLViewController::copyLinkAddress() {
  if (m_document.selection())
    QGuiApplication::clipboard()->setText(toQString(m_document.selection()->linkEditInput));
}

void HTMLViewController::openLinkInBrowser() {
  if (m_document.selection()) platform::openInBrowser(toQString(m_document.selection()->linkEditInput));
}

void HTMLViewController::showSelection() {
  const bool any = m_document.selection().has_value();
  const LinkSelection link = m_document.selection().value_or(LinkSelection());
  const auto fill = [any](QLineEdit& field, const QString& text, const QString& toolTip) {
    field.setText(text);
    field.setCursorPosition(0);
    field.setEnabled(any);
    field.setToolTip(any ? toolTip : tr("Click a link in the sitemap first"));
  };
  fill(m_view.titleEditInput, toQString(link.titleEditInput), toQString(link.titleEditInput));
  fill(m_view.linkEditInput, toQString(link.linkEditInput), toQString(link.linkEditInput));
  m_view.deleteButton.setEnabled(any);
  m_view.deleteButton.setToolTip(any ? tr("Remove this link from the layout that is shown")
                                     : tr("Click a link in the sitemap first"));
  markSelection();
}

void HTMLViewController::markSelection() {
  if (!m_scanWebView) return;
  for (QAction* action : m_scanWebView->actions()) action->setEnabled(m_document.selection().has_value());
  const LinkSelection link = m_document.selection().value_or(LinkSelection());
  m_scanWebView->markLink(toQString(link.target), toQString(link.titleEditInput));
}

void HTMLViewController::clearLinkFields() {
  m_document.clearSelection();
  showSelection();
}

/// Title and address are one edit: going from one field to the other commits nothing, and neither does going
/// to the button that deletes the link.
void HTMLViewController::focusMoved(const QWidget* from, const QWidget* to) {
  const auto isOfLink = [this](const QWidget* widget) {
    return widget == &m_view.titleEditInput || widget == &m_view.linkEditInput ||
           widget == &m_view.deleteButton;
  };
  // A look at another window is no end.
  if (to == nullptr || to->window() != &m_services.mainWindow) return;
  if (isOfLink(from) && !isOfLink(to)) commitFields();
}

void HTMLViewController::commitFields() {
  if (!m_document.selection()) return;
  switch (html_editor::commitFields(*m_document.selection(), toUtf8(m_view.linkEditInput.text()),
                                    toUtf8(m_view.titleEditInput.text()))) {
    case FieldCommit::edit:
      return editLinkAndTitle();
    case FieldCommit::titleBlank:
      return refuseBlank(kTitleBlankMessage);
    case FieldCommit::linkBlank:
      return refuseBlank(kLinkBlankMessage);
    case FieldCommit::nothing:
      break;
  }
}

void HTMLViewController::editLinkAndTitle() {
  const bool found =
      m_document.editLink(toUtf8(m_view.linkEditInput.text()), toUtf8(m_view.titleEditInput.text()));
  showSelection();
  showDocument();
  saveNow(SaveMarker::closewindow);
  if (!found) emit report(tr("Nothing was changed: the link is not in this layout as it was clicked."));
}

void HTMLViewController::refuseBlank(std::string_view message) {
  constexpr int kOk = 0;
  constexpr int kDelete = 1;
  m_sheets.choose(translated(message), {}, {tr("OK"), tr("Delete This Link")}, kOk,
                  [this, link = *m_document.selection()](int answer) {
                    if (answer == kDelete) later(link, &HTMLViewController::beginLinkDeletion);
                  });
  clearLinkFields();
  showDocument();
}

void HTMLViewController::deleteLinkAction() {
  if (!m_document.selection()) return;
  if (m_document.toDelete() == Question::deleteLink) return beginLinkDeletion(*m_document.selection());
  constexpr int kSave = 0;
  constexpr int kCancel = 1;
  m_sheets.choose(tr("Changes have been made to this sitemap, would you like to save the changes you have "
                     "made before deleting this link?"),
                  named(*m_document.selection()) +
                      tr("Once you have deleted a link it cannot be restored without re-scanning the site."),
                  {tr("Save Changes"), tr("Cancel Deletion"), tr("Discard Changes")}, kCancel,
                  [this, link = *m_document.selection()](int answer) {
                    if (answer == kCancel) return;
                    if (answer == kSave) {
                      const platform::FileResult written = m_document.saveOrKeep();
                      if (!written.ok()) return tellNotWritten(written);
                      reportSaved();
                      saveActive();
                    } else {
                      m_document.discard();
                      setPopupButtons();
                    }
                    later(link, &HTMLViewController::linkDeletion);
                  });
}

void HTMLViewController::beginLinkDeletion(const LinkSelection& link) {
  constexpr int kDelete = 0;
  constexpr int kCancel = 1;
  m_sheets.choose(tr("Are you absolutely sure you want to remove this link from your sitemap, deleted links "
                     "cannot be restored."),
                  named(link) + tr("This could take a while for large sites."),
                  {tr("Delete Link"), tr("Cancel")}, kCancel, [this, link](int answer) {
                    if (answer == kDelete) linkDeletion(link);
                  });
}

void HTMLViewController::linkDeletion(const LinkSelection& link) {
  const Removed removed = m_document.removeLink(link);
  showSelection();
  showDocument();
  saveNow(SaveMarker::closewindow);
  if (removed == Removed::nothing)
    emit report(tr("Nothing was removed: the link could not be told apart in this layout."));
}

/// A step that opens a sheet waits until the one before it has gone. Meanwhile the user is free to go to
/// another document, where the link has no business, or to click another link, which is not the one meant.
void HTMLViewController::later(const LinkSelection& link,
                               void (HTMLViewController::*step)(const LinkSelection&)) {
  QTimer::singleShot(kFollowUpDelay, this, [this, link, step, file = m_document.file()] {
    if (m_document.isThere() && file == m_document.file()) (this->*step)(link);
  });
}

}  // namespace html_editor
