// Dates as HTTP servers send them and as sitemaps show them.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace platform {

/// Where and how dates are written.
struct DateStyle {
  std::string locale;    // an ICU locale name: "en_US", "de_DE"
  std::string timeZone;  // an IANA name: "Europe/Berlin"; empty: the machine's own zone
};

/// The style that the environment asks for: LC_ALL, else LC_TIME, else LANG, with "C", "POSIX" and none
/// counted as en_US; the machine's time zone.
DateStyle environmentDateStyle();

/// Turns the date of a Last-Modified header into the text of a sitemap's lastmod element.
/// Not safe to share between threads; several formatters are independent.
class DateFormatter {
 public:
  explicit DateFormatter(const DateStyle& style);
  ~DateFormatter();
  DateFormatter(const DateFormatter&) = delete;
  DateFormatter& operator=(const DateFormatter&) = delete;

  /// `httpDate` (any of the three forms of RFC 9110, or another that curl_getdate reads) by the Unicode date
  /// pattern "YYYY-MM-dd", in the Gregorian calendar and ASCII digits whatever the locale. "YYYY" is the
  /// week-based year by the locale's rules: the last days of December may carry the next year, the first of
  /// January the last one. Empty when the text is no date.
  std::string weekDate(std::string_view httpDate) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace platform
