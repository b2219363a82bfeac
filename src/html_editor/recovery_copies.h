// Unsaved edits that survive a crash: for each document a copy of the edited text in its site's state folder.
//
// A copy belongs to the very text that was edited: once the document on disk is another one, by a scan or a
// program, the copy is of no use and never offered.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "store/state_folder.h"

namespace html_editor {

/// A value; folders are made when something is first saved. Documents lie in the folders of their sites.
class RecoveryCopies {
 public:
  explicit RecoveryCopies(store::StateFolder state) : m_state(std::move(state)) {}

  /// Keeps `text`, an edit of `original`, the text that the document's file holds. Replaces an older copy at
  /// once or not at all. The file is synced, so this is nothing to do at every stroke of a key.
  platform::FileResult save(const std::filesystem::path& document, std::string_view original,
                            std::string_view text) const;

  /// The copy to offer for a document whose file holds `onDisk`. Nothing when there is no whole copy, it is
  /// an edit of some other text, or equals `onDisk`.
  std::optional<std::string> load(const std::filesystem::path& document, std::string_view onDisk) const;

  /// After the document was saved or its edits were thrown away. No copy is fine.
  platform::FileResult drop(const std::filesystem::path& document) const;

  /// Takes along what former versions kept in one folder for all sites, "unsaved". Done once: the folder
  /// goes.
  void takeFormer() const;

 private:
  std::filesystem::path file(const std::filesystem::path& document) const;

  store::StateFolder m_state;
};

}  // namespace html_editor
