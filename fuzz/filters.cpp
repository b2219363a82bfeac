// Filters as typed, stored and read back. Input: what was typed, then the file's text so far.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "store/filters_file.h"
#include "store/text_lines.h"

namespace {

using fuzz::require;

void checkTyped(std::string_view typed) {
  const std::string_view kept = store::filterText(typed);
  require(typed.find(kept) != std::string_view::npos, "a filter is a part of what was typed");
  require(store::filterText(kept) == kept, "no filter begins or ends with a line end");
  require(store::filterText("\n" + std::string(typed) + "\xE2\x80\xA9\r") == kept, "line ends are cut off");
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string_view typed = fuzz::takeLine(rest);
  checkTyped(typed);
  checkTyped(rest);  // with line feeds in it

  const std::string file(rest);
  std::vector<std::string> lines = store::nonEmptyLines(file);
  const std::string filter(store::filterText(typed));
  std::string joined;
  for (const std::string& line : lines) {
    require(!line.empty() && line.find('\n') == std::string::npos, "each line is one");
    joined += line + "\n";
  }
  const auto ends = static_cast<std::size_t>(std::count(file.begin(), file.end(), '\n'));
  require(joined.size() - lines.size() == file.size() - ends, "nothing but line ends is left out");
  if (!filter.empty()) lines.push_back(filter);
  require(store::nonEmptyLines(joined + filter + "\n") == lines, "what is written is read back");
}
