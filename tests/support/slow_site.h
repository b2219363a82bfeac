// A website that keeps one page back.
#pragma once

#include <atomic>
#include <string>

#include "support/site_server.h"

namespace support {

/// A site one page of which is answered only when the test says so.
class SlowSite {
 public:
  SlowSite(const SiteServer::Pages& pages, const std::string& slowTarget)
      : m_server([this, pages, slowTarget](const std::string& target, int) {
          if (target == slowTarget) {
            m_waitedFor = true;
            m_released.wait(false);
          }
          return pageOf(pages, target);
        }) {}
  ~SlowSite() { release(); }

  std::string url(const std::string& path = {}) const { return m_server.url(path); }
  int timesAsked(const std::string& methodAndTarget) const { return m_server.timesAsked(methodAndTarget); }
  void release() {
    m_released = true;
    m_released.notify_all();
  }
  /// Whether somebody waits for the slow page.
  bool isWaitedFor() const { return m_waitedFor && !m_released; }

 private:
  std::atomic<bool> m_waitedFor = false;
  std::atomic<bool> m_released = false;
  SiteServer m_server;  // last, since its threads use the rest
};

}  // namespace support
