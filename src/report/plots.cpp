#include "report/plots.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "platform/phrases.h"
#include "report/figures.h"
#include "sitemaps/html_format.h"

namespace report {

const std::string_view kPlotStyle =
    "svg.plot{--text:#333;--quiet:#666;--line:#bbb;--bar:#4a7ba6;--trouble:#b5542b;width:100%;height:auto}\n"
    "@media screen and (prefers-color-scheme:dark){"
    "svg.plot{--text:#ddd;--quiet:#aaa;--line:#555;--bar:#6f9fca;--trouble:#e08a5f}}\n"
    "svg.plot .text{fill:var(--text)}svg.plot .quiet{fill:var(--quiet)}svg.plot .line{fill:var(--line)}"
    "svg.plot .bar{fill:var(--bar)}svg.plot .trouble{fill:var(--trouble)}\n";

namespace {

using platform::Phrases;

constexpr double kWidth = 400;  // of every plot, in its own units; its texts are legible on a phone then
constexpr double kTop = 30;     // of what stands below the title
constexpr std::size_t kScansShown = 24;

enum class Paint { text, quiet, line, bar, trouble };

struct PaintNames {
  const char* name;
  const char* light;
  const char* dark;
};

constexpr std::array kPaints = {
    PaintNames{"text", "#333333", "#dddddd"}, PaintNames{"quiet", "#666666", "#aaaaaa"},
    PaintNames{"line", "#bbbbbb", "#555555"}, PaintNames{"bar", "#4a7ba6", "#6f9fca"},
    PaintNames{"trouble", "#b5542b", "#e08a5f"}};

enum class Align { start, middle, end };

/// With one digit behind the point, whatever the locale.
std::string place(double number) {
  const auto tenths = static_cast<long>(std::lround(number * 10));
  return std::to_string(tenths / 10) + "." + std::to_string(std::labs(tenths % 10));
}

/// Grows element by element.
class Drawing {
 public:
  Drawing(std::string_view title, std::string_view description, double height, Palette palette)
      : m_palette(palette) {
    m_svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"plot\" role=\"img\" viewBox=\"0 0 " +
            place(kWidth) + " " + place(height) + "\" font-family=\"sans-serif\" font-size=\"13\">\n<title>" +
            sitemaps::asMarkupText(title) + "</title><desc>" + sitemaps::asMarkupText(description) +
            "</desc>\n";
    text(0, 14, title, Paint::text, Align::start, " font-weight=\"bold\"");
  }

  void box(double x, double y, double width, double height, Paint paint) {
    m_svg += "<rect x=\"" + place(x) + "\" y=\"" + place(y) + "\" width=\"" + place(width) + "\" height=\"" +
             place(height) + "\"" + painted(paint) + "/>\n";
  }

  void text(double x, double y, std::string_view words, Paint paint, Align align = Align::start,
            std::string_view more = {}) {
    static constexpr std::array kAnchors = {"start", "middle", "end"};
    m_svg += "<text x=\"" + place(x) + "\" y=\"" + place(y) + "\" text-anchor=\"" +
             kAnchors[static_cast<std::size_t>(align)] + "\"" + painted(paint);
    m_svg.append(more).append(">").append(sitemaps::asMarkupText(words)).append("</text>\n");
  }

  std::string finished() && { return std::move(m_svg) + "</svg>\n"; }

 private:
  std::string painted(Paint paint) const {
    const PaintNames& names = kPaints[static_cast<std::size_t>(paint)];
    if (m_palette == Palette::page) return std::string(" class=\"") + names.name + "\"";
    return std::string(" fill=\"") + (m_palette == Palette::dark ? names.dark : names.light) + "\"";
  }

