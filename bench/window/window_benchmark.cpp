// Two figures of the window: how soon it is there with many sites, and how long a scan ever holds it up.
// Scans the site at the URL that is given, else one of its own, whose server takes most of the time.
#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <cstdio>
#include <string>

#include "app/main_window.h"
#include "heartbeat.h"
#include "platform/named_controls.h"
#include "platform/qt_text.h"
#include "store/add_edit_delete_sites.h"
#include "store/site_list.h"
#include "support/site_server.h"
#include "ui/icons.h"

namespace {

using platform::control;

constexpr int kSites = 1000;
constexpr int kPages = 10'000;
constexpr int kLinksOnAPage = 40;

/// Page N links to the forty pages behind it, so that all are found.
support::ServedPage pageAt(const std::string& target) {
  const std::size_t digits = target.find_first_of("0123456789");
  const int number = digits == std::string::npos ? 0 : std::atoi(target.c_str() + digits);
  std::string body = "<title>Page " + std::to_string(number) + "</title>";
  for (int i = 1; i <= kLinksOnAPage; ++i) {
    const std::string next = std::to_string((number * kLinksOnAPage + i) % kPages);
    body += "<p>Some words around it and <a href=\"page" + next + ".html\">the page of number " + next +
            "</a></p>";
  }
  return {body};
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  ui::loadIcons();
  const QTemporaryDir home;
  const store::GlobalControls controls(home.path().toStdString());
  const store::StateFolder stateFolder(home.filePath(QStringLiteral("state")).toStdString());
  if (!store::checkNeededFoldersExist(controls).ok()) return 1;
  const support::SiteServer server([](const std::string& target, int) { return pageAt(target); });
  const std::string url = argc > 1 ? argv[1] : server.url("page0.html");
  const store::AddEditDeleteSites sites(controls, stateFolder);
  for (int i = 0; i < kSites; ++i) {
    static_cast<void>(sites.createNewSite("Site " + std::to_string(10'000 + i), url));
  }

  QElapsedTimer startUp;
  startUp.start();
  app::MainWindow window(controls, stateFolder);
  window.show();
  QApplication::processEvents();
  std::printf("window with %d sites: usable after %lld ms\n", kSites,
              static_cast<long long>(startUp.elapsed()));

  control<QTableView>(window, "siteListTable").selectRow(0);
  control<QPushButton>(window, "scanSiteButton").click();
  const Heartbeat heartbeat;
  QElapsedTimer scan;
  scan.start();
  while (!control<QPushButton>(window, "scanSiteButton").isEnabled()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QApplication::processEvents();
  std::printf("scan of %s pages with %s links: %.1f s, the window was never held up longer than %.1f ms\n",
              qPrintable(control<QLabel>(window, "pagesFound").text()),
              qPrintable(control<QLabel>(window, "totalLinksFound").text()),
              static_cast<double>(scan.elapsed()) / 1000, heartbeat.longestMilliseconds());
  return 0;
}
