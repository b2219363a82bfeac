#include "scan_steps.h"

#include <chrono>
#include <utility>

namespace window_tests {

using support::ServedPage;
using support::SiteServer;

ServedPage page(const std::string& title, const std::vector<std::string>& links) {
  std::string body = "<html><head><title>" + title + "</title></head><body>";
  for (const std::string& link : links) body += "<a href=\"" + link + "\">" + link + "</a>";
  return {body + "</body></html>"};
}

SiteServer::Pages smallSite() {
  return {{"/", page("Start", {"a.html", "b.html", "private/c.html"})},
          {"/a.html", page("A", {"gone.html", "a.html"})},
          {"/b.html", page("B", {})},
          {"/private/c.html", page("C", {})}};
}

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
    m_changed.wait_for(lock, std::chrono::milliseconds(3 * kPatience), [this] { return m_released; });
  }
  const auto found = m_pages.find(target);
  return found == m_pages.end() ? ServedPage{.status = 404} : found->second;
}

void openWithShop(Desk& desk, const std::string& url) {
  desk.makeSite("Shop", url);
  desk.open();
  desk.select(kShop);
}

bool scanHasEnded(const Desk& desk) {
  // A question may be up still, and the window off because of that.
  const auto& button = desk.control<QWidget>("scanSiteButton");
  return comesTrue([&] { return !button.testAttribute(Qt::WA_ForceDisabled); });
}

bool scan(const Desk& desk) {
  return desk.click("scanSiteButton") && !desk.enabled("scanSiteButton") && scanHasEnded(desk) &&
         noSheetLeft();
}

}  // namespace window_tests
