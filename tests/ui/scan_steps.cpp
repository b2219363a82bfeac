#include "scan_steps.h"

namespace window_tests {

using support::ServedPage;
using support::SiteServer;

ServedPage page(const std::string& title, const std::vector<std::string>& links) {
  std::string body = "<html><head><title>" + title + "</title></head><body>";
  for (const std::string& link : links) body += "<a href=\"" + link + "\">" + link + "</a>";
  return {body + "</body></html>"};
}

SiteServer::Pages smallSite() {
  return {{"/", page("Start", {"a.html", "b.html", "private/c.html"})},
          {"/a.html", page("A", {"gone.html", "a.html"})},
          {"/b.html", page("B", {})},
          {"/private/c.html", page("C", {})}};
}

void openWithShop(Desk& desk, const std::string& url) {
  desk.makeSite("Shop", url);
  desk.open();
  desk.select(kShop);
}

bool scanHasEnded(const Desk& desk) {
  // A question may be up still, and the window off because of that.
  const auto& button = desk.control<QWidget>("scanSiteButton");
  return comesTrue([&] { return !button.testAttribute(Qt::WA_ForceDisabled); });
}

bool scan(const Desk& desk) {
  return desk.click("scanSiteButton") && !desk.enabled("scanSiteButton") && scanHasEnded(desk) &&
         noSheetLeft();
}

}  // namespace window_tests
