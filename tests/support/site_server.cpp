#include "support/site_server.h"

#include <algorithm>
#include <stdexcept>

#include <httplib.h>

namespace support {

ServedPage pageOf(const SiteServer::Pages& pages, const std::string& target) {
  const auto found = pages.find(target);
  return found != pages.end() ? found->second : ServedPage{.body = "<title>Missing</title>", .status = 404};
}

SiteServer::SiteServer(Pages pages)
    : SiteServer(
          [pages = std::move(pages)](const std::string& target, int) { return pageOf(pages, target); }) {}

SiteServer::SiteServer(Handler handler)
    : m_server(std::make_unique<httplib::Server>()), m_handler(std::move(handler)) {
  m_server->set_tcp_nodelay(true);
  // A thread stays with its connection as long as that is kept: too few, and connections wait for each other.
  constexpr std::size_t kMostConnections = 40;
  m_server->new_task_queue = [] { return new httplib::ThreadPool(kMostConnections); };
  m_server->set_keep_alive_max_count(1'000'000);
  m_server->set_keep_alive_timeout(1);
  m_server->Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
    int times = 1;
    {
      const std::lock_guard lock(m_mutex);
      m_requests.push_back(request.method + " " + request.target);
      if (request.method == "GET") times = ++m_gets[request.target];
    }
    const ServedPage page = m_handler(request.target, times);
    response.status = page.status;
    if (!page.lastModified.empty()) response.set_header("Last-Modified", page.lastModified);
    if (!page.location.empty()) response.set_header("Location", page.location);
    response.body = page.body;
    if (!page.contentType.empty()) response.set_header("Content-Type", page.contentType);
  });
  m_port = m_server->bind_to_any_port("127.0.0.1");
  if (m_port < 0) throw std::runtime_error("no free port");
  m_thread = std::thread([this] { m_server->listen_after_bind(); });
  while (!m_server->is_running()) std::this_thread::yield();  // stop() does nothing before
}

SiteServer::~SiteServer() {
  m_server->stop();
  m_thread.join();
}

std::string SiteServer::url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(m_port) + "/" + path;
}

std::vector<std::string> SiteServer::requests() const {
  const std::lock_guard lock(m_mutex);
  return m_requests;
}

int SiteServer::timesAsked(const std::string& methodAndTarget) const {
  const std::lock_guard lock(m_mutex);
  return static_cast<int>(std::count(m_requests.begin(), m_requests.end(), methodAndTarget));
}

}  // namespace support
