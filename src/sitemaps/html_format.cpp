#include "sitemaps/html_format.h"

#include "platform/regex.h"

namespace sitemaps {

const std::string_view kHtmlHeader =
    "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" "
    "\"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\">\n"
    "<html xmlns=\"http://www.w3.org/1999/xhtml\" xml:lang=\"en\" lang=\"en\">\n"
    "<head>\n"
    "\t<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\"/>\n"
    "\t<title>Sitemap</title>\n"
    "<style type=\"text/css\">\n"
    "\t<!--\n"
    "\t.vskPageTitle a:active { text-decoration:none }\n"
    "\t.vskPageTitle a:link { text-decoration:none }\n"
    "\t.vskPageTitle a:visited { text-decoration:none }\n"
    "\t.vskPageTitle a:hover { text-decoration:underline }\n"
    "\n"
    "\t.vskPageLink a:active { text-decoration:none }\n"
    "\t.vskPageLink a:link { text-decoration:none }\n"
    "\t.vskPageLink a:visited { text-decoration:none }\n"
    "\t.vskPageLink a:hover { text-decoration:underline }\n"
    "\n"
    "\t.vskPageTitle a {\n"
    "\t\tfont-family: Times New Roman, Times, serif;\n"
    "\t\tfont-weight: bold;\n"
    "\t\tfont-style: normal;\n"
    "\t\tcolor: #000000;\n"
    "\t\tfont-size: 1.1em;\n"
    "\t}\n"
    "\n"
    "\t.vskPageLink a {\n"
    "\t\tfont-weight: normal;\n"
    "\t\tfont-style: normal;\n"
    "\t\tfont-family: Times New Roman, Times, serif;\n"
    "\t\tfont-size: 1em;\n"
    "\t\tmargin-left: 20px;\n"
    "\t\tcolor: #0000FF;\n"
    "\t}\n"
    "\n"
    ".clearer {\n"
    "\tclear: both;\n"
    "}\n"
    "\n"
    ".vskPageTitleBroken a {\n"
    "\tfont-family: Times New Roman, Times, serif;\n"
    "\tfont-weight: bold;\n"
    "\tfont-style: normal;\n"
    "\tcolor: #ff0000;\n"
    "\tfont-size: 1.1em;\n"
    "\t}\n"
    "-->\n"
    "</style>\n"
    "</head>\n"
    "<body>\n";

const std::string_view kTableStart = "<table width=\"100%\" border=\"0\" cellpadding=\"10\">";

namespace {

constexpr std::string_view kRowStart = "\n\t<tr valign=\"top\">\n\t\t<td>";
constexpr std::string_view kNextCell = "\n\t\t</td>\n\t\t<td>";
constexpr std::string_view kRowEnd = "\n\t\t</td>\n\t</tr>";

template <typename... Pieces>
std::string join(const Pieces&... pieces) {
  std::string text;
  text.reserve((std::string_view(pieces).size() + ...));
  (text.append(pieces), ...);
  return text;
}

std::string entry(std::string_view cssClass, std::string_view url, int number, std::string_view title) {
  const std::string marker = std::to_string(number);
  return join("\n\t\t\t<div class=\"", cssClass, "\"><a href=\"", asMarkupAddress(url), "---LINKID:", marker,
              "---\">", asMarkupText(title), "<!-- LINKID: ", marker, " --></a></div>");
}

}  // namespace

std::string documentOpening(int columns) {
  return columns == 1 ? std::string(kHtmlHeader) : join(kHtmlHeader, kTableStart);
}

std::string pageEntry(std::string_view url, int number, std::string_view title) {
  return entry("vskPageTitle", url, number, title);
}

std::string linkEntry(std::string_view url, int number, std::string_view title) {
  return entry("vskPageLink", url, number, title);
}

std::string withAmpersandsEscaped(std::string_view text) {
  return platform::replaceText(text, "&", "&amp;");
}

std::string asMarkupText(std::string_view text) {
  return platform::replaceText(withAmpersandsEscaped(text), "<", "&lt;");
}

std::string asMarkupAddress(std::string_view url) {
  std::string address;
  address.reserve(url.size());
  for (const char c : url) {
    switch (c) {
      case '"':
        address += "%22";
        break;
      case '<':
        address += "%3C";
        break;
      case '>':
        address += "%3E";
        break;
      default:
        address += c;
    }
  }
  return address;
}

Cell wrapCell(std::string_view block, int columns, int cellsInRow) {
  if (columns == 1) return {join("\n", block, "\n<div class=\"clearer\">&nbsp;</div>"), 0};
  if (cellsInRow == 0) return {join(kRowStart, block, kNextCell), 1};
  if (cellsInRow + 1 < columns) return {join(block, kNextCell), cellsInRow + 1};
  return {join(block, kRowEnd), 0};
}

std::string documentClosing(int columns, int cellsInRow) {
  if (columns == 1) return "\n</body>\n</html>";
  std::string text;
  if (cellsInRow > 0) {
    // The next cell is open already: it gets a blank, and so does every further cell of the row.
    text += "&nbsp;</td>";
    for (int cell = cellsInRow + 1; cell < columns; ++cell) text += "\n\t\t<td>&nbsp;</td>";
    text += "\n\t</tr>";
  }
  return text += "\n</table>\n</body>\n</html>";
}

}  // namespace sitemaps
