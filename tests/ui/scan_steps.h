// What tests of scans in the window share: sites to scan, and the way from the button to the end.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

#include "support/site_server.h"
#include "window_test.h"

namespace window_tests {

inline const QString kShop = QStringLiteral("Shop");
inline const QString kConnecting = QStringLiteral("establishConnectionSheet");
inline const QString kProgress = QStringLiteral("scanCustomAlertPanel");
inline const QString kLooping = QStringLiteral("There may be an issue with the site you are scanning.");
/// The path of a page whose address raises that warning.
inline constexpr const char* kLoop = "loop?a?b?c?d";

support::ServedPage page(const std::string& title, const std::vector<std::string>& links);

/// Five pages, of which one is broken.
support::SiteServer::Pages smallSite();

/// A site one page of which is answered only when the test says so.
class SlowSite {
 public:
  SlowSite(support::SiteServer::Pages pages, std::string slowTarget);
  ~SlowSite() { release(); }

  std::string url(const std::string& path = {}) const { return m_server.url(path); }
  void release();
  /// Whether somebody waits for the slow page.
  bool isWaitedFor() const;

 private:
  support::ServedPage answer(const std::string& target);

  const support::SiteServer::Pages m_pages;
  const std::string m_slowTarget;
  mutable std::mutex m_mutex;  // guards what follows, up to the server
  std::condition_variable m_changed;
  bool m_waitedFor = false;
  bool m_released = false;
  support::SiteServer m_server;  // last, since its threads use the rest
};

/// Makes the site "Shop", opens the window and selects it.
void openWithShop(Desk& desk, const std::string& url);
/// Waits until the scan has ended and its controls are free again.
bool scanHasEnded(const Desk& desk);
/// A whole scan that no message interrupts.
bool scan(const Desk& desk);

}  // namespace window_tests
