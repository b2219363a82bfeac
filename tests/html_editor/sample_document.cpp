#include "html_editor/sample_document.h"

#include <stdexcept>

#include "sitemaps/html_format.h"

namespace samples {

namespace {

std::string entry(const char* cssClass, int number, const std::string& url, const std::string& title) {
  const std::string marker = std::to_string(number);
  return "<div class=\"" + std::string(cssClass) + "\"><a href=\"" + url + "---LINKID:" + marker + "---\">" +
         title + "<!-- LINKID: " + marker + " --></a></div>";
}

}  // namespace

std::string page(int number, const std::string& url, const std::string& title) {
  return entry("vskPageTitle", number, url, title);
}

std::string link(int number, const std::string& url, const std::string& title) {
  return entry("vskPageLink", number, url, title);
}

std::string document(int columns, const std::vector<Block>& blocks) {
  std::string text = sitemaps::documentOpening(columns);
  int cellsInRow = 0;
  for (const Block& block : blocks) {
    std::string entries;
    for (const std::string& entry : block) entries += "\n\t\t\t" + entry;
    const sitemaps::Cell cell = sitemaps::wrapCell(entries, columns, cellsInRow);
    text += cell.text;
    cellsInRow = cell.cellsInRow;
  }
  return text.append(sitemaps::documentClosing(columns, cellsInRow));
}

std::vector<Block> blocks(int count) {
  std::vector<Block> result;
  for (int i = 1; i <= count; ++i) {
    const std::string url = "http://a.test/" + std::to_string(i);
    result.push_back({page(10 * i, url, "Page " + std::to_string(i)),
                      link(10 * i + 2, url + "/link", "Link " + std::to_string(i))});
  }
  return result;
}

std::string with(std::string text, const std::string& what, const std::string& instead) {
  const std::size_t at = text.find(what);
  if (at == std::string::npos) throw std::logic_error("not in the text: " + what);
  return text.replace(at, what.size(), instead);
}

}  // namespace samples
