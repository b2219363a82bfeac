// The rules for what a user types as a site's name and URL.
#pragma once

#include <string>
#include <string_view>

namespace store {

struct SiteInput {
  std::string name;   // trimmed
  std::string url;    // with a scheme and, where it names no page file, a trailing slash
  std::string error;  // one line per failed rule, each as the user sees it; empty when all is well. Every
                      // line but that of the blank name begins with a line feed.
};

/// One of the two texts, cleaned. `text` means something only while `error` is empty.
struct CheckedText {
  std::string text;
  std::string error;
};

/// The rules for the name alone.
CheckedText checkSiteName(std::string_view typed);

/// The rules for the URL alone.
CheckedText checkSiteUrl(std::string_view typed);

/// Checks and cleans the two texts as typed. All rules run; the name's errors come first. `name` and `url`
/// mean something only while `error` is empty.
SiteInput checkSiteInput(std::string_view typedName, std::string_view typedUrl);

}  // namespace store
