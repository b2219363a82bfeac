#include "crawler/page_source.h"

#include <functional>

#include "crawler/browser_page.h"
#include "platform/page_encoding.h"
#include "platform/text.h"

namespace crawler {

namespace {

constexpr std::chrono::seconds kLastModifiedTimeout{10};

bool isHtml(std::string_view mime) {
  return mime == "text/html";
}

bool isHtmlOrXhtml(std::string_view mime) {
  return isHtml(mime) || mime == "application/xhtml+xml";
}

bool isBrowserPage(std::string_view contentType) {
  return isHtmlOrXhtml(platform::mimeType(contentType));
}

PageContents readSimply(platform::HttpAnswer&& answer, const std::stop_token& stop) {
  return readPageContents(platform::decodePage(std::move(answer.body), answer.contentType, stop));
}

PageContents readAsBrowsers(platform::HttpAnswer&& answer, const std::stop_token& stop) {
  const platform::PageEncoding encoding = platform::pageEncoding(answer.body, answer.contentType);
  PageContents contents = readBrowserPage(platform::decodePage(std::move(answer.body), encoding, stop));
  contents.encoding = encoding.encoding;
  applyWishes(robotsWishes(answer.robotsTag), contents);
  return contents;
}

}  // namespace

const PageReading kSimpleReading = {isHtml, readSimply, true, {}};
const PageReading kBrowserReading = {isHtmlOrXhtml, readAsBrowsers, false, {}};

std::string FetchedPage::reason() const {
  if (failure != platform::FetchFailure::none) return "0 - " + std::string(platform::failureText(failure));
  return std::to_string(status) + " - " + std::string(platform::reasonPhrase(status));
}

FetchedPage visitPage(platform::HttpClient& client, const PageReading& reading, std::string_view url,
                      std::stop_token stop, std::size_t maxBytes) {
  const platform::HttpRequest request{.url = std::string(url),
                                      .maxBytes = maxBytes,
                                      .wantsBody = reading.takesOtherBodies ? nullptr : isBrowserPage,
                                      .followsTo = reading.followsTo};
  platform::HttpAnswer answer = client.fetch(request, stop);
  FetchedPage page;
  page.failure = answer.failure;
  page.status = answer.status;
  page.redirectedTo = std::move(answer.redirectedTo);
  page.mime = platform::mimeType(answer.contentType);
  const bool wasLeft = reading.followsTo && page.status / 100 == 3;  // as a redirect that is not followed
  page.isPage = reading.isPage(page.mime) && !wasLeft;
  page.lastModified = std::move(answer.lastModified);
  page.hasContent = !answer.body.empty();
  page.bytes = answer.body.size();
  page.time = answer.time;
  page.fingerprint = std::hash<std::string>{}(answer.body);
  page.contents = reading.read(std::move(answer), stop);
  if (page.isGood() && !page.hasContent) {
    // Some servers send an empty page now and then. The title stays that of the first answer.
    platform::HttpAnswer second = client.fetch(request, stop);
    page.hasContent = !second.body.empty();
    std::string title = std::move(page.contents.title);
    page.contents = reading.read(std::move(second), stop);
    page.contents.title = std::move(title);
  }
  return page;
}

std::string askLastModified(platform::HttpClient& client, std::string_view url, std::stop_token stop) {
  const platform::HttpRequest request{
      .url = std::string(url), .method = platform::HttpMethod::head, .timeout = kLastModifiedTimeout};
  return client.fetch(request, stop).lastModified;
}

}  // namespace crawler
