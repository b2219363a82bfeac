// The XML sitemap in hand: its rows, the file that follows every change of them, and what has to be asked.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "sitemaps/edited_values.h"
#include "sitemaps/row_text.h"

namespace xml_editor {

using sitemaps::elementName;
using sitemaps::Field;
using sitemaps::kFields;
using sitemaps::shownValue;

/// A row that lacks an element.
struct MissingElement {
  std::size_t row = 0;  // from 0
  Field field = Field::loc;
};

/// The text of a sitemap with these rows. Addresses are written with bare ampersands, as the reader takes
/// them:
/// "&amp;" becomes "&" there and nowhere else. A row that lacks one of the four elements cannot be written:
/// then `missing` says which, and there is no text.
struct SitemapText {
  std::string text;
  std::optional<MissingElement> missing;
};
SitemapText sitemapText(const std::vector<std::string>& rows);

enum class ChangeStatus {
  saved,
  refused,     // the value is not allowed
  incomplete,  // a row lacks an element, so that nothing can be written
  scanned,     // somebody scans the site at the moment
  outdated,    // somebody else has changed the file since it was loaded
  failed,      // the file could not be written
};

/// What of the file in hand there is to show.
enum class Contents {
  none,        // no file is in hand
  missing,     // there is no such file
  unreadable,  // see XmlSitemap::readError()
  noEntries,
  entries,
};

/// What to ask after a step. Deleting is always asked about before, since it cannot be undone; reading the
/// file anew never, since nothing is ever unsaved.
enum class Question { none, readAnew };

/// How a change went. Unless it was saved, rows and file are as before, and `message` tells the user why.
struct [[nodiscard]] Change {
  ChangeStatus status = ChangeStatus::saved;
  std::string message = {};
  std::size_t row = 0;  // that lacks an element

  bool saved() const { return status == ChangeStatus::saved; }
  Question question() const { return status == ChangeStatus::outdated ? Question::readAnew : Question::none; }
};

/// How taking values over went. Where there are none nothing is written.
struct [[nodiscard]] TakenOver {
  Change change = {};
  int count = 0;  // of values
};

/// There is no state that is not saved: each change is on disk when its call returns. One thread at a time.
class XmlSitemap {
 public:
  /// Takes a file in hand, or the one that is there anew; none for an empty path. Only `Contents::entries`
  /// has rows.
  Contents load(const std::filesystem::path& file);

  Contents contents() const;
  /// Why the file could not be read.
  const std::string& readError() const { return m_read.error; }
  /// Somebody else has written the file since it was loaded: no change is saved until it is loaded anew. Not
  /// so for a file that has gone, which the next change writes again.
  bool changedElsewhere() const;

  const std::vector<std::string>& rows() const { return m_rows; }
  /// Some entry of the file holds elements that no row has, and that the next change drops.
  bool otherElements() const { return m_otherElements; }
  const std::filesystem::path& file() const { return m_file; }

  /// A value typed into a field; `today` as for refusal().
  Change setValue(std::size_t row, Field field, std::string_view value, std::string_view today);
  /// A value chosen in a menu: it is not checked.
  Change choose(std::size_t row, Field field, std::string_view value);
  Change remove(std::size_t row);
  /// Values that were edited in another sitemap, for all entries at once.
  TakenOver takeOver(const sitemaps::EditedValues& values);

 private:
  Change replaceRow(std::size_t row, std::string text);
  Change updateXmlFile();

  std::filesystem::path m_file;
  platform::FileResult m_read;  // how loading it went
  std::vector<std::string> m_rows;
  bool m_otherElements = false;
  std::size_t m_fingerprint = 0;  // of the file's text as it was last read or written
};

}  // namespace xml_editor
