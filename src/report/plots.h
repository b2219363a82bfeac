// Plots of a report, as SVG for a window or a page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

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

/// One svg element, as wide as its surroundings make it. Its words are English and its fonts the system's.

/// Pages and broken pages of the complete scans, the latest 24 of them. `history` as the database gives it,
/// the newest first.
std::string historyPlot(const std::vector<ScanFacts>& history, Palette palette);

/// A bar for each kind, with its number. `title` is plain text: "Pages by status".
std::string barPlot(std::string_view title, const std::vector<Bar>& bars, Palette palette);

}  // namespace report
