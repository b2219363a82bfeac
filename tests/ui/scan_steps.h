// What tests of scans in the window share: sites to scan, and the way from the button to the end.
#pragma once

#include <string>
#include <vector>

#include "support/slow_site.h"
#include "window_test.h"

namespace window_tests {

inline const QString kConnecting = QStringLiteral("establishConnectionSheet");
inline const QString kProgress = QStringLiteral("scanCustomAlertPanel");
inline const QString kLooping = QStringLiteral("There may be an issue with the site you are scanning.");
/// The path of a page whose address raises that warning.
inline constexpr const char* kLoop = "loop?a?b?c?d";

support::ServedPage page(const std::string& title, const std::vector<std::string>& links);

/// Five pages, of which one is broken.
support::SiteServer::Pages smallSite();

using support::SlowSite;

/// Makes the site "Shop", opens the window and selects it.
void openWithShop(Desk& desk, const std::string& url);
/// Waits until the scan has ended and its controls are free again.
bool scanHasEnded(const Desk& desk);
/// A whole scan that no message interrupts.
bool scan(const Desk& desk);

}  // namespace window_tests
