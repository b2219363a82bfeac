#include "crawler/scan_view.h"

#include "platform/phrases.h"

namespace crawler {

std::string waitingText(std::chrono::seconds wait) {
  return platform::Phrases::tr("Waiting: the server asks for patience, %n second",
                               "Waiting: the server asks for patience, %n seconds", wait.count());
}

}  // namespace crawler
