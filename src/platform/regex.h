// Regular expressions in PCRE syntax on UTF-8 text, compiled once and matched fast.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

enum class RegexCase { sensitive, insensitive };

/// One match; views into the text that was searched.
struct RegexMatch {
  std::size_t offset = 0;                // of `whole` in the text, in bytes
  std::string_view whole;                // "$0"
  std::vector<std::string_view> groups;  // "$1" is groups[0]; a group that took no part is empty
};

/// A compiled pattern. "." does not match a line feed, the only line end there is. Matching has bounded cost:
/// a search that runs into a limit (about a second of processor time, the backtracking from one place, or 8
/// MiB of its memory) counts as no match, and so never hangs on hostile text. Invalid UTF-8 in the text does
/// not end a search; a match never spans it. Safe to use from several threads at once.
class Regex {
 public:
  /// `pattern` is ours, never the user's or a site's: a faulty one, or one with more than 31 groups, is a bug
  /// and ends the program.
  explicit Regex(std::string_view pattern, RegexCase mode = RegexCase::sensitive);

  /// A pattern with texts of the user's or a site's in it; nothing when it is faulty or has too many groups.
  static std::optional<Regex> compile(std::string_view pattern, RegexCase mode = RegexCase::sensitive);

  ~Regex();
  Regex(Regex&&) noexcept;
  Regex& operator=(Regex&&) noexcept;

  /// The first match at or behind `from` (bytes); nothing when there is none, or `from` lies behind the end.
  /// What is in front of `from` still counts for "^", "\b" and looking behind.
  std::optional<RegexMatch> find(std::string_view text, std::size_t from = 0) const;

 private:
  struct Impl;
  explicit Regex(std::unique_ptr<Impl> impl);

  std::unique_ptr<Impl> m_impl;
};

/// Where `what` first stands at or behind `from`, as std::string_view::find() tells it, but in time that
/// grows with the sum of both lengths and not with their product.
std::size_t findText(std::string_view text, std::string_view what, std::size_t from = 0);

/// `text` with every occurrence of `what` replaced by `with`, both literal, left to right, without overlap.
/// An empty `what` occurs nowhere.
std::string replaceText(std::string_view text, std::string_view what, std::string_view with);

}  // namespace platform
