#include "sitemaps/broken_links_export.h"

#include <algorithm>
#include <string_view>

#include "sitemaps/completion.h"
#include "sitemaps/csv_field.h"
#include "sitemaps/html_format.h"

namespace sitemaps {

namespace {

constexpr std::string_view kHeader =
    "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\"\n"
    "\t\"http://www.w3.org/TR/html4/strict.dtd\">\n"
    "\t<html lang=\"en\">\n"
    "<head>\n"
    "\t<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">\n"
    "\t<title>Broken Links Export</title>\n"
    "</head>\n"
    "<body>";

struct StatusAndReason {
  std::string_view status;
  std::string_view reason;
};

/// Takes "404 - Not Found" apart; a text without a status is all reason.
StatusAndReason takenApart(std::string_view reason) {
  constexpr std::string_view kBetween = " - ";
  const std::size_t end = reason.find(kBetween);
  const std::string_view status = reason.substr(0, std::min(end, reason.size()));
  const bool isNumber = !status.empty() && std::all_of(status.begin(), status.end(),
                                                       [](char c) { return c >= '0' && c <= '9'; });
  if (end == std::string_view::npos || !isNumber) return {{}, reason};
  return {status, reason.substr(end + kBetween.size())};
}

}  // namespace

std::string brokenLinksText(const std::vector<std::string>& urls) {
  return badLinksText(urls) + '\n';
}

std::string brokenLinksHtml(const std::vector<std::string>& urls) {
  std::string page(kHeader);
  for (const std::string& url : urls) {
    const std::string address = asMarkupAddress(url);
    page += "\n\t<p><a href=\"";
    page += address;
    page += "\">";
    page += address;
    page += "</a></p>";
  }
  page += "\n</body>\n</html>\n";
  return page;
}

std::string brokenLinksCsv(const std::vector<store::BrokenPage>& pages) {
  std::string table = "URL,Status,Reason\r\n";
  for (const store::BrokenPage& page : pages) {
    const StatusAndReason why = takenApart(page.reason);
    table += csvField(page.url) + ',' + std::string(why.status) + ',' + csvField(why.reason) + "\r\n";
  }
  return table;
}

}  // namespace sitemaps
