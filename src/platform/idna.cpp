#include "platform/idna.h"

#include <algorithm>
#include <memory>

#include <unicode/bytestream.h>
#include <unicode/idna.h>

#include "platform/uri.h"

namespace platform {

std::string withAsciiHost(std::string_view url) {
  const std::string_view host = splitUri(url).host();
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(host.begin(), host.end(), isAscii)) return std::string(url);

  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<icu::IDNA> names(
      icu::IDNA::createUTS46Instance(UIDNA_NONTRANSITIONAL_TO_ASCII | UIDNA_CHECK_BIDI, error));
  if (U_FAILURE(error)) return std::string(url);
  std::string ascii;
  icu::StringByteSink<std::string> sink(&ascii);
  icu::IDNAInfo info;
  names->nameToASCII_UTF8(icu::StringPiece(host.data(), static_cast<int32_t>(host.size())), sink, info,
                          error);
  // Some characters map to "?" or "/", which would be read as the end of the host.
  constexpr std::string_view kForbidden = " #%/:<>?@[\\]^|";
  const bool cutsUrl = ascii.find_first_of(kForbidden) != std::string::npos;
  if (U_FAILURE(error) || info.hasErrors() || cutsUrl) return std::string(url);

  const auto start = static_cast<std::size_t>(host.data() - url.data());
  return std::string(url.substr(0, start)).append(ascii).append(url.substr(start + host.size()));
}

}  // namespace platform
