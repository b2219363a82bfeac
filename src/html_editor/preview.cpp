#include "html_editor/preview.h"

#include <charconv>

#include "html_editor/table_cells.h"
#include "platform/regex.h"

namespace html_editor {

namespace {

using platform::findText;

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::string_view kStart = "---LINKID:";
constexpr std::string_view kCore = "LINKID:";
constexpr std::string_view kEnd = "---";
constexpr std::size_t kLongestRun = 1024;

/// A letter that a marker may consist of. Removing markers joins only what stands between two others, so each
/// run of such letters comes out the same whatever stands around it.
bool isMarkerLetter(char c) {
  return (c >= '0' && c <= '9') || (c != '\0' && std::string_view("-LINKD:").find(c) != kNowhere);
}

struct Marker {
  std::size_t position = kNowhere;
  std::size_t size = 0;
  std::size_t number = 0;
};

/// The first marker at or behind `from`, of any number below `count`.
Marker nextMarker(std::string_view text, std::size_t from, std::size_t count) {
  for (std::size_t at = from; (at = text.find(kStart, at)) != kNowhere; ++at) {
    const std::string_view digits = text.substr(at + kStart.size());
    std::size_t number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const auto length = static_cast<std::size_t>(stop - digits.data());
    if (error != std::errc() || number >= count || (digits.front() == '0' && length > 1)) continue;
    if (!digits.substr(length).starts_with(kEnd)) continue;
    return {at, kStart.size() + length + kEnd.size(), number};
  }
  return {};
}

/// The smallest number from `from` on whose marker stands in the text; `count` when there is none.
std::size_t smallestNumber(std::string_view text, std::size_t from, std::size_t count) {
  std::size_t smallest = count;
  for (Marker marker; (marker = nextMarker(text, marker.position + 1, count)).position != kNowhere;) {
    if (marker.number >= from && marker.number < smallest) smallest = marker.number;
  }
  return smallest;
}

/// One number after the other, as a marker may only come to be when another goes.
std::string inOrderOfNumbers(std::string_view run, std::size_t count) {
  std::string text(run);
  for (std::size_t number = 0; (number = smallestNumber(text, number, count)) < count; ++number) {
    text = platform::replaceText(text, std::string(kStart) + std::to_string(number) + std::string(kEnd), "");
  }
  return text;
}

std::string inOrderOfPlaces(std::string_view run, std::size_t count) {
  std::string text;
  std::size_t done = 0;
  for (Marker marker; (marker = nextMarker(run, done, count)).position != kNowhere;) {
    text.append(run, done, marker.position - done);
    done = marker.position + marker.size;
  }
  return text.append(run, done);
}

}  // namespace

std::string previewText(std::string_view document) {
  return withoutMarkers(document, readCells(document).anchors);
}

std::string withoutMarkers(std::string_view document, std::size_t count) {
  std::string text;
  text.reserve(document.size());
  std::size_t done = 0;
  for (std::size_t core = 0; (core = findText(document, kCore, done)) != kNowhere;) {
    std::size_t begin = core;
    while (begin > done && isMarkerLetter(document[begin - 1])) --begin;
    std::size_t end = core + kCore.size();
    while (end < document.size() && isMarkerLetter(document[end])) ++end;
    const std::string_view run = document.substr(begin, end - begin);
    text.append(document, done, begin - done);
    text.append(run.size() > kLongestRun ? inOrderOfPlaces(run, count) : inOrderOfNumbers(run, count));
    done = end;
  }
  return text.append(document, done);
}

}  // namespace html_editor
