// What the tables of a report hold.
#pragma once

#include <memory>
#include <vector>

#include "report/latest_report.h"
#include "ui/report_model.h"
#include "ui/report_reader.h"
#include "ui/report_tab.h"

namespace ui {

std::vector<ReportColumn> brokenColumns();
void showBrokenPages(ReportModel& model, std::shared_ptr<const report::LatestReport> report);

std::vector<ReportColumn> pageColumns();
void showPages(ReportModel& model, std::shared_ptr<const report::LatestReport> report);
/// All pages, and those to look at first.
std::vector<RowChoice> pageChoices(const report::LatestReport& report);

std::vector<ReportColumn> outsideColumns();
void showOutside(ReportModel& model, std::shared_ptr<const report::LatestReport> report);
/// All of them, and by what the last check has found.
std::vector<RowChoice> outsideChoices(const report::LatestReport& report);

std::vector<ReportColumn> leftOutColumns();
void showLeftOut(ReportModel& model, std::shared_ptr<const report::LatestReport> report);
std::vector<ReportColumn> exampleColumns();
void showExamples(ReportModel& model, std::shared_ptr<const report::LatestReport> report, std::size_t group);

std::vector<ReportColumn> changeColumns();
/// Rows in the order in which changeAt() counts.
void showChanges(ReportModel& model, std::shared_ptr<const ComparedScans> compared);
const report::PageChange& changeAt(const report::Changes& changes, std::size_t row);
/// All changes, and those of one kind each.
std::vector<RowChoice> changeChoices(const report::Changes& changes);

}  // namespace ui
