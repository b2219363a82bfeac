// Plots of a report, as SVG for a window or a page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/phrases.h"
#include "report/report.h"
#include "report/summary.h"

namespace report {

/// What a plot is painted with. Nothing is told by colour alone, and the ground shows through.
enum class Palette {
  light,
  dark,
  page,  // classes instead of colours, for kPlotStyle
};

/// The style sheet of plots for a page: colours for light and dark screens and for paper.
extern const std::string_view kPlotStyle;

/// One svg element, as wide as its surroundings make it. Its words are in the user's language and
/// its fonts the system's.
///
/// Pages and broken pages of the complete scans, the latest 24 of them. `history` as the database gives it,
/// the newest first.
std::string historyPlot(const std::vector<ScanFacts>& history, Palette palette);

/// The titles of bar plots.
inline constexpr const char* kByStatus = platform::Phrases::noop("Pages by status");
inline constexpr const char* kByLevel = platform::Phrases::noop("Pages by links from the start page");
inline constexpr const char* kByTime = platform::Phrases::noop("Pages by time to answer");

/// A bar for each kind, with its number. `title` is English and marked for translation.
std::string barPlot(std::string_view title, const std::vector<Bar>& bars, Palette palette);

}  // namespace report