  Palette m_palette;
  std::string m_svg;
};

/// The share of `most` that `number` is, of `room`; what there is at all can be seen.
double shareOf(std::int64_t number, std::int64_t most, double room) {
  if (number <= 0 || most <= 0) return 0;
  return std::max(1.5, room * static_cast<double>(number) / static_cast<double>(most));
}

/// The latest complete scans, the oldest first.
std::vector<ScanFacts> latest(const std::vector<ScanFacts>& history) {
  std::vector<ScanFacts> scans;
  for (const ScanFacts& scan : history) {
    if (scan.isComplete() && scans.size() < kScansShown) scans.push_back(scan);
  }
  std::reverse(scans.begin(), scans.end());
  return scans;
}

/// A column a scan above one base line.
struct Panel {
  const char* name;
  std::int64_t ScanFacts::*number;
  Paint paint;
  double top;
  double height;
};

constexpr double kColumnsLeft = 60;
constexpr std::size_t kFewColumns = 4;  // no column is wider than with so many
constexpr double kNumberedColumns = 7;  // wide enough for numbers of seven digits above them

void draw(Drawing& drawing, const Panel& panel, const std::vector<ScanFacts>& scans) {
  std::int64_t most = 0;
  for (const ScanFacts& scan : scans) most = std::max(most, scan.*panel.number);
  const double base = panel.top + panel.height;
  const double step = (kWidth - kColumnsLeft) / static_cast<double>(std::max(scans.size(), kFewColumns));
  const bool isNumbered = static_cast<double>(scans.size()) <= kNumberedColumns;
  drawing.text(0, base - panel.height / 2 + 4, Phrases::tr(panel.name), Paint::quiet);
  drawing.box(kColumnsLeft, base, kWidth - kColumnsLeft, 1, Paint::line);
  for (std::size_t i = 0; i < scans.size(); ++i) {
    const std::int64_t number = scans[i].*panel.number;
    const double height = shareOf(number, most, panel.height);
    const double x = kColumnsLeft + step * static_cast<double>(i);
    drawing.box(x + step * 0.15, base - height, step * 0.7, height, panel.paint);
    const bool isLast = i + 1 == scans.size();
    if (isNumbered)
      drawing.text(x + step / 2, base - height - 4, grouped(number), Paint::text, Align::middle);
    else if (isLast)
      drawing.text(x + step, base - height - 4, grouped(number), Paint::text, Align::end);
  }
}

std::string dayOf(const ScanFacts& scan) {
  return dayText(scan.ended);
}

/// Below each column where there is room for that, else below the first and the last one.
void drawDates(Drawing& drawing, const std::vector<ScanFacts>& scans, double y) {
  if (scans.size() <= kFewColumns) {
    const double step = (kWidth - kColumnsLeft) / static_cast<double>(kFewColumns);
    for (std::size_t i = 0; i < scans.size(); ++i) {
      const double x = kColumnsLeft + step * (static_cast<double>(i) + 0.5);
      drawing.text(x, y, dayOf(scans[i]), Paint::quiet, Align::middle);
    }
    return;
  }
  // Several on one day are told apart by their times.
  const bool isOneDay = dayOf(scans.front()) == dayOf(scans.back());
  const auto dateOf = [&](const ScanFacts& scan) { return isOneDay ? dateText(scan.ended) : dayOf(scan); };
  drawing.text(kColumnsLeft, y, dateOf(scans.front()), Paint::quiet);
  drawing.text(kWidth, y, dateOf(scans.back()), Paint::quiet, Align::end);
}

std::string descriptionOf(const std::vector<ScanFacts>& scans) {
  std::string text;
  for (const ScanFacts& scan : scans) {
    text += Phrases::tr("%1: %2 pages, %3 broken. ",
                        {dayOf(scan), grouped(scan.pagesUsed), grouped(scan.broken)});
  }
  return text;
}

}  // namespace

std::string historyPlot(const std::vector<ScanFacts>& history, Palette palette) {
  constexpr Panel kPages = {Phrases::noop("Pages"), &ScanFacts::pagesUsed, Paint::bar, 50, 80};
  constexpr Panel kBroken = {Phrases::noop("Broken"), &ScanFacts::broken, Paint::trouble, 160, 40};
  constexpr double kHeight = 225;
  const std::vector<ScanFacts> scans = latest(history);
  Drawing drawing(Phrases::tr("Pages over the scans"), descriptionOf(scans), kHeight, palette);
  if (scans.empty()) {
    drawing.text(0, kTop + 10, Phrases::tr("There is no complete scan yet."), Paint::quiet);
    return std::move(drawing).finished();
  }
  draw(drawing, kPages, scans);
  draw(drawing, kBroken, scans);
  drawDates(drawing, scans, kHeight - 6);
  return std::move(drawing).finished();
}

std::string barPlot(std::string_view title, const std::vector<Bar>& bars, Palette palette) {
  constexpr double kRow = 22;
  constexpr double kBarsLeft = 130;
  constexpr double kNumberRoom = 70;  // behind the longest bar
  std::int64_t most = 0;
  std::string description;
  for (const Bar& bar : bars) {
    most = std::max(most, bar.pages);
    description += bar.label + ": " + grouped(bar.pages) + ". ";
  }
  const double height = kTop + kRow * static_cast<double>(std::max<std::size_t>(bars.size(), 1));
  Drawing drawing(Phrases::tr(title), description, height, palette);
  if (bars.empty()) drawing.text(0, kTop + 10, Phrases::tr("There are no pages."), Paint::quiet);
  double y = kTop;
  for (const Bar& bar : bars) {
    const double width = shareOf(bar.pages, most, kWidth - kBarsLeft - kNumberRoom);
    drawing.text(0, y + 13, bar.label, Paint::quiet);
    drawing.box(kBarsLeft, y + 2, width, kRow - 8, bar.isTrouble ? Paint::trouble : Paint::bar);
    drawing.text(kBarsLeft + width + 6, y + 13, grouped(bar.pages), Paint::text);
    y += kRow;
  }
  return std::move(drawing).finished();
}

}  // namespace report
