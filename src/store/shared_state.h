// What the parts of the program share about the site in hand.
#pragma once

#include <string>
#include <vector>

namespace store {

/// Made once by the program and handed to those who use it. Belongs to the main thread: a scan works with its
/// own copies, and what it leaves behind is taken over here when it has ended.
struct SharedState {
  std::string qzvskCurSite;  // name of the selected site, empty when none
  std::string qzvskWinTit =
      "Veskel2";             // the main window's title; " - " and the site's name follow when one is selected
  int qzvskCurrentView = 1;  // number of the view that is shown, 1 to 7
  bool qzvskPLastState = false;   // the filter drawer is meant to be open
  bool qzvskViewChanged = false;  // a site was selected since this was last cleared

  /// Broken pages of the site in hand, in the order found, and for each why: status code, " - ", reason
  /// phrase.
  std::vector<std::string> qzvskBadLinkArray;
  std::vector<std::string> qzvskBadLinkReasonArray;

  std::string qzvskHTMLString;  // the HTML sitemap that is viewed and edited
  bool qzvskNeedsSave = false;  // it differs from what was last loaded or saved
  std::string qzvskUTLLoc;      // path of its file

  std::vector<std::string> qzvskFiltersArray;  // URL filters of the selected site
};

}  // namespace store
