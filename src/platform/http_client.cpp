#include "platform/http_client.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/phrases.h"

namespace platform {

namespace {

using Reason = std::pair<int, std::string_view>;

// Sorted by code. 306 and 418 are reserved without a phrase of their own.
constexpr Reason kReasons[] = {
    {100, "Continue"},
    {101, "Switching Protocols"},
    {102, "Processing"},
    {103, "Early Hints"},
    {200, "OK"},
    {201, "Created"},
    {202, "Accepted"},
    {203, "Non-Authoritative Information"},
    {204, "No Content"},
    {205, "Reset Content"},
    {206, "Partial Content"},
    {207, "Multi-Status"},
    {208, "Already Reported"},
    {226, "IM Used"},
    {300, "Multiple Choices"},
    {301, "Moved Permanently"},
    {302, "Found"},
    {303, "See Other"},
    {304, "Not Modified"},
    {305, "Use Proxy"},
    {307, "Temporary Redirect"},
    {308, "Permanent Redirect"},
    {400, "Bad Request"},
    {401, "Unauthorized"},
    {402, "Payment Required"},
    {403, "Forbidden"},
    {404, "Not Found"},
    {405, "Method Not Allowed"},
    {406, "Not Acceptable"},
    {407, "Proxy Authentication Required"},
    {408, "Request Timeout"},
    {409, "Conflict"},
    {410, "Gone"},
    {411, "Length Required"},
    {412, "Precondition Failed"},
    {413, "Content Too Large"},
    {414, "URI Too Long"},
    {415, "Unsupported Media Type"},
    {416, "Range Not Satisfiable"},
    {417, "Expectation Failed"},
    {421, "Misdirected Request"},
    {422, "Unprocessable Content"},
    {423, "Locked"},
    {424, "Failed Dependency"},
    {425, "Too Early"},
    {426, "Upgrade Required"},
    {428, "Precondition Required"},
    {429, "Too Many Requests"},
    {431, "Request Header Fields Too Large"},
    {451, "Unavailable For Legal Reasons"},
    {500, "Internal Server Error"},
    {501, "Not Implemented"},
    {502, "Bad Gateway"},
    {503, "Service Unavailable"},
    {504, "Gateway Timeout"},
    {505, "HTTP Version Not Supported"},
    {506, "Variant Also Negotiates"},
    {507, "Insufficient Storage"},
    {508, "Loop Detected"},
    {510, "Not Extended"},
    {511, "Network Authentication Required"},
};

constexpr bool codeLess(const Reason& left, const Reason& right) {
  return left.first < right.first;
}
static_assert(std::is_sorted(std::begin(kReasons), std::end(kReasons), codeLess));

std::string_view classText(int status) {
  switch (status / 100) {
    case 1:
      return "Informational";
    case 2:
      return "Success";
    case 3:
      return "Redirection";
    case 4:
      return "Client Error";
    case 5:
      return "Server Error";
    default:
      return "Unknown Status";
  }
}

}  // namespace

std::string_view failureText(FetchFailure failure) {
  switch (failure) {
    case FetchFailure::none:
      return "";
    case FetchFailure::stopped:
      return Phrases::noop("Stopped");
    case FetchFailure::invalidAddress:
      return Phrases::noop("The address is not a valid http or https URL");
    case FetchFailure::nameNotResolved:
      return Phrases::noop("The host name could not be resolved");
    case FetchFailure::connectionFailed:
      return Phrases::noop("The server could not be reached");
    case FetchFailure::tlsFailed:
      return Phrases::noop("No secure connection: handshake or certificate failed");
    case FetchFailure::noCertificates:
      return Phrases::noop("No certificates of trusted authorities are installed (package ca-certificates)");
    case FetchFailure::timedOut:
      return Phrases::noop("The server took too long");
    case FetchFailure::tookTooLong:
      return Phrases::noop("The page took longer than ten minutes");
    case FetchFailure::connectionClosed:
      return Phrases::noop("The answer was broken off or malformed");
    case FetchFailure::tooLarge:
      return Phrases::noop("The answer is too large");
    case FetchFailure::tooManyRedirects:
      return Phrases::noop("Too many redirects");
    case FetchFailure::privateAddress:
      return Phrases::noop("The address is a private one");
    case FetchFailure::forbiddenRedirect:
      return Phrases::noop("Redirected to an address that is not http or https");
    case FetchFailure::undecodable:
      return Phrases::noop("The content encoding is broken or unknown");
    case FetchFailure::other:
      break;
  }
  return Phrases::noop("The transfer failed");
}

std::string_view reasonPhrase(int status) {
  const Reason* found =
      std::lower_bound(std::begin(kReasons), std::end(kReasons), Reason(status, {}), codeLess);
  return found != std::end(kReasons) && found->first == status ? found->second : classText(status);
}

std::string reasonInLanguage(std::string_view reason) {
  constexpr std::string_view kNoAnswer = "0 - ";
  if (!reason.starts_with(kNoAnswer)) return std::string(reason);
  return std::string(kNoAnswer) + Phrases::tr(reason.substr(kNoAnswer.size()));
}

}  // namespace platform
