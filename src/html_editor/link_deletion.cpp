#include "html_editor/link_deletion.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>

#include "platform/ascii.h"
#include "platform/regex.h"
#include "platform/utf8.h"

namespace html_editor {

namespace {

using platform::findText;
using platform::Regex;
using platform::replaceText;

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::string_view kLineAndTabs = "\n\t\t\t";
constexpr std::string_view kMarkerStart = "---LINKID:";
constexpr std::string_view kMarkerEnd = "---\">";
constexpr std::string_view kDivStart = "<div ";
constexpr std::string_view kDivEnd = "</div>";
constexpr std::string_view kTitleStart = "<div class=\"vskPageTitle\">";
constexpr std::string_view kLinkStart = "<div class=\"vskPageLink\">";

std::string entryEnd(std::string_view number) {
  std::string text = "<!-- LINKID: ";
  return text.append(number).append(" --></a></div>");
}

bool isDecimal(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == kNowhere;
}

/// The line that `position` lies in, without its line feed.
std::string_view lineAround(std::string_view text, std::size_t position) {
  const std::size_t before = position == 0 ? kNowhere : text.rfind('\n', position - 1);
  const std::size_t start = before == kNowhere ? 0 : before + 1;
  return text.substr(start, text.find('\n', position) - start);
}

/// The first match on a line that holds `literal`. For patterns that match no line feed and nothing without
/// the literal this is the first match of all, found without trying each line of a large document.
std::optional<std::string_view> findOnLineWith(std::string_view document, std::string_view literal,
                                               const Regex& pattern) {
  for (std::size_t at = 0; (at = findText(document, literal, at)) != kNowhere;) {
    const std::string_view line = lineAround(document, at);
    if (const auto match = pattern.find(line)) return match->whole;
    at = static_cast<std::size_t>(line.data() - document.data()) + line.size();
  }
  return std::nullopt;
}

/// Whether a pattern with `text` in it still matches within one line only, and nothing without its own end:
/// no escapes, no alternatives, no class that a line feed may be in, no verbs. "?" is escaped by us.
bool keepsPatternOnLine(std::string_view text) {
  const auto isOdd = [](char c) { return c == '\\' || c == '|' || static_cast<unsigned char>(c) < ' '; };
  return std::none_of(text.begin(), text.end(), isOdd) && text.find("[^") == kNowhere &&
         text.find("[:") == kNowhere && text.find("(*") == kNowhere;
}

/// The entry as it was clicked, from its opening "div" to its closing one.
std::optional<std::string_view> findClicked(std::string_view document, const LinkSelection& selection) {
  for (const std::string& text : spellingsOf(selection.titleEditInput)) {
    const std::string anchor = anchorMarkup(selection.target, text, selection.linkNumber) + "</div>";
    for (std::size_t at = 0; (at = findText(document, anchor, at)) != kNowhere; ++at) {
      const std::string_view before = document.substr(0, at);
      for (const std::string_view start : {kTitleStart, kLinkStart}) {
        if (before.ends_with(start) && before.substr(0, at - start.size()).ends_with(kLineAndTabs))
          return document.substr(at - start.size(), start.size() + anchor.size());
      }
    }
  }
  return std::nullopt;
}

/// The same for one that stands there otherwise.
std::optional<std::string_view> findLikely(std::string_view document, const LinkSelection& selection) {
  std::string source = "<div .*><a href=\"";
  source.append(selection.delLink).append(kMarkerStart).append(selection.linkNumber).append(kMarkerEnd);
  source.append(selection.delTitle).append(entryEnd(selection.linkNumber));
  const auto pattern = Regex::compile(replaceText(source, "?", "\\?"));
  if (!pattern) return std::nullopt;  // such as a "(" that nothing closes

  std::optional<std::string_view> entry;
  if (isDecimal(selection.linkNumber) && keepsPatternOnLine(selection.delLink) &&
      keepsPatternOnLine(selection.delTitle)) {
    entry = findOnLineWith(document, entryEnd(selection.linkNumber), *pattern);
  } else if (const auto match = pattern->find(document)) {
    entry = match->whole;
  }
  // A "|" in the text makes two patterns of one, and each matches a piece of the entry. To remove a piece
  // would leave the rest in the document as rubbish.
  if (entry && !(entry->starts_with(kDivStart) && entry->ends_with(kDivEnd))) return std::nullopt;
  return entry;
}

/// An entry that may become the heading.
struct Candidate {
  int number;
  std::string_view entry;
};

std::optional<std::string_view> findNext(std::string_view document, int number) {
  const std::string end = entryEnd(std::to_string(number));
  return findOnLineWith(document, end, Regex("<div .*><a .*---\">.*" + end));
}

/// Of the markers on a line those with a "div" around them; tells the smallest number in (`above`, `upTo`].
class NumberSearch {
 public:
  NumberSearch(int above, int upTo) : m_above(above), m_upTo(upTo) {}

