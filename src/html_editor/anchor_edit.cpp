#include "html_editor/anchor_edit.h"

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

/// The anchor as it is spelled in the document. That it stands there in some other case is enough for the
/// spelling with "&amp;" to be the one replaced, and then nothing is. The dearer questions come last.
std::string_view spellingIn(std::string_view document, std::string_view original, std::string_view bare) {
  if (findText(document, original) != kNowhere || bare == original) return original;
  if (findText(document, bare) == kNowhere || standsInSomeCase(document, original)) return original;
  return bare;
}

}  // namespace

AnchorEdit editLinkAndTitle(std::string_view document, std::string_view originalLinkValue,
                            std::string_view linkNumber, std::string_view link, std::string_view title) {
  std::string anchor = "<a href=\"";
  anchor.append(link).append("---LINKID:").append(linkNumber).append("---\">");
  anchor.append(sitemaps::withAmpersandsEscaped(title));
  anchor.append("<!-- LINKID: ").append(linkNumber).append(" --></a>");

  const std::string bare = replaceText(originalLinkValue, "&amp;", "&");
  const std::string_view old = spellingIn(document, originalLinkValue, bare);
  return {replaceText(document, old, anchor), anchor};
}

}  // namespace html_editor
