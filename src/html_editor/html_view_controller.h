// The HTML sitemap viewer and editor: one document in hand, shown in a web view, restyled, edited and saved.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "html_editor/html_document.h"
#include "html_editor/html_view_controls.h"
#include "html_editor/sitemap_web_view.h"
#include "html_editor/style_controls_view.h"
#include "platform/files.h"
#include "platform/sheet_queue.h"
#include "sitemaps/script_text.h"
#include "store/global_controls.h"
#include "store/shared_state.h"

namespace html_editor {

/// What of the program the controller works with. All is borrowed and outlives it.
struct HTMLViewServices {
  QMainWindow& mainWindow;
  platform::SheetQueue& sheets;
  const store::GlobalControls& controls;
  store::SharedState& state;
  RecoveryCopies recovery;
  sitemaps::PassedScripts& passedScripts;
};

/// Owns the web view and the style controls, which the viewer and the style editor share. Every edit replaces
/// the text of the document in hand (`qzvskHTMLString`); what is on disk changes only when it is saved. UI
/// thread.
class HTMLViewController : public QObject {
  Q_OBJECT

 public:
  explicit HTMLViewController(const HTMLViewServices& services);

  /// The HTML viewer was opened from the toolbar. `wasShown`: it was the current view before.
  void viewTBIAction(bool wasShown);

  /// The style editor was opened. Coming from the viewer it goes on with the same document.
  void styleTBIAction(int previousView);

  /// Another site is in hand, or the documents of this one were written anew: what is shown is loaded again.
  void siteChanged();

  void firstLoad();
  void setPopupButtons();
  void enableEditOptions() { enableOptions(true); }
  void disableEditOptions() { enableOptions(false); }
  void saveActive();

  /// The actions by the names of each class of entries. The controls call what the two share.
  void ptFontFamily() { changeFontFamily(m_pt); }
  void plFontFamily() { changeFontFamily(m_pl); }
  void ptFontSize() { changeFontSize(m_pt); }
  void plFontSize() { changeFontSize(m_pl); }
  void ptFontStyleBold() { changeBold(m_pt); }
  void plFontStyleBold() { changeBold(m_pl); }
  void ptFontStyleItalic() { changeItalic(m_pt); }
  void plFontStyleItalic() { changeItalic(m_pl); }
  void changePTColour(std::string_view colour);
  void changePLColour(std::string_view colour);
  void ptColourWell(const Colour& colour);
  void plColourWell(const Colour& colour);
  void ptFontColourFieldAction() { applyTypedColour(m_pt); }
  void plFontColourFieldAction() { applyTypedColour(m_pl); }
  void ptUnderlineNone() { changeUnderline(m_pt, Underline::none); }
  void ptUnderlineOnHover() { changeUnderline(m_pt, Underline::onHover); }
  void ptUnderlineAll() { changeUnderline(m_pt, Underline::all); }
  void plUnderlineNone() { changeUnderline(m_pl, Underline::none); }
  void plUnderlineOnHover() { changeUnderline(m_pl, Underline::onHover); }
  void plUnderlineAll() { changeUnderline(m_pl, Underline::all); }

  void viewSitemapButton();
  void changeMapType();
  void titleEditInputAction() { commitFields(); }
  void linkEditInputAction() { commitFields(); }
  void deleteLinkAction();
  /// Of the selected link; nothing happens without one.
  void copyLinkAddress();
  void openLinkInBrowser();

  /// Nothing asks for defaultAsk.
  enum class SaveMarker { savebutton, closewindow, changemap, defaultAsk };
  void saveNow(SaveMarker marker);
  void saveRecentChanges() { saveNow(SaveMarker::savebutton); }

  /// Drops what stands in the two fields of the selected link, and the selection with it.
  void clearLinkFields();

  /// Offers to save the document in hand when it has unsaved changes. Does not wait for the answer: `then` is
  /// called when there was nothing to ask, or once it was answered. It is not called when saving failed.
  void checkSave(std::function<void()> then = {});

  /// The other name of MainViewControl::changeCurrentView(), which alone is called.
  static void setCurrentView(store::SharedState& state, int number) { state.qzvskCurrentView = number; }

 signals:
  void report(const QString& sentence);
  /// Whether there is something to save now.
  void needsSaveChanged(bool needsSave);

 private:
  // html_view_controller.cpp
  void connectControls();
  void connectStyle(StyleControlsView& controls);
  void orderTabs(bool viewer);
  void onCommit(QLineEdit& field, std::function<void()> action);
  void makeWebView();
  void takePlace(int view);
  void showPage(const std::string& page);
  void showDocument();
  void enableOptions(bool enabled);
  void markBusy(bool busy);
  void showOpened(const Opened& opened);
  bool isCurrentView() const;  // the viewer or the style editor

  // html_view_style.cpp
  void changeFontFamily(StyleControlsView& controls);
  void changeFontSize(StyleControlsView& controls);
  void changeBold(StyleControlsView& controls);
  void changeItalic(StyleControlsView& controls);
  void changeColour(EntryClass entries, std::string_view colour);
  void chooseColour(StyleControlsView& controls);
  void applyTypedColour(StyleControlsView& controls);
  void complainAboutColour(StyleControlsView& controls);
  void changeUnderline(StyleControlsView& controls, Underline mode);
  void useStyled(std::string document);

  // html_view_links.cpp
  void buildLinkMenu();
  void linkClicked(const QString& href, const QString& label, QPointF scrolledTo);
  void editLinkAndTitle();
  void refuseBlank(std::string_view message);
  void focusMoved(const QWidget* from, const QWidget* to);
  void commitFields();
  void beginLinkDeletion(const LinkSelection& link);
  void linkDeletion(const LinkSelection& link);
  void showSelection();
  void markSelection();
  void later(const LinkSelection& link, void (HTMLViewController::*step)(const LinkSelection&));

  // html_view_saving.cpp
  bool saveAndReadBack();
  void reportSaved();
  void tellNotWritten(const platform::FileResult& result);
  void offerNotWritten(const platform::FileResult& result, std::string text);
  QString notWritten(const platform::FileResult& result) const;
  void chooserFollowsFile();
  void switchLayout();
  void answerCheckSave(bool save);
  void afterQuestion(std::function<void()> step);
  void externalBrowserView();
  void openPreview();
  void offerRecoveryCopy();
  void restore(const std::filesystem::path& file, const std::string& text);

  HTMLViewServices m_services;
  store::SharedState& m_state;
  platform::SheetQueue& m_sheets;
  HtmlDocument m_document;
  StyleControlsView m_pt;
  StyleControlsView m_pl;
  HtmlViewControls m_view;
  QPointer<SitemapWebView> m_scanWebView;  // made when it is first needed, as is
  QPointer<QLabel> m_notice;               // what the user should know of the document

  QPointF m_savedScrollPosition;
  bool m_documentIsNew = true;                       // and not an edit of the one that is shown
  bool m_asking = false;                             // checkSave()'s question is up,
  std::vector<std::function<void()>> m_afterAnswer;  // and these wait for its answer
  QTimer m_recoveryTimer;
};

}  // namespace html_editor
