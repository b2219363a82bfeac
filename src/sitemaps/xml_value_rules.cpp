#include "sitemaps/xml_value_rules.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/ascii.h"
#include "platform/phrases.h"
#include "platform/uri.h"

namespace sitemaps {

namespace {

using platform::Phrases;

using platform::trimmed;

constexpr std::size_t kMaxLocCharacters = 2047;
constexpr std::size_t kMinLocCharacters = 12;  // of the schema; the protocol knows no such bound
constexpr std::size_t kMaxQuotedBytes = 80;
constexpr int kMaxPort = 65'535;

constexpr std::array<std::string_view, 7> kFrequencies = {"always",  "hourly", "daily", "weekly",
                                                          "monthly", "yearly", "never"};

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool continuesCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::size_t characterCount(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return !continuesCharacter(c); }));
}

/// The first character that may stand nowhere in an address; empty when there is none.
std::string_view foreignCharacter(std::string_view text) {
  const auto isForeign = [](char c) {
    return c <= ' ' || c > '~' || std::string_view("<>\"\\^`{|}").find(c) != std::string_view::npos;
  };
  const auto at = static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isForeign) - text.begin());
  std::size_t end = std::min(at + 1, text.size());
  while (end < text.size() && continuesCharacter(text[end])) ++end;
  return text.substr(at, end - at);
}

struct Host {
  std::string scheme;
  std::string name;
  int port;
};

/// The port that stands behind the host in `authority`, or the usual one of the scheme; nothing for none that
/// exists.
std::optional<int> portOf(std::string_view authority, std::string_view host, bool secure) {
  const std::string_view rest =
      authority.substr(static_cast<std::size_t>(host.data() - authority.data()) + host.size());
  if (rest.empty()) return secure ? 443 : 80;
  int port = 0;
  const char* end = rest.data() + rest.size();
  const auto [read, error] = std::from_chars(rest.data() + 1, end, port);
  if (error != std::errc() || read != end || port < 1 || port > kMaxPort) return std::nullopt;
  return port;
}

std::optional<Host> splitHost(std::string_view address) {
  const platform::UriParts parts = platform::splitUri(address);
  if (!parts.scheme || !parts.authority) return std::nullopt;
  Host host{platform::lowerAscii(*parts.scheme), platform::lowerAscii(parts.host()), 0};
  if ((host.scheme != "http" && host.scheme != "https") || host.name.empty()) return std::nullopt;
  const std::optional<int> port = portOf(*parts.authority, parts.host(), host.scheme == "https");
  if (!port) return std::nullopt;
  host.port = *port;
  return host;
}

/// Reads numbers and marks off the front of a text.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : m_rest(text) {}

  /// A number of exactly `digits` digits.
  std::optional<int> number(std::size_t digits) {
    if (m_rest.size() < digits ||
        !std::all_of(m_rest.begin(), m_rest.begin() + static_cast<std::ptrdiff_t>(digits), isDigit))
      return std::nullopt;
    int value = 0;
    std::from_chars(m_rest.data(), m_rest.data() + digits, value);
    m_rest.remove_prefix(digits);
    return value;
  }
  bool take(char c) {
    if (!m_rest.starts_with(c)) return false;
    m_rest.remove_prefix(1);
    return true;
  }
  std::size_t skipDigits() {
    const std::size_t count = std::min(m_rest.find_first_not_of("0123456789"), m_rest.size());
    m_rest.remove_prefix(count);
    return count;
  }
  bool atEnd() const { return m_rest.empty(); }

 private:
  std::string_view m_rest;
};

/// "12:30:00", also with a fraction.
std::optional<std::chrono::seconds> readTime(Scanner& text) {
  const std::optional<int> hours = text.number(2);
  if (!hours || *hours > 23 || !text.take(':')) return std::nullopt;
  const std::optional<int> minutes = text.number(2);
  if (!minutes || *minutes > 59 || !text.take(':')) return std::nullopt;
  const std::optional<int> seconds = text.number(2);
  if (!seconds || *seconds > 59 || (text.take('.') && text.skipDigits() == 0)) return std::nullopt;
  return std::chrono::hours(*hours) + std::chrono::minutes(*minutes) + std::chrono::seconds(*seconds);
}

/// "Z" or "+02:00": how far east of Greenwich.
std::optional<std::chrono::minutes> readZone(Scanner& text) {
  if (text.take('Z')) return std::chrono::minutes(0);
  const bool west = text.take('-');
  if (!west && !text.take('+')) return std::nullopt;
  const std::optional<int> hours = text.number(2);
  if (!hours || !text.take(':')) return std::nullopt;
  const std::optional<int> minutes = text.number(2);
  if (!minutes || *minutes > 59 || *hours * 60 + *minutes > 14 * 60) return std::nullopt;
  const std::chrono::minutes east = std::chrono::hours(*hours) + std::chrono::minutes(*minutes);
  return west ? -east : east;
}

