#include "html_editor/fixed_pages.h"

#include <string_view>

#include "platform/phrases.h"

namespace html_editor {

namespace {

using platform::Phrases;

std::string page(std::string_view message) {
  constexpr std::string_view kBlankLine = "<h2 align=\"center\">&nbsp;</h2>";
  std::string text =
      "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" "
      "\"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\">"
      "<html xmlns=\"http://www.w3.org/1999/xhtml\">\t\t<head><meta http-equiv=\"Content-Type\" "
      "content=\"text/html; charset=UTF-8\" /><title>No Sitemap Available</title></head><body>";
  text.append(kBlankLine).append(kBlankLine).append(kBlankLine);
  return text.append("<h2 align=\"center\">").append(message).append("</h2></body></html>");
}

}  // namespace

std::string noSitePage() {
  return page(Phrases::tr("Please Select A Site To View It's Sitemap"));
}

std::string nothingToShowPage(DocumentState state, std::size_t bytes) {
  constexpr std::size_t kMegabyte = 1u << 20;
  switch (state) {
    case DocumentState::missing:
      return page(
          Phrases::tr("No Sitemap Is Available<br />Please scan this website to create the html sitemap."));
    case DocumentState::tooLarge:
      return page(
          Phrases::tr("This Sitemap Is Too Large To Show<br />It has %1 MB, and up to %2 MB can be shown and "
                      "edited here. It can be exported; a layout with pages only may be "
                      "small enough.",
                      {std::to_string(bytes / kMegabyte), std::to_string(kMostShown / kMegabyte)}));
    case DocumentState::noEntries:
      return page(Phrases::tr("This Sitemap Is Empty<br />The last scan of this website found no pages."));
    default:
      return page(
          Phrases::tr("The Last Scan Did Not Finish<br />Please scan this website again to create the html "
                      "sitemap."));
  }
}

}  // namespace html_editor
