// A website that keeps one page back.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>

#include "support/site_server.h"

namespace support {

/// A site one page of which is answered only when the test says so.
class SlowSite {
 public:
  SlowSite(SiteServer::Pages pages, std::string slowTarget);
  ~SlowSite() { release(); }

  std::string url(const std::string& path = {}) const { return m_server.url(path); }
  void release();
  /// Whether somebody waits for the slow page.
  bool isWaitedFor() const;

 private:
  ServedPage answer(const std::string& target);

  const SiteServer::Pages m_pages;
  const std::string m_slowTarget;
  mutable std::mutex m_mutex;  // guards what follows, up to the server
  std::condition_variable m_changed;
  bool m_waitedFor = false;
  bool m_released = false;
  SiteServer m_server;  // last, since its threads use the rest
};

}  // namespace support