std::string noDate(std::string_view text) {
  return Phrases::tr("%1 is not a date of the form YYYY-MM-DD or YYYY-MM-DDThh:mm:ss+hh:mm",
                     {inQuotes(text)});
}

}  // namespace

std::string inQuotes(std::string_view text) {
  std::size_t end = std::min(text.size(), kMaxQuotedBytes);
  while (end > 0 && end < text.size() && continuesCharacter(text[end])) --end;
  return '"' + std::string(text.substr(0, end)) + (end < text.size() ? "...\"" : "\"");
}

std::optional<std::string> hostOf(std::string_view address) {
  const std::optional<Host> host = splitHost(trimmed(address));
  return host ? std::optional(host->scheme + "://" + host->name + ":" + std::to_string(host->port))
              : std::nullopt;
}

std::optional<std::string> locFault(std::string_view value) {
  const std::string_view address = trimmed(value);
  if (address.empty()) return Phrases::tr("The address is empty");
  const std::size_t length = characterCount(address);
  if (length > kMaxLocCharacters) {
    return Phrases::tr("The address has %1 characters; at most 2047 are allowed", {std::to_string(length)});
  }
  const std::string_view foreign = foreignCharacter(address);
  if (!foreign.empty()) {
    if (foreign == " ") return Phrases::tr("The address holds a blank, which has to be percent-encoded");
    return Phrases::tr("The address holds %1, which has to be percent-encoded", {inQuotes(foreign)});
  }
  if (!platform::isUriReference(address) || !splitHost(address)) {
    return Phrases::tr("%1 is not an absolute address of http or https", {inQuotes(address)});
  }
  if (length < kMinLocCharacters)
    return Phrases::tr("The address has fewer than 12 characters, the least that the schema takes");
  return std::nullopt;
}

std::optional<std::string> lastmodFault(std::string_view value, std::chrono::sys_seconds now,
                                        std::chrono::minutes zone) {
  using namespace std::chrono;
  const std::string_view date = trimmed(value);
  Scanner text(date);
  const std::optional<int> yearNumber = text.number(4);
  if (!yearNumber || !text.take('-')) return noDate(date);
  const std::optional<int> monthNumber = text.number(2);
  if (!monthNumber || !text.take('-')) return noDate(date);
  const std::optional<int> dayNumber = text.number(2);
  if (!dayNumber) return noDate(date);

  std::optional<seconds> time;
  if (text.take('T')) {
    time = readTime(text);
    const std::optional<minutes> east = time ? readZone(text) : std::nullopt;
    if (!east) return noDate(date);
    *time -= *east;
  }
  if (!text.atEnd()) return noDate(date);

  const year_month_day calendar{year(*yearNumber), month(static_cast<unsigned>(*monthNumber)),
                                day(static_cast<unsigned>(*dayNumber))};
  if (*yearNumber == 0 || !calendar.ok())
    return Phrases::tr("%1 is not a day of the calendar", {inQuotes(date)});
  const sys_seconds moment = time ? sys_days(calendar) + *time : sys_days(calendar) - zone;
  if (moment > now) return Phrases::tr("%1 lies in the future", {inQuotes(date)});
  return std::nullopt;
}

std::optional<std::string> changefreqFault(std::string_view value) {
  if (std::find(kFrequencies.begin(), kFrequencies.end(), value) != kFrequencies.end()) return std::nullopt;
  return Phrases::tr("%1 is none of always, hourly, daily, weekly, monthly, yearly and never",
                     {inQuotes(value)});
}

std::optional<std::string> priorityFault(std::string_view value) {
  constexpr std::size_t kMaxPlaces = 16;
  const std::string_view number = trimmed(value);
  const std::string_view places = number.size() > 2 ? number.substr(2) : std::string_view{};
  const bool isOne = number.starts_with('1');
  const bool isShort = number == "0" || number == "1";
  const bool isLong =
      (number.starts_with("0.") || number.starts_with("1.")) && !places.empty() &&
      places.size() <= kMaxPlaces &&
      std::all_of(places.begin(), places.end(), [&](char c) { return isOne ? c == '0' : isDigit(c); });
  if (isShort || isLong) return std::nullopt;
  return Phrases::tr("%1 is not a number from 0.0 to 1.0", {inQuotes(value)});
}

}  // namespace sitemaps
