// What the parts of the program share about the site in hand.
#pragma once

#include <string>
#include <vector>

namespace store {

/// Made once by the program and handed to those who use it. Belongs to the main thread, except that a running
/// scan owns the two lists of broken pages and reads the filters; nobody else touches those until it has
/// finished.
struct SharedState {
  std::string qzvskCurSite;  // name of the selected site, empty when none

  /// Broken pages of the site in hand, in the order found, and for each why: status code, " - ", reason
  /// phrase.
  std::vector<std::string> qzvskBadLinkArray;
  std::vector<std::string> qzvskBadLinkReasonArray;

  std::vector<std::string> qzvskFiltersArray;  // URL filters of the selected site
};

}  // namespace store
