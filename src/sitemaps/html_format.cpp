#include "sitemaps/html_format.h"

#include <array>
#include <charconv>
#include <limits>

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

/// Characters that cannot stand as they are, and what is written for them.
class Escapes {
 public:
  using Written = std::string_view (*)(char c);

  constexpr Escapes(std::string_view characters, Written written) : m_written(written) {
    for (const char c : characters) m_escaped[static_cast<unsigned char>(c)] = true;
  }

  void append(std::string& to, std::string_view text) const {
    std::size_t done = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (!m_escaped[static_cast<unsigned char>(text[i])]) continue;
      to.append(text, done, i - done).append(m_written(text[i]));
      done = i + 1;
    }
    to.append(text, done);
  }

 private:
  std::array<bool, 256> m_escaped{};  // each character of each link is looked up
  Written m_written;
};

constexpr std::size_t kLongestEscape = 5;
constexpr Escapes kTextEscapes("&<", [](char c) -> std::string_view { return c == '&' ? "&amp;" : "&lt;"; });
constexpr Escapes kAddressEscapes("\"<>", [](char c) -> std::string_view {
  return c == '"' ? "%22" : c == '<' ? "%3C" : "%3E";
});

/// There is one for every link of every page: no piece of it is put together on its own.
void appendEntry(std::string& to, std::string_view opening, std::string_view url, int number,
                 std::string_view title) {
  std::array<char, std::numeric_limits<int>::digits10 + 2> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  const std::string_view marker(digits.data(), static_cast<std::size_t>(end - digits.data()));
  // All at once: where memory runs out no half of an entry stays behind.
  constexpr std::size_t kMarkup = 160;
  to.reserve(to.size() + kMarkup + kLongestEscape * (url.size() + title.size()));
  to.append(opening);
  kAddressEscapes.append(to, url);
  to.append("---LINKID:").append(marker).append("---\">");
  kTextEscapes.append(to, title);
  to.append("<!-- LINKID: ").append(marker).append(" --></a></div>");
}

}  // namespace

std::string documentOpening(int columns) {
  return columns == 1 ? std::string(kHtmlHeader) : join(kHtmlHeader, kTableStart);
}

std::string pageEntry(std::string_view url, int number, std::string_view title) {
  std::string entry;
  appendEntry(entry, "\n\t\t\t<div class=\"vskPageTitle\"><a href=\"", url, number, title);
  return entry;
}

void appendLinkEntry(std::string& block, std::string_view url, int number, std::string_view title) {
  appendEntry(block, "\n\t\t\t<div class=\"vskPageLink\"><a href=\"", url, number, title);
}

std::string withAmpersandsEscaped(std::string_view text) {
  return platform::replaceText(text, "&", "&amp;");
}

std::string asMarkupText(std::string_view text) {
  std::string written;
  kTextEscapes.append(written, text);
  return written;
}

std::string asMarkupAddress(std::string_view url) {
  std::string address;
  kAddressEscapes.append(address, url);
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