  void readLine(std::string_view line) {
    const std::size_t start = line.find(kDivStart);
    const std::size_t end = line.rfind(kDivEnd);
    // The pattern's dots match no broken bytes.
    if (start == kNowhere || end == kNowhere || !platform::isUtf8(line)) return;
    for (std::size_t at = start + kDivStart.size(); (at = line.find(kMarkerStart, at)) < end;) {
      at += kMarkerStart.size();
      // What follows a number is looked at again: its dashes may begin the next marker.
      readNumber(line.substr(at, end - at), line);
    }
  }

  int number() const { return m_number; }
  std::string_view line() const { return m_line; }

 private:
  void readNumber(std::string_view text, std::string_view line) {
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || text.front() == '-' || (text.front() == '0' && stop != text.data() + 1))
      return;
    // In an address only the last one is a marker: the others a site has put there.
    if (!text.substr(static_cast<std::size_t>(stop - text.data())).starts_with(kMarkerEnd)) return;
    if (number <= m_above || number > m_upTo || (!m_line.empty() && number >= m_number)) return;
    m_number = number;
    m_line = line;
  }

  int m_above;
  int m_upTo;
  int m_number = 0;
  std::string_view m_line;  // the first one with m_number
};

/// The entry with the smallest number in (`above`, `upTo`]. A number may be missing for thousands in a row,
/// so the document is read once and not once for each.
std::optional<Candidate> findAbove(std::string_view document, int above, int upTo) {
  if (above >= upTo) return std::nullopt;
  NumberSearch search(above, upTo);
  for (std::size_t at = 0; (at = findText(document, kMarkerStart, at)) != kNowhere;) {
    const std::string_view line = lineAround(document, at);
    search.readLine(line);
    at = static_cast<std::size_t>(line.data() - document.data()) + line.size();
  }
  if (search.line().empty()) return std::nullopt;
  const std::string marker = std::string(kMarkerStart) + std::to_string(search.number());
  const auto match = Regex("<div .*" + marker + "---\">.*</div>").find(search.line());
  if (!match) return std::nullopt;
  return Candidate{search.number(), match->whole};
}

/// Makes the entry that follows a removed heading the heading of what is left of its block. When the next
/// entry has a heading's look already, the block was empty but for its heading.
void promoteFollowing(LinkDeletion& deletion, int removedNumber, int totalLinks) {
  if (removedNumber == std::numeric_limits<int>::max()) return;
  const int next = removedNumber + 1;
  std::optional<std::string_view> entry = findNext(deletion.document, next);
  if (!entry) {
    const auto candidate = findAbove(deletion.document, next, totalLinks);
    // The last number looked at is what stays selected.
    deletion.linkNumber = std::to_string(candidate ? candidate->number : std::max(next, totalLinks));
    if (candidate) entry = candidate->entry;
  }
  constexpr std::string_view kLink = "<div class=\"vskPageLink\"";
  if (!entry || !entry->starts_with(kLink)) return;
  const std::string promoted = std::string("<div class=\"vskPageTitle\"").append(entry->substr(kLink.size()));
  deletion.document = replaceText(deletion.document, *entry, promoted);
}

}  // namespace

LinkDeletion linkDeletion(std::string_view document, const LinkSelection& selection, int totalLinks) {
  LinkDeletion deletion{.document = {}, .linkNumber = selection.linkNumber, .removed = Removed::nothing};
  auto entry = findClicked(document, selection);
  if (!entry) entry = findLikely(document, selection);
  const std::string line = entry ? std::string(kLineAndTabs).append(*entry) : std::string();
  deletion.document = replaceText(document, line, "");
  // An entry that was indented by hand is found and yet stays.
  if (deletion.document.size() == document.size()) return deletion;

  const bool wasHeading =
      entry->starts_with(kTitleStart) ||
      (!entry->starts_with(kLinkStart) && findText(platform::lowerAscii(*entry), "vskpagetitle") != kNowhere);
  deletion.removed = wasHeading ? Removed::pageEntry : Removed::linkEntry;
  int number = 0;
  const char* end = selection.linkNumber.data() + selection.linkNumber.size();
  const bool numbered = std::from_chars(selection.linkNumber.data(), end, number).ec == std::errc();
  if (wasHeading && numbered) promoteFollowing(deletion, number, totalLinks);
  return deletion;
}

}  // namespace html_editor
