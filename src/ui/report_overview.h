// The first tab of the report: what the scan has met, in numbers and plots.
#pragma once

#include <QLabel>
#include <QScrollArea>
#include <array>
#include <memory>

#include "ui/plot_view.h"
#include "ui/report_reader.h"

namespace ui {

/// UI thread.
class ReportOverview : public QScrollArea {
  Q_OBJECT

 public:
  explicit ReportOverview(QWidget* parent = nullptr);

  void showReport(std::shared_ptr<const report::LatestReport> report);
  void showChanges(const ComparedScans& compared);
  /// In place of a report.
  void showHint(const QString& sentence);

 private:
  QLabel* m_counts;
  QLabel* m_scan;
  QLabel* m_changes;
  QLabel* m_leftOut;
  std::array<PlotView*, 4> m_plots;
};

}  // namespace ui
