#include "support/site_server.h"

#include <algorithm>
#include <utility>

namespace support {

ServedPage pageOf(const SiteServer::Pages& pages, const std::string& target) {
  const auto found = pages.find(target);
  return found != pages.end() ? found->second : ServedPage{.body = "<title>Missing</title>", .status = 404};
}

SiteServer::Pages manyPages(int count) {
  const auto name = [count](int number) { return "page" + std::to_string(number % count) + ".html"; };
  SiteServer::Pages pages;
  for (int number = 0; number < count; ++number) {
    std::vector<std::string> links;
    for (const int step : {1, 2, 3, 7, 11, 31}) links.push_back(name(number + step));
    if (number % 10 == 0) {
      links.push_back("broken" + std::to_string(number) + ".html");
      links.push_back(name(number + 5) + "#part");
    }
    std::string body = "<title>Page " + std::to_string(number) +
                       std::string(static_cast<std::size_t>(number % 40), 'x') + "</title>";
    for (const std::string& link : links) body += "<a href=\"" + link + "\">To " + link + "</a>\n";
    pages[number == 0 ? "/" : "/" + name(number)] = {
        .body = body, .lastModified = number % 3 == 0 ? "Mon, 02 Mar 2020 10:00:00 GMT" : ""};
  }
  return pages;
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
  if (page.status == 0) return {};
  std::string headers;
  const auto add = [&](const std::string& name, const std::string& value) {
    if (!value.empty()) headers += name + ": " + value + "\r\n";
  };
  add("Last-Modified", page.lastModified);
  add("Location", page.location);
  add("Retry-After", page.retryAfter);
  add("Content-Type", page.contentType);
  return rawAnswer(std::to_string(page.status) + " ", headers, page.body);
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
