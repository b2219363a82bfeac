// A small website on 127.0.0.1 for whole scans.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace httplib {
class Server;
}

namespace support {

struct ServedPage {
  std::string body = {};
  std::string contentType = "text/html; charset=utf-8";  // empty: no such header
  int status = 200;
  std::string lastModified = {};  // empty: no such header
  std::string location = {};      // for redirects
};

/// Serves the pages it was given, by the request's target with its query; all else is 404. Runs until
/// destroyed.
class SiteServer {
 public:
  using Pages = std::map<std::string, ServedPage>;
  /// Decides an answer by the target and how often it was asked for with GET, from 1.
  using Handler = std::function<ServedPage(const std::string& target, int times)>;

  explicit SiteServer(Pages pages);
  explicit SiteServer(Handler handler);
  ~SiteServer();

  /// "http://127.0.0.1:PORT/" and the rest of the path.
  std::string url(const std::string& path = "") const;

  /// "GET /index.html" and so on, in the order received.
  std::vector<std::string> requests() const;
  int timesAsked(const std::string& methodAndTarget) const;

 private:
  std::unique_ptr<httplib::Server> m_server;
  Handler m_handler;
  int m_port = 0;
  mutable std::mutex m_mutex;  // guards what follows
  std::vector<std::string> m_requests;
  std::map<std::string, int> m_gets;
  std::thread m_thread;
};

/// What a site of these pages answers.
ServedPage pageOf(const SiteServer::Pages& pages, const std::string& target);

}  // namespace support
