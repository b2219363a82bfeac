#include "support/slow_site.h"

#include <utility>

#include "support/waiting.h"

namespace support {

SlowSite::SlowSite(SiteServer::Pages pages, std::string slowTarget)
    : m_pages(std::move(pages)),
      m_slowTarget(std::move(slowTarget)),
      m_server([this](const std::string& target, int) { return answer(target); }) {}

void SlowSite::release() {
  const std::lock_guard lock(m_mutex);
  m_released = true;
  m_changed.notify_all();
}

bool SlowSite::isWaitedFor() const {
  const std::lock_guard lock(m_mutex);
  return m_waitedFor && !m_released;
}

ServedPage SlowSite::answer(const std::string& target) {
  if (target == m_slowTarget) {
    std::unique_lock lock(m_mutex);
    m_waitedFor = true;
    // For some time only, so that no test hangs.
    m_changed.wait_for(lock, 3 * kPatience, [this] { return m_released; });
  }
  return pageOf(m_pages, target);
}

}  // namespace support
