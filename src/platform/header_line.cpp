#include "platform/header_line.h"

#include <algorithm>
#include <array>

#include "platform/ascii.h"
#include "platform/phrases.h"
#include "platform/text.h"

namespace platform {

namespace {

constexpr std::size_t kMostBytes = 8'000;  // servers commonly take 8 KB

constexpr std::array<std::string_view, 12> kOwnNames = {
    "accept-encoding",   "connection", "content-length", "expect", "host",
    "http2-settings",    "keep-alive", "range",          "te",     "trailer",
    "transfer-encoding", "upgrade"};

bool isTokenCharacter(char c) {
  constexpr std::string_view kMarks = "!#$%&'*+-.^_`|~";
  return isAsciiLetter(c) || isAsciiDigit(c) || kMarks.find(c) != std::string_view::npos;
}

bool isToken(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isTokenCharacter);
}

}  // namespace

HeaderLine splitHeaderLine(std::string_view line) {
  const std::size_t colon = std::min(line.find(':'), line.size());
  const std::string_view value = line.substr(std::min(colon + 1, line.size()));
  return {std::string(line.substr(0, colon)), std::string(trimmed(value))};
}

std::string headerLineProblem(std::string_view line) {
  if (std::string problem = headerTextProblem(line); !problem.empty()) return problem;
  const HeaderLine header = splitHeaderLine(line);
  if (line.find(':') == std::string_view::npos || !isToken(header.name))
    return Phrases::tr("it has to look like \"Name: value\", with a name of letters, digits and hyphens");
  const std::string name = lowerAscii(header.name);
  if (name == "user-agent") return Phrases::tr("the user agent is a setting of its own");
  if (name == "authorization")
    return Phrases::tr("name and password for HTTP authentication are given in another way");
  if (name.starts_with("proxy-") || std::find(kOwnNames.begin(), kOwnNames.end(), name) != kOwnNames.end())
    return Phrases::tr("the program sees to \"%1\" itself", {header.name});
  return {};
}

std::string headerTextProblem(std::string_view text) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; };
  if (std::any_of(text.begin(), text.end(), isControl) || decodeUtf8(std::string(text)) != text)
    return Phrases::tr("it cannot contain line breaks, other control characters or invalid UTF-8");
  if (text.size() > kMostBytes)
    return Phrases::tr("it is longer than %1 bytes", {std::to_string(kMostBytes)});
  return {};
}

std::string userNameProblem(std::string_view name) {
  if (name.find(':') != std::string_view::npos) return Phrases::tr("it cannot contain a colon");
  return headerTextProblem(name);
}

}  // namespace platform
