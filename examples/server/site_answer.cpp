#include "site_answer.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <fstream>
#include <iterator>
#include <regex>
#include <system_error>
#include <utility>
#include <vector>

namespace example_server {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNotFoundPage =
    "<!DOCTYPE html>\n<html lang=\"en\">\n<head><title>Page not found</title></head>\n"
    "<body><h1>Page not found</h1><p>Nothing is kept at this address.</p></body>\n</html>\n";

Answer notFound() {
  return {.status = 404, .contentType = "text/html", .body = std::string(kNotFoundPage)};
}

Answer redirectTo(std::string location) {
  Answer answer{.status = 301, .contentType = "text/html"};
  answer.body = "<!DOCTYPE html>\n<title>Moved</title>\n<p>This page has moved.</p>\n";
  answer.location = std::move(location);
  return answer;
}

/// The path's parts without empty ones; nothing when it tries to climb, or could not be a file's name.
std::optional<std::vector<std::string>> pathParts(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const std::size_t slash = std::min(path.find('/'), path.size());
    const std::string_view part = path.substr(0, slash);
    if (part == ".." || std::find(part.begin(), part.end(), '\0') != part.end()) return std::nullopt;
    if (!part.empty() && part != ".") parts.emplace_back(part);
    path.remove_prefix(std::min(slash + 1, path.size()));
  }
  return parts;
}

/// Nothing for what is no regular file, and for links that lead out of the site's folder.
std::optional<std::string> readInside(const fs::path& siteFolder, const fs::path& file) {
  std::error_code error;
  const fs::path real = fs::canonical(file, error);
  if (error || !fs::is_regular_file(real, error)) return std::nullopt;
  const fs::path root = fs::canonical(siteFolder, error);
  if (error || std::mismatch(root.begin(), root.end(), real.begin(), real.end()).first != root.end()) {
    return std::nullopt;
  }
  std::ifstream stream(real, std::ios::binary);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

std::string contentTypeOf(const fs::path& file, std::string_view body) {
  const std::string extension = file.extension();
  // No charset here, so that the declaration inside the page is what counts.
  if (extension == ".html") return "text/html";
  if (extension == ".php") return body.starts_with('<') ? "text/html" : "text/plain";
  if (extension == ".css") return "text/css";
  if (extension == ".svg") return "image/svg+xml";
  if (extension == ".txt") return "text/plain";
  return "application/octet-stream";
}

/// The value of the comment "<!-- KEY: VALUE -->".
std::optional<std::string> commentValue(const std::string& page, const std::string& key) {
  std::smatch match;
  if (!std::regex_search(page, match, std::regex("<!-- " + key + R"(: (\S+) -->)"))) return std::nullopt;
  return match[1].str();
}

/// "2010-06-15" as "Tue, 15 Jun 2010 12:00:00 GMT": at noon, so that most time zones agree on the day.
std::optional<std::string> httpDate(const std::string& date) {
  std::smatch match;
  if (!std::regex_match(date, match, std::regex(R"((\d{4})-(\d\d)-(\d\d))"))) return std::nullopt;
  const std::chrono::year_month_day day(std::chrono::year(std::stoi(match[1])),
                                        std::chrono::month(static_cast<unsigned>(std::stoi(match[2]))),
                                        std::chrono::day(static_cast<unsigned>(std::stoi(match[3]))));
  if (!day.ok()) return std::nullopt;
  const std::time_t time =
      std::chrono::system_clock::to_time_t(std::chrono::sys_days(day) + std::chrono::hours(12));
  std::tm parts{};
  gmtime_r(&time, &parts);
  char text[64];
  return std::string(text, std::strftime(text, sizeof text, "%a, %d %b %Y %H:%M:%S GMT", &parts));
}

}  // namespace

Answer answerRequest(const fs::path& siteFolder, std::string_view path, std::string_view query) {
  const std::optional<std::vector<std::string>> parts = pathParts(path);
  if (!parts) return notFound();
  fs::path file = siteFolder;
  for (const std::string& part : *parts) file /= part;

  std::error_code error;
  if (fs::is_directory(file, error)) {
    if (!path.ends_with('/')) return redirectTo(parts->back() + "/");
    file /= "index.html";
  } else if (path.ends_with('/')) {
    return notFound();
  }
  if (!query.empty() && file.extension() == ".php") {
    if (query.find('/') != std::string_view::npos) return notFound();
    file += ".d";
    file /= std::string(query) + ".html";
  }

  std::optional<std::string> body = readInside(siteFolder, file);
  if (!body) return notFound();
  Answer answer{.status = 200, .contentType = contentTypeOf(file, *body)};
  if (answer.contentType == "text/html") {
    if (std::optional<std::string> location = commentValue(*body, "moved to")) return redirectTo(*location);
    if (const std::optional<std::string> date = commentValue(*body, "updated")) {
      answer.lastModified = httpDate(*date);
    }
  }
  answer.body = std::move(*body);
  return answer;
}

}  // namespace example_server
