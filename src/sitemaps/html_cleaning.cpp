#include "sitemaps/html_cleaning.h"

#include <algorithm>

namespace sitemaps {

namespace {

constexpr std::size_t kReports = 200;

struct Marker {
  std::string_view opening;
  std::string_view closing;
};

constexpr Marker kComment = {"<!-- LINKID: ", " -->"};
constexpr Marker kInAddress = {"---LINKID:", "---"};

/// Appends `line` to `result` without the markers. An opening that nothing closes ends the search, since
/// nothing closes one behind it either: so a line costs its length, whatever is in it.
void appendWithout(const Marker& marker, std::string_view line, std::string& result) {
  for (;;) {
    const std::size_t start = line.find(marker.opening);
    if (start == std::string_view::npos) break;
    const std::size_t end = line.find(marker.closing, start + marker.opening.size());
    if (end == std::string_view::npos) break;
    result += line.substr(0, start);
    line.remove_prefix(end + marker.closing.size());
  }
  result += line;
}

}  // namespace

std::string withoutLinkIds(std::string_view document, const CleaningProgress& progress) {
  const auto lines = static_cast<std::size_t>(std::count(document.begin(), document.end(), '\n')) + 1;
  const std::size_t step = std::max<std::size_t>(1, lines / kReports);
  std::string result;
  result.reserve(document.size());
  std::string withoutComments;
  for (std::size_t number = 0; number < lines; ++number) {
    if (progress && number % step == 0) progress(number, lines);
    const std::string_view line = document.substr(0, document.find('\n'));
    if (number > 0) result += '\n';
    withoutComments.clear();
    appendWithout(kComment, line, withoutComments);
    appendWithout(kInAddress, withoutComments, result);
    document.remove_prefix(std::min(line.size() + 1, document.size()));
  }
  return result;
}

}  // namespace sitemaps
