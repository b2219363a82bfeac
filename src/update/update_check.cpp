#include "update/update_check.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <optional>
#include <utility>

#include "platform/curl_http_client.h"
#include "platform/phrases.h"
#include "platform/text.h"
#include "update/plain_text.h"
#include "update/version.h"
#include "web/url.h"

namespace update {

namespace {

using platform::Phrases;

using platform::FetchFailure;
using platform::HttpAnswer;
using platform::HttpRequest;

constexpr std::size_t kMaxList = 1u << 20;
constexpr std::size_t kMaxNotesPage = 256u << 10;
constexpr std::size_t kMaxNotes = 64u << 10;
constexpr long kMaxRedirects = 10;
constexpr std::size_t kMaxShownAddress = 100;
constexpr std::size_t kMaxProblem = 200;

bool isHttps(std::string_view address) {
  const std::optional<web::Url> url = web::parseUrl(address);
  return url && url->scheme() == web::Scheme::https;
}

/// Strangers may write as much as they like.
std::string bounded(std::string text, std::size_t maxBytes) {
  if (text.size() <= maxBytes) return text;
  text.resize(maxBytes);
  return text.append("...");
}

/// Without its full stop; empty when there is an answer of use.
std::string whyNot(const HttpAnswer& answer) {
  if (answer.failure != FetchFailure::none) return Phrases::tr(platform::failureText(answer.failure));
  if (answer.status / 100 == 3 && !answer.redirectedTo.empty())
    return Phrases::tr("The server leads to %1, which is not https",
                       {bounded(answer.redirectedTo, kMaxShownAddress)});
  if (answer.status / 100 != 2)
    return Phrases::tr("The server answers %1 - %2",
                       {std::to_string(answer.status), platform::reasonPhrase(answer.status)});
  return {};
}

HttpAnswer ask(platform::HttpClient& client, HttpRequest request, const std::stop_token& stop) {
  request.followsTo = isHttps;
  return client.fetch(request, stop);
}

bool isNewer(const Release& left, const Release& right) {
  return compareVersions(left.version, right.version) > 0;
}

bool fits(const Release& release, const std::string& systemVersion) {
  return release.minimumSystem.empty() || systemVersion.empty() ||
         compareVersions(release.minimumSystem, systemVersion) <= 0;
}

/// Judges the releases, of which there are some.
CheckResult judge(const std::vector<Release>& releases, const CheckRequest& request) {
  const Release* newest = &releases.front();
  const Release* fitting = nullptr;
  for (const Release& release : releases) {
    if (isNewer(release, *newest)) newest = &release;
    if (fits(release, request.systemVersion) && (fitting == nullptr || isNewer(release, *fitting)))
      fitting = &release;
  }
  const auto order = [&](const Release& release) {
    return compareVersions(release.version, request.programVersion);
  };
  if (fitting != nullptr && order(*fitting) > 0) return {CheckEnd::newer, *fitting};
  if (order(*newest) > 0) return {CheckEnd::needsNewerSystem, *newest};
  const Release& offered = fitting != nullptr ? *fitting : *newest;
  return {order(offered) < 0 ? CheckEnd::programIsNewer : CheckEnd::current, offered};
}

bool isPlain(std::string_view contentType) {
  return platform::mimeType(contentType) == "text/plain";
}

bool isReadable(std::string_view contentType) {
  const std::string type = platform::mimeType(contentType);
  return type.empty() || type == "text/html" || type == "application/xhtml+xml" || isPlain(contentType);
}

/// False when it was stopped.
bool fetchNotes(platform::HttpClient& client, const CheckRequest& request, CheckResult& result,
                const std::stop_token& stop) {
  HttpAnswer answer = ask(client,
                          {.url = result.release.notesAddress,
                           .timeout = request.timeout,
                           .maxBytes = kMaxNotesPage,
                           .overflow = platform::Overflow::truncate,
                           .wantsBody = isReadable},
                          stop);
  if (answer.failure == FetchFailure::stopped) return false;
  result.notesProblem = whyNot(answer);
  if (result.notesProblem.empty() && !isReadable(answer.contentType))
    result.notesProblem = Phrases::tr("They are no text");
  if (!result.notesProblem.empty()) return true;
  const std::string text = platform::decodePage(std::move(answer.body), answer.contentType);
  result.release.notes =
      isPlain(answer.contentType) ? textOfPlain(text, kMaxNotes) : textOfHtml(text, kMaxNotes);
  return true;
}

CheckResult check(platform::HttpClient& client, const CheckRequest& request, const std::stop_token& stop) {
  if (!isHttps(request.address))
    return {.end = CheckEnd::notReached,
            .problem = Phrases::tr("The address is not https, and was not asked")};
  HttpAnswer answer =
      ask(client, {.url = request.address, .timeout = request.timeout, .maxBytes = kMaxList}, stop);
  if (answer.failure == FetchFailure::stopped) return {};
  if (answer.failure == FetchFailure::tooLarge) return {.end = CheckEnd::notRead, .problem = whyNot(answer)};
  if (std::string problem = whyNot(answer); !problem.empty())
    return {.end = CheckEnd::notReached, .problem = std::move(problem)};
  Appcast appcast = parseAppcast(platform::decodeUtf8(std::move(answer.body)));
  if (appcast.problem.empty() && appcast.releases.empty())
    appcast.problem = Phrases::tr("It names no version");
  if (!appcast.problem.empty())
    return {.end = CheckEnd::notRead, .problem = bounded(std::move(appcast.problem), kMaxProblem)};
  CheckResult result = judge(appcast.releases, request);
  const bool isElsewhere = result.release.notes.empty() && !result.release.notesAddress.empty();
  if (result.end == CheckEnd::newer && isElsewhere && !fetchNotes(client, request, result, stop)) return {};
  return result;
}

}  // namespace

CheckResult checkForUpdate(platform::HttpClient& client, const CheckRequest& request,
                           const std::stop_token& stop) {
  try {
    return check(client, request, stop);
  } catch (const std::exception&) {
    return {.end = CheckEnd::notRead, .problem = Phrases::tr("There is not enough memory")};
  }
}

CheckText textOf(const CheckResult& result, const CheckRequest& request) {
  const std::string& program = request.programVersion;
  const std::string problem = request.address + ": " + result.problem + ".";
  const std::string& offered = result.release.shownVersion;
  switch (result.end) {
    case CheckEnd::newer:
      return {Phrases::tr("Veskel %1 is available.", {offered}),
              Phrases::tr("This is version %1.", {program})};
    case CheckEnd::current:
      return {Phrases::tr("Veskel %1 is the newest version.", {program}), ""};
    case CheckEnd::needsNewerSystem:
      return {Phrases::tr("Veskel %1 is the newest version for this system.", {program}),
              Phrases::tr("Version %1 needs Linux %2 or later, and this is Linux %3.",
                          {offered, result.release.minimumSystem, request.systemVersion})};
    case CheckEnd::programIsNewer:
      return {Phrases::tr("Veskel %1 is newer than what is offered.", {program}),
              Phrases::tr("The newest version offered is %1.", {offered})};
    case CheckEnd::notReached:
      return {Phrases::tr("The list of versions could not be reached."), problem};
    case CheckEnd::notRead:
      return {Phrases::tr("The list of versions could not be read."), problem};
    case CheckEnd::stopped:
      break;
  }
  return {};
}

std::unique_ptr<platform::HttpClient> networkClient(std::string_view programVersion) {
  return std::make_unique<platform::CurlHttpClient>(
      platform::HttpIdentity{.userAgent = "Veskel/" + std::string(programVersion)},
      platform::HttpLimits{.maxRedirects = kMaxRedirects});
}

}  // namespace update
