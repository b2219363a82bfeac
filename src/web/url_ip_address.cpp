#include "web/url_ip_address.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/ascii.h"
#include "web/percent_encoding.h"

namespace web {
namespace {

template <typename Number>
void appendNumber(std::string& to, Number number, int base) {
  char digits[16];
  const char* const end = std::to_chars(std::begin(digits), std::end(digits), number, base).ptr;
  to.append(static_cast<const char*>(digits), end);
}

std::string_view withoutLastDot(std::string_view domain) {
  if (domain.size() > 1 && domain.ends_with('.')) domain.remove_suffix(1);
  return domain;
}

/// A number of an IPv4 address, at most 2^32 when it is larger. Nothing when it is none.
std::optional<std::uint64_t> ipv4Number(std::string_view written) {
  constexpr std::uint64_t kTooLarge = std::uint64_t{1} << 32;
  if (written.empty()) return std::nullopt;
  unsigned base = 10;
  if (platform::startsWithAnyCase(written, "0x")) {
    base = 16;
    written.remove_prefix(2);  // alone it is a zero
  } else if (written.starts_with('0')) {
    base = 8;
  }
  std::uint64_t number = 0;
  for (const char c : written) {
    const unsigned digit = hexValue(c);
    if (digit >= base) return std::nullopt;
    number = std::min(number * base + digit, kTooLarge);
  }
  return number;
}

// --- IPv6 ---

constexpr std::size_t kPieces = 8;
using Pieces = std::array<std::uint16_t, kPieces>;

/// The four decimal numbers that an IPv6 address may end in. False when they are not.
bool readIpv4End(std::string_view written, std::uint16_t* twoPieces) {
  std::array<unsigned, 4> numbers{};
  const char* at = written.data();
  const char* const end = at + written.size();
  for (unsigned& number : numbers) {
    if (&number != &numbers.front() && (at == end || *at++ != '.')) return false;
    if (at == end || !platform::isAsciiDigit(*at)) return false;
    const char* const start = at;
    at = std::from_chars(start, end - start > 3 ? start + 3 : end, number).ptr;
    if (number > 255 || (*start == '0' && at - start > 1)) return false;
  }
  twoPieces[0] = static_cast<std::uint16_t>(numbers[0] << 8 | numbers[1]);
  twoPieces[1] = static_cast<std::uint16_t>(numbers[2] << 8 | numbers[3]);
  return at == end;
}

std::optional<Pieces> ipv6Pieces(std::string_view written) {
  Pieces pieces{};
  std::size_t count = 0;
  std::optional<std::size_t> gap;  // in front of which piece "::" stands for zeros
  if (written.starts_with("::")) {
    written.remove_prefix(2);
    gap = 0;
  }
  while (!written.empty()) {
    const std::size_t room = kPieces - (gap ? 1 : 0) - count;
    if (room == 0) return std::nullopt;
    if (written.starts_with(':')) {
      if (gap || count == 0) return std::nullopt;
      written.remove_prefix(1);
      gap = count;
      continue;
    }
    unsigned piece = 0;
    std::size_t digits = 0;
    for (; digits < 4 && digits < written.size() && hexValue(written[digits]) < 16; ++digits) {
      piece = piece << 4 | hexValue(written[digits]);
    }
    if (digits < written.size() && written[digits] == '.') {
      if (room < 2 || !readIpv4End(written, &pieces[count])) return std::nullopt;
      count += 2;
      break;
    }
    written.remove_prefix(digits);
    if (!written.empty() && (written.front() != ':' || written.size() == 1)) return std::nullopt;
    if (!written.empty()) written.remove_prefix(1);
    pieces[count++] = static_cast<std::uint16_t>(piece);
  }
  if (!gap) return count == kPieces ? std::optional(pieces) : std::nullopt;
  const auto from = pieces.begin() + static_cast<std::ptrdiff_t>(*gap);
  std::rotate(from, pieces.begin() + static_cast<std::ptrdiff_t>(count), pieces.end());
  return pieces;
}

struct Zeros {
  std::size_t start = kPieces;
  std::size_t length = 1;  // one alone is not left out
};

/// The first of the longest rows of zeros.
Zeros longestZeros(const Pieces& pieces) {
  Zeros longest;
  for (std::size_t i = 0; i < kPieces; ++i) {
    std::size_t end = i;
    while (end < kPieces && pieces[end] == 0) ++end;
    if (end - i > longest.length) longest = {i, end - i};
    i = std::max(i, end);
  }
  return longest;
}

}  // namespace

bool endsInNumber(std::string_view domain) {
  domain = withoutLastDot(domain);
  const std::string_view last = domain.substr(domain.rfind('.') + 1);
  if (last.empty() || !platform::isAsciiDigit(last.front())) return false;
  return std::all_of(last.begin(), last.end(), platform::isAsciiDigit) ||
         (platform::startsWithAnyCase(last, "0x") && ipv4Number(last));
}

bool appendIpv4(std::string& to, std::string_view written) {
  written = withoutLastDot(written);
  std::uint64_t address = 0;
  std::uint64_t left = std::uint64_t{1} << 32;  // how many addresses the numbers up to here leave
  for (;;) {
    const std::size_t dot = written.find('.');
    const std::optional<std::uint64_t> number = ipv4Number(written.substr(0, dot));
    if (!number) return false;
    if (dot == std::string_view::npos) {
      if (*number >= left) return false;
      address += *number;
      break;
    }
    left >>= 8;
    if (left < 256 || *number > 255) return false;
    address += *number * left;
    written.remove_prefix(dot + 1);
  }
  for (const unsigned shift : {24u, 16u, 8u, 0u}) {
    appendNumber(to, address >> shift & 255, 10);
    if (shift > 0) to += '.';
  }
  return true;
}

bool appendIpv6(std::string& to, std::string_view written) {
  const std::optional<Pieces> pieces = ipv6Pieces(written);
  if (!pieces) return false;
  const Zeros zeros = longestZeros(*pieces);
  for (std::size_t i = 0; i < kPieces; ++i) {
    if (i == zeros.start) {
      to += "::";
      i += zeros.length - 1;
      continue;
    }
    if (i > 0 && i != zeros.start + zeros.length) to += ':';
    appendNumber(to, (*pieces)[i], 16);
  }
  return true;
}

}  // namespace web
