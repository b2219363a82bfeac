#include "crawler/scan_view.h"

namespace crawler {

std::string waitingText(std::chrono::seconds wait) {
  const std::string count = std::to_string(wait.count());
  return "Waiting: the server asks for patience, " + count + (wait.count() == 1 ? " second" : " seconds");
}

}  // namespace crawler
