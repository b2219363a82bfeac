#include "web/url_host.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/ascii.h"
#include "platform/idna.h"
#include "web/percent_encoding.h"
#include "web/url_ip_address.h"

namespace web {
namespace {

constexpr std::uint8_t kForbiddenInHost = 1;
constexpr std::uint8_t kForbiddenInDomain = 2;
constexpr std::uint8_t kNotAscii = 4;

constexpr std::array<std::uint8_t, 256> makeHostBytes() {
  std::array<std::uint8_t, 256> bytes{};
  for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
    if (byte < 0x20 || byte == '%' || byte == 0x7F) bytes[byte] = kForbiddenInDomain;
    if (byte > 0x7F) bytes[byte] = kNotAscii;
  }
  using std::string_view_literals::operator""sv;
  for (const char c : "\0\t\n\r #/:<>?@[\\]^|"sv) {
    bytes[static_cast<unsigned char>(c)] = kForbiddenInHost | kForbiddenInDomain;
  }
  return bytes;
}

constexpr std::array<std::uint8_t, 256> kHostBytes = makeHostBytes();

/// All bits of the bytes together.
unsigned bitsOf(std::string_view text) {
  unsigned bits = 0;
  for (const char c : text) bits |= kHostBytes[static_cast<unsigned char>(c)];
  return bits;
}

/// `domain` is as it will be but for its case.
bool appendAsciiDomain(std::string& to, std::string_view domain) {
  if (domain.empty() || (bitsOf(domain) & kForbiddenInDomain) != 0) return false;
  if (endsInNumber(domain)) return appendIpv4(to, domain);
  const std::size_t start = to.size();
  to.append(domain);
  for (std::size_t i = start; i < to.size(); ++i) to[i] = platform::lowerAscii(to[i]);
  return true;
}

bool appendDomain(std::string& to, std::string_view written) {
  std::string decoded;
  if (written.find('%') != std::string_view::npos) written = decoded = percentDecoded(written);
  // What is ASCII is taken as it is: browsers know of domains in use whose "xn--" labels break the rules.
  if ((bitsOf(written) & kNotAscii) == 0) return appendAsciiDomain(to, written);
  const std::optional<std::string> ascii = platform::domainToAscii(written);
  return ascii && appendAsciiDomain(to, *ascii);
}

}  // namespace

bool appendHost(std::string& to, std::string_view written, HostForm form) {
  if (written.starts_with('[')) {
    if (!written.ends_with(']')) return false;
    to += '[';
    if (!appendIpv6(to, written.substr(1, written.size() - 2))) return false;
    to += ']';
    return true;
  }
  if (form == HostForm::domain) return appendDomain(to, written);
  if ((bitsOf(written) & kForbiddenInHost) != 0) return false;
  appendPercentEncoded(to, written, EncodeSet::control);
  return true;
}

}  // namespace web
