// What the example server says to a request: a function of the request and of the files in the site's folder.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace example_server {

struct Answer {
  int status = 200;
  std::string contentType = {};
  std::string body = {};
  std::optional<std::string> lastModified = {};  // value of the header "Last-Modified"
  std::optional<std::string> location = {};      // where a redirect leads to
};

/// The answer to a GET request for `path`, which is percent-decoded and begins with "/"; `query` is what
/// follows the "?" as it was sent, empty when there is none. Nothing outside `siteFolder` is ever read.
///
/// The files are served as they are, with these conveniences for a site that has to look like many others:
/// - slashes in a row count as one; a folder answers with its index.html, after a redirect to the final slash
/// - "list.php?id=3" is read from the file "list.php.d/id=3.html"
/// - a .php file that does not begin with "<" is plain text
/// - "<!-- updated: 2010-06-15 -->" in a page sets its date, since in a fresh checkout all files have today's
/// - "<!-- moved to: news.html -->" makes a page a redirect
Answer answerRequest(const std::filesystem::path& siteFolder, std::string_view path, std::string_view query);

}  // namespace example_server
