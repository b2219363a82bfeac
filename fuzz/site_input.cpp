// What a user types as a site's name and URL. Input: the name, then the URL.
#include "store/site_input.h"

#include <string>

#include "fuzz_target.h"

namespace {

using fuzz::require;

void checkUrl(std::string_view typed) {
  const store::CheckedText url = store::checkSiteUrl(typed);
  if (!url.error.empty()) {
    require(typed.empty() || typed.front() == ' ' || typed.back() == ' ' || typed.starts_with("ftp"),
            "only blank texts and other schemes are refused");
    return;
  }
  require(url.text.starts_with("http:") || url.text.starts_with("https:"), "a URL has its scheme");
  require(url.text.find(' ') == std::string::npos, "a URL has no blank");
  // A prefix typed many times over is taken off pair by pair.
  if (url.text.find("http://http://") != std::string::npos) return;
  const store::CheckedText again = store::checkSiteUrl(url.text);
  require(again.error.empty() && again.text == url.text, "what was cleaned once is clean");
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string_view name = fuzz::takeLine(rest);
  checkUrl(rest);
  const store::SiteInput both = store::checkSiteInput(name, rest);
  require(!both.error.empty() || store::checkSiteUrl(rest).error.empty(), "a fault of the URL is told");
  require(!both.error.empty() || (both.name == name && both.url == store::checkSiteUrl(rest).text),
          "both texts are those checked");
}
