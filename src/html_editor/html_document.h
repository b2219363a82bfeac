// The HTML sitemap in hand: its text, what is on disk of it, and what has to be asked before it changes.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "html_editor/document_check.h"
#include "html_editor/link_deletion.h"
#include "html_editor/link_selection.h"
#include "html_editor/recovery_copies.h"
#include "platform/files.h"
#include "sitemaps/layouts.h"
#include "store/global_controls.h"
#include "store/shared_state.h"

namespace html_editor {

/// What was found where a document should be. Unless that can be shown the text of the former one stays, and
/// counts as saved.
struct Opened {
  DocumentState state = DocumentState::missing;
  std::size_t bytes = 0;  // of the file
};

/// What to ask before a step. A question's first answer does the step and saves, or deletes.
enum class Question { none, save, beforePreview, beforeLayout, beforeLeaving, beforeDeletion, deleteLink };

/// How writing went. What could not be written is kept and comes back in `unsaved`, while the document is
/// what its file holds.
struct [[nodiscard]] Saving {
  platform::FileResult result = {};
  std::string unsaved = {};

  bool ok() const { return result.ok(); }
};

/// Every edit makes a new text; what is on disk changes only when it is saved, and then that one file. The
/// text, its file's path and whether it needs to be saved are those of the shared state, which nobody else
/// writes. One thread.
class HtmlDocument {
 public:
  /// State and controls are borrowed and outlive the document.
  HtmlDocument(store::SharedState& state, const store::GlobalControls& controls, RecoveryCopies recovery);

  /// Takes the site's first document in hand, none for a site without a name, or another of its layouts. The
  /// selection ends, and what was not saved is gone: see toSwitch() and toLeave().
  Opened firstLoad(std::string_view site);
  Opened switchTo(const sitemaps::Layout& layout);

  const std::string& text() const { return m_state.qzvskHTMLString; }
  std::filesystem::path file() const { return m_state.qzvskUTLLoc; }
  /// Whether a document is in hand, and not the lack of one.
  bool isThere() const { return m_isThere; }
  /// It is in hand, and the scan that wrote it was cut off.
  bool isUnfinished() const { return m_isThere && documentState(m_original) == DocumentState::unfinished; }
  bool changed() const { return m_isThere && text() != m_original; }
  /// The layout in hand; null before the first load.
  const sitemaps::Layout* layout() const { return m_layout; }
  const std::optional<LinkSelection>& selection() const { return m_selection; }

  /// Which question a step needs. A file that has vanished is not saved, so that nothing is asked about it.
  Question toSave() const;
  Question toSwitch() const { return changed() ? Question::beforeLayout : Question::none; }
  Question toLeave() const { return m_state.qzvskNeedsSave ? Question::beforeLeaving : Question::none; }
  Question toPreview() const { return changed() ? Question::beforePreview : Question::none; }
  Question toDelete() const { return changed() ? Question::beforeDeletion : Question::deleteLink; }

  void restyle(std::string text);

  /// Selects the entry that was clicked. False, and the selection as it was, when that is none.
  bool select(std::string_view href, std::string_view label);
  void clearSelection() { m_selection.reset(); }

  /// Rewrites the selected entry; the selection ends. False when it is not in the document as it was clicked.
  /// What is in hand is to be saved then, whether it was found or not.
  bool editLink(std::string_view link, std::string_view title);
  /// Removes an entry, and the cell that it leaves empty. To be saved then as well.
  Removed removeLink(const LinkSelection& link);

  /// Writes the text and reads back what the file holds. Nobody's work is overwritten: neither that of a scan
  /// that is under way nor that of another program.
  Saving save();
  /// The same for a document that stays in hand as it is when it cannot be written.
  platform::FileResult saveOrKeep();
  /// Back to the text that was last loaded or saved; or to what the file holds now.
  void discard();
  void readBack();

  /// Keeps the unsaved text where the next start finds it.
  void keepCopy();
  /// Changes that an earlier run could not save, to be offered for the document in hand.
  std::optional<std::string> keptChanges() const;
  /// Takes kept changes of a file in hand. False when another document is: they are offered again with
  /// theirs.
  bool restore(const std::filesystem::path& file, std::string text);
  void dropCopy(const std::filesystem::path& file);

 private:
  Opened open(const sitemaps::Layout& layout);
  platform::FileResult write();
  void take(std::string text);
  void noteChange();
  int totalLinks() const;

  store::SharedState& m_state;
  const store::GlobalControls& m_controls;
  RecoveryCopies m_recovery;
  bool m_isThere = false;
  std::string m_site;
  const sitemaps::Layout* m_layout = nullptr;
  std::string m_original;  // as last loaded or saved
  std::optional<LinkSelection> m_selection;
  bool m_copyKept = false;  // of the changes that are in hand
};

}  // namespace html_editor
