// What tests of the HTML sitemap's views share: a site with its six documents, and what is done to them.
#pragma once

#include <QDesktopServices>
#include <QUrl>
#include <QVariant>
#include <QWebEngineView>
#include <string>
#include <vector>

#include "html_editor/sample_document.h"
#include "scan_steps.h"
#include "sitemaps/layouts.h"
#include "window_test.h"

namespace window_tests {

inline const QString kSaveChanges = QStringLiteral("Save Changes");
inline const QString kDiscard = QStringLiteral("Discard");
inline const QString kDiscardChanges = QStringLiteral("Discard Changes");
inline const QString kRestoreChanges = QStringLiteral("Restore Changes");
inline const QString kLeaveQuestion =
    QStringLiteral("Changes have been made to this sitemap, would you like to save before proceeding?");
inline const QString kDeleteQuestion = QStringLiteral(
    "Are you absolutely sure you want to remove this link from your sitemap, deleted links cannot be "
    "restored.");
inline const QString kTwoColumns = QStringLiteral("Two Columns, All Links");
inline const QString kThreeColumns = QStringLiteral("Three Columns, All Links");

/// Notes what would be opened in other programs.
class Opener : public QObject {
  Q_OBJECT

 public:
  Opener() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
  ~Opener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

  QList<QUrl> opened;

 public slots:
  void open(const QUrl& url) { opened.append(url); }
};

/// Runs a script in the world of the program's own scripts and waits for its value.
QVariant inPage(QWebEngineView& view, const QString& script);

/// The window on a site whose six documents list the same pages.
class HtmlDesk : public Desk {
 public:
  /// Not opened yet. Without blocks the site was never scanned. Six pages fill the rows of every layout: a
  /// row that is not full has empty cells, and these go with the first deletion.
  explicit HtmlDesk(const std::vector<samples::Block>& blocks = samples::blocks(6));

  void writeDocuments(const std::vector<samples::Block>& blocks) const;

  /// Opens the window, selects the site and goes to a view, 2 or 3.
  void openAt(int view);
  /// Waits until the web view shows what is in hand.
  bool shown() const;

  std::string document() const { return window().state().qzvskHTMLString; }
  std::string onDisk(const std::string& file = "sitemap3c.html") const { return this->file("Shop", file); }
  /// Whether nothing is unsaved, and everything that tells of it says so.
  bool isClean() const { return tellsOfChanges(false); }
  bool isDirty() const { return tellsOfChanges(true); }
  /// Makes page titles italic, and back.
  bool edit() const { return click("ptItalicButton") && isDirty(); }

  QWebEngineView& webView() const { return control<QWebEngineView>("scanWebView"); }
  QVariant inPage(const QString& script) const { return window_tests::inPage(webView(), script); }
  /// Whether the web view's page comes to say this.
  bool inPageComesTrue(const QString& script) const;

  QLineEdit& field(const char* name) const { return control<QLineEdit>(name); }
  QString text(const char* field) const { return this->field(field).text(); }
  /// Takes an item of a pop-up, and tells so as that does.
  bool choose(const char* popup, const QString& item) const;
  /// Writes into a field as a user does, and presses Return.
  bool type(const char* field, const QString& text) const;
  /// A click on the first link that contains this text; waits until it is selected.
  bool clickLink(const QString& label) const;
  bool nothingIsSelected() const;

  /// The other five documents are as they were written.
  bool othersAreUntouched(const std::string& file = "sitemap3c.html") const;

 private:
  bool tellsOfChanges(bool unsaved) const;

  std::vector<samples::Block> m_blocks;
};

/// What edit() makes of a document.
std::string edited(const std::string& document);

}  // namespace window_tests
