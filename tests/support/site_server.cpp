#include "support/site_server.h"

#include <algorithm>
#include <utility>

namespace support {

ServedPage pageOf(const SiteServer::Pages& pages, const std::string& target) {
  const auto found = pages.find(target);
  return found != pages.end() ? found->second : ServedPage{.body = "<title>Missing</title>", .status = 404};
}

SiteServer::SiteServer(Pages pages)
    : SiteServer(
          [pages = std::move(pages)](const std::string& target, int) { return pageOf(pages, target); }) {}

SiteServer::SiteServer(Handler handler)
    : m_handler(std::move(handler)),
      m_server(RawServer::answering([this](const RawRequest& request) { return answer(request); })) {}

std::string SiteServer::answer(const RawRequest& request) {
  const std::string target(request.target());
  int times = 1;
  if (request.method() == "GET") {
    const std::lock_guard lock(m_mutex);
    times = ++m_gets[target];
  }
  const ServedPage page = m_handler(target, times);
  std::string headers;
  const auto add = [&](const std::string& name, const std::string& value) {
    if (!value.empty()) headers += name + ": " + value + "\r\n";
  };
  add("Last-Modified", page.lastModified);
  add("Location", page.location);
  add("Content-Type", page.contentType);
  return rawAnswerTo(request, std::to_string(page.status) + " ", headers, page.body);
}

std::vector<std::string> SiteServer::requests() const {
  std::vector<std::string> requests;
  for (const RawRequest& request : m_server.requests()) {
    requests.push_back(std::string(request.method()) + " " + std::string(request.target()));
  }
  return requests;
}

int SiteServer::timesAsked(const std::string& methodAndTarget) const {
  const std::vector<std::string> all = requests();
  return static_cast<int>(std::count(all.begin(), all.end(), methodAndTarget));
}

}  // namespace support
