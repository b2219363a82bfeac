// What stands above the table of outside links: when they were checked last, and how far a check is.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>
#include <string>

#include "platform/sheet_queue.h"
#include "report/latest_report.h"
#include "ui/elided_label.h"
#include "ui/link_check_controller.h"
#include "ui/link_check_sheet.h"

namespace ui {

/// Begins checks and stops them. UI thread.
class LinkCheckPanel : public QWidget {
  Q_OBJECT

 public:
  /// Both are borrowed and outlive the panel. The sheets are those of the window that it stands in.
  LinkCheckPanel(LinkCheckController& check, platform::SheetQueue& sheets, QWidget& window);

  /// What is known of the site in hand; null where nothing is.
  void showReport(const report::LatestReport* report);
  /// The site that a sheet asks about is not in hand any more.
  void withdrawSheet() { m_sheets.close(*m_sheet); }

 private:
  void buildLayout();
  void offer();
  void showPlan(const std::string& siteName, const report::CheckPlan& plan);
  void showProgress();
  void tellEnd(const QString& siteName, const report::CheckResult& result);

  LinkCheckController& m_check;
  platform::SheetQueue& m_sheets;
  LinkCheckSheet* m_sheet;  // the window's
  std::string m_siteName;   // in hand, as far as something is known of it
  bool m_hasScan = false;
  QWidget* m_told;
  QLabel* m_hint;
  QPushButton* m_begin;
  QWidget* m_running;
  QLabel* m_counts;
  QProgressBar* m_bar;
  ElidedLabel* m_host;
  QPushButton* m_stop;
};

}  // namespace ui
