#include "html_editor/link_selection.h"

#include <utility>

#include "platform/phrases.h"
#include "platform/regex.h"
#include "sitemaps/html_format.h"

namespace html_editor {

const std::string_view kTitleBlankMessage =
    platform::Phrases::noop("The title field cannot be left blank, please enter a title for this page.");
const std::string_view kLinkBlankMessage =
    platform::Phrases::noop("The link field cannot be left blank, please enter the link for this page.");

std::string anchorMarkup(std::string_view target, std::string_view text, std::string_view number) {
  std::string result = "<a href=\"";
  return result.append(target)
      .append("\">")
      .append(text)
      .append("<!-- LINKID: ")
      .append(number)
      .append(" --></a>");
}

std::optional<LinkSelection> selectLink(std::string_view href, std::string_view label) {
  static const platform::Regex kMarker("---.*---");
  static const platform::Regex kLastNumber("---LINKID:(\\d+)---$");
  static const platform::Regex kNumber("---LINKID:(.*)---");
  if (href.empty() || label.empty()) return std::nullopt;
  LinkSelection selection;
  selection.target = href;
  if (const auto marker = kMarker.find(href)) selection.linkIdentifier = marker->whole;
  auto number = kLastNumber.find(href);
  if (!number) number = kNumber.find(href);
  if (number) selection.linkNumber = number->groups[0];
  selection.delLink = platform::replaceText(href, selection.linkIdentifier, "");
  selection.delTitle = sitemaps::asMarkupText(label);
  selection.originalLinkValue = anchorMarkup(href, selection.delTitle, selection.linkNumber);
  selection.linkEditInput = selection.delLink;
  selection.titleEditInput = label;
  return selection;
}

std::vector<std::string> spellingsOf(std::string_view label) {
  std::vector<std::string> spellings = {sitemaps::asMarkupText(label)};
  for (std::string other : {sitemaps::withAmpersandsEscaped(label), std::string(label)}) {
    if (other != spellings.back()) spellings.push_back(std::move(other));
  }
  if (label.find('\n') == std::string_view::npos) return spellings;
  for (std::size_t i = 0, count = spellings.size(); i < count; ++i)
    spellings.push_back(platform::replaceText(spellings[i], "\n", "\r\n"));
  return spellings;
}

FieldCommit commitFields(const LinkSelection& selection, std::string_view link, std::string_view title) {
  const bool linkChanged = link != selection.linkEditInput;
  const bool titleChanged = title != selection.titleEditInput;
  if ((!linkChanged && !titleChanged) || (link.empty() && title.empty())) return FieldCommit::nothing;
  if (titleChanged && title.empty()) return FieldCommit::titleBlank;
  if (linkChanged && link.empty()) return FieldCommit::linkBlank;
  return FieldCommit::edit;
}

}  // namespace html_editor
