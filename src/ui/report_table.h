// How the tables of a report look and what their rows offer.
#pragma once

#include <QAction>
#include <QString>
#include <QStringList>
#include <QTableView>
#include <memory>
#include <vector>

#include "report/report.h"
#include "ui/report_model.h"

namespace ui {

/// Gives a table the model, which outlives it, with widths by the kinds of its columns. Rows are copied by
/// the usual key, and those of addresses open in the browser.
void setUpReportTable(QTableView& table, ReportModel& model);

/// The addresses of the selected rows, in their order; their first texts where the rows have no address.
QStringList selectedAddresses(const QTableView& table, const ReportModel& model);

/// A command of the table for its selected row, by Return, a double click or its menu. On while a row is
/// selected.
QAction& addRowAction(QTableView& table, const QString& text);

/// The columns of pages that link somewhere: the page, the link's text.
std::vector<ReportColumn> linkingColumns();
void showLinks(ReportModel& model, std::shared_ptr<const std::vector<report::LinkingPage>> links);

}  // namespace ui
