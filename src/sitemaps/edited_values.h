// Change frequencies and priorities that were edited by hand, and how they go into another sitemap.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace sitemaps {

/// By the address of their entry, with its references decoded. What a scan writes is no edit, and neither is
/// a value that is missing.
class EditedValues {
 public:
  /// Takes those of a sitemap (bytes as in the file, however broken), in place of others of the same entries.
  /// Of entries with the same address the last one counts.
  void add(std::string_view sitemap);

  bool isEmpty() const { return m_values.empty(); }

  /// Puts them into an entry of a sitemap, "<url>" to "</url>", where it still has what a scan writes.
  /// Nothing else of it changes. Gives their number.
  int putInto(std::string& entry) const;
  /// The same with all entries of a sitemap as a scan writes it; those of entries that it has are gone then.
  int moveInto(std::string& sitemap);

  /// Entries that add() takes them from again.
  std::string text() const;

 private:
  struct Values {
    std::string frequency;  // escaped; what a scan writes where it was not edited
    std::string priority;
  };

  static int put(const Values& values, std::string& entry);

  std::unordered_map<std::string, Values> m_values;  // by the address, its "&", "<" and ">" escaped
};

}  // namespace sitemaps
