// What a user types as a site's name and URL. Input: the name, then the URL.
#include "store/site_input.h"

#include <string>

#include "fuzz_target.h"

namespace {

using fuzz::require;

void checkName(std::string_view typed) {
  const store::CheckedText name = store::checkSiteName(typed);
  const bool isGood = !typed.empty() && typed.front() != ' ' && typed.back() != ' ' &&
                      typed.find_first_of("/\\.?") == std::string_view::npos;
  require(name.error.empty() == isGood,
          "a name is good without outer blanks, slashes, dots and question marks");
  if (isGood) require(name.text == typed, "a good name is kept as typed");
}

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

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = fuzz::textOf(data, size);
  const std::string_view name = fuzz::takeLine(rest);
  checkName(name);
  checkUrl(rest);
  const store::SiteInput both = store::checkSiteInput(name, rest);
  const store::CheckedText checkedUrl = store::checkSiteUrl(rest);
  require(both.error == store::checkSiteName(name).error + checkedUrl.error, "the errors of both are told");
  if (both.error.empty()) {
    require(both.name == name && both.url == checkedUrl.text, "both texts are those checked");
  }
  return 0;
}
