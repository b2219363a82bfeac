// Splitting addresses, judging them, and making them fit for a request.
#include "platform/uri.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "fuzz_target.h"
#include "platform/idna.h"

namespace {

using fuzz::require;

std::string recomposed(const platform::UriParts& parts) {
  std::string text;
  if (parts.scheme) text.append(*parts.scheme).append(":");
  if (parts.authority) text.append("//").append(*parts.authority);
  text.append(parts.path);
  if (parts.query) text.append("?").append(*parts.query);
  if (parts.fragment) text.append("#").append(*parts.fragment);
  return text;
}

/// Whether `text` begins with "%" and two hex digits.
bool beginsEncoded(std::string_view text) {
  const auto isHex = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
  return text.size() >= 3 && text[0] == '%' && isHex(text[1]) && isHex(text[2]);
}

/// Percent-encoded bytes as themselves; a "%" that begins none stays.
std::string decoded(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const bool isTriplet = beginsEncoded(text);
    result += isTriplet ? static_cast<char>(std::stoi(std::string(text.substr(1, 2)), nullptr, 16)) : text[0];
    text.remove_prefix(isTriplet ? 3 : 1);
  }
  return result;
}

void checkSplit(std::string_view text) {
  const platform::UriParts parts = platform::splitUri(text);
  require(recomposed(parts) == text, "the parts make up the text");
  require(parts.authority.value_or("").find(parts.host()) != std::string_view::npos,
          "a host is in its authority");
}

/// Whether `address` holds nothing that a request may not; a "%" has two hex digits behind it.
bool isFitForRequest(std::string_view address) {
  constexpr std::string_view kLegal =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~:/?@!$&'()*+,;=[]";
  for (std::size_t i = 0; i < address.size(); ++i) {
    if (kLegal.find(address[i]) == std::string_view::npos && !beginsEncoded(address.substr(i))) return false;
  }
  return true;
}

void checkRequest(std::string_view text) {
  const std::string_view sent = text.substr(0, text.find('#'));
  const std::string address = platform::requestAddress(text);
  require(isFitForRequest(address), "a request has no illegal byte");
  require(platform::requestAddress(address) == address, "what was made fit once is fit");
  require(decoded(address) == decoded(sent), "a request means what the text does");
  const platform::UriParts before = platform::splitUri(sent);
  const platform::UriParts after = platform::splitUri(address);
  require(before.scheme.has_value() == after.scheme.has_value() &&
              before.authority.has_value() == after.authority.has_value() &&
              before.query.has_value() == after.query.has_value(),
          "a request has the parts of the text");
  if (platform::isUriReference(text)) require(address == sent, "a well-formed address is sent as it is");
}

void checkHost(std::string_view text) {
  const std::string url = platform::withAsciiHost(text);
  require(platform::withAsciiHost(url) == url, "a host is rewritten once");
  if (url == text) return;
  const platform::UriParts before = platform::splitUri(text);
  const platform::UriParts after = platform::splitUri(url);
  require(before.scheme == after.scheme && before.path == after.path && before.query == after.query &&
              before.fragment == after.fragment,
          "rewriting the host leaves all else alone");
  require(std::all_of(after.host().begin(), after.host().end(),
                      [](char c) { return static_cast<unsigned char>(c) < 0x80; }),
          "a rewritten host is ASCII");
}

}  // namespace

void fuzz::tryInput(std::string_view text) {
  checkSplit(text);
  checkRequest(text);
  checkHost(text);
}
