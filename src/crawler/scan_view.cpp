#include "crawler/scan_view.h"

namespace crawler {

std::vector<std::string> LeftOut::sentences() const {
  std::vector<std::string> sentences;
  const auto say = [&](const char* what, std::int64_t count) {
    if (count > 0) sentences.push_back(what + std::to_string(count) + ".");
  };
  say("Links left out, as their addresses are too long: ", longLinks);
  say("Links left out, as too many stand on one page: ", surplusLinks);
  say("Links not followed, as the site has more pages than a scan can remember: ", surplusPages);
  return sentences;
}

std::string waitingText(std::chrono::seconds wait) {
  const std::string count = std::to_string(wait.count());
  return "Waiting: the server asks for patience, " + count + (wait.count() == 1 ? " second" : " seconds");
}

}  // namespace crawler
