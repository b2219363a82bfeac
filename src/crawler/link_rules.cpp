#include "crawler/link_rules.h"

#include <algorithm>

namespace crawler {

bool looksLikeLoop(std::string_view url) {
  return std::count(url.begin(), url.end(), '?') > 3;
}

}  // namespace crawler
