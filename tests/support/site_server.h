// A small website on 127.0.0.1 for whole scans.
#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "support/raw_server.h"

namespace support {

struct ServedPage {
  std::string body = {};
  std::string contentType = "text/html; charset=utf-8";  // empty: no such header
  int status = 200;               // 0: the connection is closed without an answer
  std::string lastModified = {};  // empty: no such header
  std::string location = {};      // for redirects
  std::string retryAfter = {};    // empty: no such header
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
  /// "http://127.0.0.1:PORT/" and the rest of the path.
  std::string url(const std::string& path = "") const { return m_server.url("/" + path); }

  /// "GET /index.html" and so on, in the order received.
  std::vector<std::string> requests() const;
  int timesAsked(const std::string& methodAndTarget) const;

 private:
  std::string answer(const RawRequest& request);

  Handler m_handler;
  std::mutex m_mutex;
  std::map<std::string, int> m_gets;  // guarded by m_mutex
  RawServer m_server;                 // last, since its threads use the rest
};

/// What a site of these pages answers.
ServedPage pageOf(const SiteServer::Pages& pages, const std::string& target);

/// A site of `count` pages, each with links to several others and every tenth with one that is broken and one
/// to a fragment. Two of three have no date.
SiteServer::Pages manyPages(int count);

}  // namespace support
