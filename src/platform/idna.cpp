#include "platform/idna.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>

#include <unicode/bytestream.h>
#include <unicode/idna.h>
#include <unicode/unistr.h>

#include "platform/uri.h"

namespace platform {
namespace {

/// A name that names anything has 253 letters at most; many more would only cost time.
constexpr std::size_t kLongestDomain = 16 << 10;

struct Mapping {
  UChar32 first;
  UChar32 last;
  UChar32 to;  // what `first` becomes, the others follow; 0 when they are left out
};

// Unicode 15.1 and 16 allow these, which older ICUs refuse (the capital sharp s becomes "ss" there).
constexpr Mapping kNewerMappings[] = {
    {0x04C0, 0x04C0, 0x04CF},    {0x10A0, 0x10C5, 0x2D00},   {0x115F, 0x1160, 0},
    {0x17B4, 0x17B5, 0},         {0x180E, 0x180E, 0},        {0x1E9E, 0x1E9E, 0x00DF},
    {0x2061, 0x2063, 0},         {0x206A, 0x206F, 0},        {0x2132, 0x2132, 0x214E},
    {0x2183, 0x2183, 0x2184},    {0x3164, 0x3164, 0},        {0xFFA0, 0xFFA0, 0},
    {0x1D173, 0x1D17A, 0},       {0x2F868, 0x2F868, 0x36FC}, {0x2F874, 0x2F874, 0x5F53},
    {0x2F91F, 0x2F91F, 0x243AB}, {0x2F95F, 0x2F95F, 0x7AEE}, {0x2F9BF, 0x2F9BF, 0x45D7}};

icu::UnicodeString withNewerMappings(std::string_view domain) {
  const auto read =
      icu::UnicodeString::fromUTF8(icu::StringPiece(domain.data(), static_cast<std::int32_t>(domain.size())));
  icu::UnicodeString mapped;
  for (std::int32_t i = 0; i < read.length(); i = read.moveIndex32(i, 1)) {
    const UChar32 character = read.char32At(i);
    const auto* mapping =
        std::find_if(std::begin(kNewerMappings), std::end(kNewerMappings),
                     [&](const Mapping& each) { return character >= each.first && character <= each.last; });
    if (mapping == std::end(kNewerMappings)) {
      mapped.append(character);
    } else if (mapping->to != 0) {
      mapped.append(mapping->to + (character - mapping->first));
    }
  }
  return mapped;
}

}  // namespace

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

std::optional<std::string> domainToAscii(std::string_view domain) {
  constexpr std::uint32_t kAllowed = UIDNA_ERROR_EMPTY_LABEL | UIDNA_ERROR_LABEL_TOO_LONG |
                                     UIDNA_ERROR_DOMAIN_NAME_TOO_LONG | UIDNA_ERROR_LEADING_HYPHEN |
                                     UIDNA_ERROR_TRAILING_HYPHEN | UIDNA_ERROR_HYPHEN_3_4;
  UErrorCode error = U_ZERO_ERROR;
  // Made once, it may be used on all threads.
  static const std::unique_ptr<icu::IDNA> names(icu::IDNA::createUTS46Instance(
      UIDNA_NONTRANSITIONAL_TO_ASCII | UIDNA_CHECK_BIDI | UIDNA_CHECK_CONTEXTJ, error));
  if (names == nullptr || domain.size() > kLongestDomain) return std::nullopt;
  icu::UnicodeString ascii;
  icu::IDNAInfo info;
  names->nameToASCII(withNewerMappings(domain), ascii, info, error);
  if (U_FAILURE(error) || (info.getErrors() & ~kAllowed) != 0) return std::nullopt;
  std::string result;
  return ascii.toUTF8String(result);
}

}  // namespace platform
