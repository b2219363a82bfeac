#include "html_editor/anchor_edit.h"

#include <algorithm>
#include <optional>

#include "platform/ascii.h"
#include "platform/regex.h"
#include "platform/text.h"
#include "sitemaps/html_format.h"

namespace html_editor {

namespace {

using platform::findText;
using platform::replaceText;

constexpr std::size_t kNowhere = std::string_view::npos;

bool standsInSomeCase(std::string_view document, std::string_view text) {
  return findText(platform::foldCase(document), platform::foldCase(text)) != kNowhere;
}

/// The text of the entry as it is spelled in the document; nothing when the entry is not there. That it
/// stands there in some other case is enough for a scan's spelling to be the one replaced, and then nothing
/// is. The dearer questions come last.
std::optional<std::string> spellingIn(std::string_view document, const LinkSelection& selection) {
  for (std::string& text : spellingsOf(selection.titleEditInput)) {
    const std::string anchor = anchorMarkup(selection.target, text, selection.linkNumber);
    if (findText(document, anchor) == kNowhere) continue;
    const bool isFirst = anchor == selection.originalLinkValue;
    if (!isFirst && standsInSomeCase(document, selection.originalLinkValue)) return std::nullopt;
    return std::move(text);
  }
  return std::nullopt;
}

/// The "<" at the front of `text` with the letters of the tag's name.
std::string_view tagStart(std::string_view text) {
  const auto isPart = [](char c) { return platform::isAsciiLetter(c) || c == '/' || c == '!' || c == '?'; };
  return text.substr(
      0, static_cast<std::size_t>(std::find_if_not(text.begin() + 1, text.end(), isPart) - text.begin()));
}

std::string typedText(std::string_view title, std::string_view shownBefore, std::string_view writtenBefore) {
  if (writtenBefore.find("&lt;") == kNowhere) return sitemaps::withAmpersandsEscaped(title);
  const std::string before = platform::lowerAscii(shownBefore);
  std::string text;
  for (std::size_t at = 0; at < title.size(); ++at) {
    const std::string_view rest = title.substr(at);
    if (rest[0] == '&') {
      text += "&amp;";
    } else if (rest[0] == '<' && before.find(platform::lowerAscii(tagStart(rest))) != kNowhere) {
      text += "&lt;";
    } else {
      text += rest[0];
    }
  }
  return text;
}

}  // namespace

AnchorEdit editLinkAndTitle(std::string_view document, const LinkSelection& selection, std::string_view link,
                            std::string_view title) {
  const auto written = spellingIn(document, selection);
  if (!written) return {std::string(document), false};
  const std::string target = link == selection.linkEditInput
                                 ? selection.target
                                 : std::string(link) + "---LINKID:" + selection.linkNumber + "---";
  const std::string text =
      title == selection.titleEditInput ? *written : typedText(title, selection.titleEditInput, *written);
  const std::string anchor = anchorMarkup(target, text, selection.linkNumber);
  const std::string old = anchorMarkup(selection.target, *written, selection.linkNumber);
  return {replaceText(document, old, anchor), true};
}

}  // namespace html_editor
