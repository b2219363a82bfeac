#include "ui/report_overview.h"

#include <QGridLayout>
#include <QVBoxLayout>
#include <chrono>
#include <utility>

#include "platform/qt_text.h"
#include "report/figures.h"
#include "report/plots.h"

namespace ui {

using platform::toQString;
using report::LatestReport;

namespace {

constexpr int kWidestPlot = 84;  // letters; beyond that it only gets coarse

QString countsOf(const LatestReport& report) {
  const report::ScanFacts& facts = report.now.facts;
  const auto numeral = [](std::int64_t number) { return toQString(report::grouped(number)); };
  const std::chrono::seconds time(facts.ended - facts.started);
  return ReportOverview::tr("%1 pages   %2 broken   %3 links   scanned in %4")
      .arg(numeral(facts.pagesUsed), numeral(facts.broken), numeral(facts.links),
           time.count() < 1 ? ReportOverview::tr("less than a second") : toQString(report::timeText(time)));
}

QString scanOf(const LatestReport& report) {
  const QString sentence =
      ReportOverview::tr("The scan of %1.").arg(toQString(report::dateText(report.now.facts.ended)));
  if (report.isOfLatestScan()) return sentence;
  return sentence + ReportOverview::tr(" The one of %1 did not come to its end.")
                        .arg(toQString(report::dateText(report.history.front().ended)));
}

void fill(QLabel& label, const QString& text) {
  label.setText(text);
  label.setHidden(text.isEmpty());
}

}  // namespace

ReportOverview::ReportOverview(QWidget* parent)
    : QScrollArea(parent),
      m_counts(new QLabel),
      m_scan(new QLabel),
      m_changes(new QLabel),
      m_leftOut(new QLabel) {
  setObjectName(QStringLiteral("reportOverview"));
  setAccessibleName(tr("Overview"));
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  auto* content = new QWidget;
  auto* layout = new QVBoxLayout(content);
  QFont heading = font();
  heading.setPointSizeF(heading.pointSizeF() * 1.3);
  heading.setBold(true);
  m_counts->setFont(heading);
  m_counts->setObjectName(QStringLiteral("reportCounts"));
  m_scan->setObjectName(QStringLiteral("reportScan"));
  m_changes->setObjectName(QStringLiteral("reportChanges"));
  m_leftOut->setObjectName(QStringLiteral("reportLeftOut"));
  for (QLabel* label : {m_counts, m_scan, m_changes, m_leftOut}) {
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    layout->addWidget(label);
  }
  layout->addSpacing(fontMetrics().height());
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(2 * fontMetrics().height());
  grid->setVerticalSpacing(fontMetrics().height());
  for (std::size_t i = 0; i < m_plots.size(); ++i) {
    m_plots[i] = new PlotView;
    m_plots[i]->setMaximumWidth(kWidestPlot * fontMetrics().averageCharWidth());
    grid->addWidget(m_plots[i], static_cast<int>(i / 2), static_cast<int>(i % 2));
  }
  layout->addLayout(grid);
  layout->addStretch(1);
  setWidget(content);
}

void ReportOverview::showReport(std::shared_ptr<const LatestReport> report) {
  fill(*m_counts, countsOf(*report));
  fill(*m_scan, scanOf(*report));
  fill(*m_changes, {});
  fill(*m_leftOut, toQString(report->leftOut.sentence()));
  using report::Palette;
  const auto bars = [report](const char* title, const std::vector<report::Bar>& all) {
    return [report, title, &all](Palette palette) { return report::barPlot(title, all, palette); };
  };
  m_plots[0]->setDrawing([report](Palette palette) { return report::historyPlot(report->history, palette); });
  m_plots[1]->setDrawing(bars(report::kByStatus, report->summary.byStatus));
  m_plots[2]->setDrawing(bars(report::kByLevel, report->summary.byLevel));
  m_plots[3]->setDrawing(bars(report::kByTime, report->summary.byTime));
  for (PlotView* plot : m_plots) plot->show();
}

void ReportOverview::showChanges(const ComparedScans& compared) {
  fill(*m_changes, toQString(report::changesText(compared.changes)));
}

void ReportOverview::showHint(const QString& sentence) {
  fill(*m_counts, sentence);
  for (QLabel* label : {m_scan, m_changes, m_leftOut}) fill(*label, {});
  for (PlotView* plot : m_plots) plot->hide();
}

}  // namespace ui
