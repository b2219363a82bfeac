// How long the window of a report takes with 100,000 pages: to open, to sort, to search, to scroll.
#include <QAbstractItemModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>

#include "app/main_window.h"
#include "heartbeat.h"
#include "html_editor/sitemap_page.h"
#include "platform/named_controls.h"
#include "report/report_writer.h"
#include "store/add_edit_delete_sites.h"
#include "ui/icons.h"
#include "ui/report_window.h"

namespace {

using platform::control;

constexpr int kPages = 100'000;
constexpr int kLinksOnAPage = 10;
constexpr int kScreens = 200;  // of scrolling
constexpr const char* kSite = "Large";

std::string urlOf(int number) {
  return "http://www.example.test/folder/page" + std::to_string(number) + ".html";
}

/// A scan of pages of which each links to those behind it.
void keepScan(const store::StateFolder& stateFolder) {
  report::ReportWriter writer(stateFolder, kSite);
  writer.scanStarted();
  crawler::FetchedPage page{
      .status = 200, .mime = "text/html", .isPage = true, .hasContent = true, .bytes = 7'000};
  for (int number = 0; number < kPages; ++number) {
    const std::string url = urlOf(number);
    page.contents.title = "The title of page " + std::to_string(number);
    const bool isBroken = number % 1'000 == 999;
    page.status = isBroken ? 404 : 200;
    writer.pageMet({.number = static_cast<std::size_t>(number),
                    .url = url,
                    .page = page,
                    .standing = isBroken ? crawler::PageStanding::broken : crawler::PageStanding::listed,
                    .reason = crawler::LinkReason::none,
                    .level = number % 20});
    for (int i = 1; i <= kLinksOnAPage; ++i)
      writer.linkToPage(static_cast<std::size_t>((number + i) % kPages), "A link of an ordinary length");
  }
  crawler::ScanResult result;
  result.end = crawler::ScanEnd::complete;
  writer.scanEnded(result);
}

ui::ReportWindow* openReport(app::MainWindow& window) {
  control<QAction>(window, "scanReportMI").trigger();
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (auto* report = qobject_cast<ui::ReportWindow*>(each)) return report;
  }
  return nullptr;
}

double milliseconds(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Until all that it has caused is done.
template <typename Action>
void measure(const char* what, const Action& action) {
  QElapsedTimer timer;
  timer.start();
  action();
  QApplication::processEvents();
  std::printf("  %s: %.0f ms\n", what, milliseconds(timer));
}

void scroll(QTableView& table) {
  QScrollBar& bar = *table.verticalScrollBar();
  double longest = 0;
  QElapsedTimer all;
  all.start();
  for (int screen = 0; screen < kScreens; ++screen) {
    QElapsedTimer timer;
    timer.start();
    bar.setValue(bar.maximum() / kScreens * screen);
    table.viewport()->repaint();
    longest = std::max(longest, milliseconds(timer));
  }
  std::printf("  scrolling: %.1f ms a screen, the longest %.1f ms\n", milliseconds(all) / kScreens, longest);
}

}  // namespace

int main(int argc, char** argv) {
  html_editor::prepareWebEngine();
  QApplication application(argc, argv);
  ui::loadIcons();
  const QTemporaryDir home;
  const store::GlobalControls controls(home.path().toStdString());
  const store::StateFolder stateFolder(home.filePath(QStringLiteral("state")).toStdString());
  if (!store::checkNeededFoldersExist(controls).ok()) return 1;
  static_cast<void>(
      store::AddEditDeleteSites(controls, stateFolder).createNewSite(kSite, "http://www.example.test/"));
  for (int scan = 0; scan < 2; ++scan) {
    QElapsedTimer timer;
    timer.start();
    keepScan(stateFolder);
    std::printf("a scan of %d pages kept in %.0f ms\n", kPages, milliseconds(timer));
  }
  std::error_code none;
  std::printf(
      "report.db: %.0f MB\n",
      static_cast<double>(std::filesystem::file_size(stateFolder.ofSite(kSite) / "report.db", none)) / 1e6);

  app::MainWindow window(controls, stateFolder);
  window.show();
  control<QTableView>(window, "siteListTable").selectRow(0);
  QApplication::processEvents();

  QElapsedTimer opening;
  opening.start();
  const Heartbeat heartbeat;
  ui::ReportWindow* report = openReport(window);
  if (report == nullptr) return 1;
  auto& table = control<QTableView>(*report, "reportPagesTable");
  while (table.model()->rowCount() < kPages) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QApplication::processEvents();
  std::printf("  opened after %.0f ms, the window was held up for at most %.0f ms\n", milliseconds(opening),
              heartbeat.longestMilliseconds());
  auto& tabs = control<QTabWidget>(*report, "reportTabs");
  QWidget* tab = &table;
  while (tabs.indexOf(tab) < 0) tab = tab->parentWidget();
  measure("Pages brought to the front", [&] { tabs.setCurrentWidget(tab); });
  scroll(table);
  measure("sorted by title", [&] { table.sortByColumn(1, Qt::DescendingOrder); });
  measure("searched",
          [&] { control<QLineEdit>(*report, "reportPagesSearch").setText(QStringLiteral("999")); });
  return 0;
}
