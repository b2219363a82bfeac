// Filters as typed, stored and read back. Input: what was typed, then the file's text so far.
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "store/filters_file.h"
#include "store/text_lines.h"

namespace {

using fuzz::require;

bool consistsOfLineEnds(std::string_view text) {
  while (!text.empty()) {
    const char first = text.front();
    if (first >= '\n' && first <= '\r') {
      text.remove_prefix(1);
    } else if (text.starts_with("\xC2\x85")) {
      text.remove_prefix(2);
    } else if (text.starts_with("\xE2\x80\xA8") || text.starts_with("\xE2\x80\xA9")) {
      text.remove_prefix(3);
    } else {
      return false;
    }
  }
  return true;
}

std::vector<std::string> linesByStream(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

void checkTyped(std::string_view typed) {
  const std::string_view kept = store::filterText(typed);
  for (std::size_t length = 1; length <= std::min<std::size_t>(kept.size(), 3); ++length) {
    require(!consistsOfLineEnds(kept.substr(0, length)), "no filter begins with a line end");
    require(!consistsOfLineEnds(kept.substr(kept.size() - length)), "no filter ends with a line end");
  }
  const std::size_t start = typed.empty() ? 0 : static_cast<std::size_t>(kept.data() - typed.data());
  require(start + kept.size() <= typed.size(), "a filter is a part of what was typed");
  require(consistsOfLineEnds(typed.substr(0, start)) && consistsOfLineEnds(typed.substr(start + kept.size())),
          "only line ends are cut off");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = fuzz::textOf(data, size);
  const std::string_view typed = fuzz::takeLine(rest);
  checkTyped(typed);
  checkTyped(rest);  // with line feeds in it

  const std::string file(rest);
  std::vector<std::string> lines = store::nonEmptyLines(file);
  require(lines == linesByStream(file), "a file holds its lines that are not empty");

  const std::string filter(store::filterText(typed));
  std::string joined;
  for (const std::string& line : lines) joined += line + "\n";
  if (!filter.empty()) lines.push_back(filter);
  require(store::nonEmptyLines(joined + filter + "\n") == lines, "what is written is read back");
  return 0;
}
