// What tests of scans in the window share: a site to scan, and the way from the button to the end.
#pragma once

#include <string>
#include <vector>

#include "support/slow_site.h"
#include "window_test.h"

namespace window_tests {

using support::ServedPage;
using support::SiteServer;
using support::SlowSite;

inline const QString kConnecting = QStringLiteral("establishConnectionSheet");
inline const QString kProgress = QStringLiteral("scanCustomAlertPanel");
inline const QString kLooping = QStringLiteral("There may be an issue with the site you are scanning.");
/// The path of a page whose address raises that warning.
inline constexpr const char* kLoop = "loop?a?b?c?d";

inline ServedPage page(const std::string& title, const std::vector<std::string>& links) {
  std::string body = "<html><head><title>" + title + "</title></head><body>";
  for (const std::string& link : links) body += "<a href=\"" + link + "\">" + link + "</a>";
  return {body + "</body></html>"};
}

/// Five pages, of which one is broken.
inline SiteServer::Pages smallSite() {
  return {{"/", page("Start", {"a.html", "b.html", "private/c.html"})},
          {"/a.html", page("A", {"gone.html", "a.html"})},
          {"/b.html", page("B", {})},
          {"/private/c.html", page("C", {})}};
}

/// Waits until the scan has ended and its controls are free again.
inline bool scanHasEnded(const Desk& desk) {
  // A question may be up still, and the window off because of that.
  const auto& button = desk.control<QWidget>("scanSiteButton");
  return comesTrue([&] { return !button.testAttribute(Qt::WA_ForceDisabled); });
}

/// A whole scan that no message interrupts.
inline bool scan(const Desk& desk) {
  return desk.click("scanSiteButton") && !desk.enabled("scanSiteButton") && scanHasEnded(desk) &&
         noSheetLeft();
}

}  // namespace window_tests
