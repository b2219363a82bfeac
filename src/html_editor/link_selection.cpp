#include "html_editor/link_selection.h"

#include "platform/regex.h"
#include "sitemaps/html_format.h"

namespace html_editor {

const std::string_view kTitleBlankMessage =
    "The title field cannot be left blank, please enter a title for this page.";
const std::string_view kLinkBlankMessage =
    "The link field cannot be left blank, please enter the link for this page.";

namespace {

std::string anchor(std::string_view target, std::string_view text, std::string_view number) {
  std::string result = "<a href=\"";
  return result.append(target)
      .append("\">")
      .append(text)
      .append("<!-- LINKID: ")
      .append(number)
      .append(" --></a>");
}

}  // namespace

std::optional<LinkSelection> selectLink(std::string_view href, std::string_view label) {
  static const platform::Regex kMarker("---.*---");
  static const platform::Regex kNumber("---LINKID:(.*)---");
  if (href.empty() || label.empty()) return std::nullopt;
  LinkSelection selection;
  if (const auto marker = kMarker.find(href)) selection.linkIdentifier = marker->whole;
  if (const auto number = kNumber.find(href)) selection.linkNumber = number->groups[0];
  selection.delLink = platform::replaceText(href, selection.linkIdentifier, "");
  selection.delTitle = sitemaps::withAmpersandsEscaped(label);
  selection.originalLinkValue = anchor(href, selection.delTitle, selection.linkNumber);
  selection.linkEditInput = selection.delLink;
  selection.titleEditInput = label;
  return selection;
}

FieldCommit commitTitleField(std::string_view title, std::string_view link) {
  if (!title.empty()) return FieldCommit::edit;
  return link.empty() ? FieldCommit::nothing : FieldCommit::titleBlank;
}

FieldCommit commitLinkField(std::string_view title, std::string_view link) {
  if (!link.empty()) return FieldCommit::edit;
  return title.empty() ? FieldCommit::nothing : FieldCommit::linkBlank;
}

}  // namespace html_editor
