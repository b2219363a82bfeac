#include "crawler/scan_view.h"

namespace crawler {

std::vector<std::string> LeftOut::sentences() const {
  std::vector<std::string> sentences;
  const auto say = [&](std::int64_t count, const char* what) {
    if (count > 0) sentences.push_back(std::to_string(count) + what);
  };
  say(longLinks, " links were left out: their addresses are too long.");
  say(surplusLinks, " links were left out: too many stand on one page.");
  say(surplusPages, " links were not followed: the site has more pages than a scan can remember.");
  return sentences;
}

}  // namespace crawler
