#include "platform/dates.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>

#include <curl/curl.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace platform {
namespace {

icu::Locale formatLocale(const DateStyle& style) {
  icu::Locale locale = icu::Locale::createCanonical(style.locale.c_str());
  // A locale brings its rules for weeks and nothing else: those who read a sitemap know one calendar and the
  // digits of ASCII.
  UErrorCode error = U_ZERO_ERROR;
  locale.setKeywordValue("calendar", "gregorian", error);
  locale.setKeywordValue("numbers", "latn", error);
  return locale;
}

icu::TimeZone* newTimeZone(const std::string& name) {
  if (name.empty()) return icu::TimeZone::createDefault();
  return icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name));
}

}  // namespace

struct DateFormatter::Impl {
  explicit Impl(const DateStyle& style)
      : format(icu::UnicodeString("YYYY-MM-dd"), formatLocale(style), status) {
    if (U_SUCCESS(status)) format.adoptTimeZone(newTimeZone(style.timeZone));
  }

  std::string weekDate(const std::string& httpDate) {
    const std::time_t seconds = curl_getdate(httpDate.c_str(), nullptr);
    if (seconds == -1 || U_FAILURE(status)) return {};
    icu::UnicodeString text;
    std::string result;
    format.format(static_cast<UDate>(seconds) * 1000, text).toUTF8String(result);
    return result;
  }

  std::string lastDate;      // asked for last
  std::string lastWeekDate;  // and what it gave

  UErrorCode status = U_ZERO_ERROR;  // before `format`, which reports to it
  icu::SimpleDateFormat format;
};

DateStyle environmentDateStyle() {
  DateStyle style;
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    style.locale = value;
    break;
  }
  style.locale.erase(std::min(style.locale.find_first_of(".@"), style.locale.size()));
  if (style.locale.empty() || style.locale == "C" || style.locale == "POSIX") style.locale = "en_US";
  return style;
}

DateFormatter::DateFormatter(const DateStyle& style) : m_impl(std::make_unique<Impl>(style)) {}
DateFormatter::~DateFormatter() = default;

std::string DateFormatter::weekDate(std::string_view httpDate) const {
  // Pages that are made or copied together have the same date.
  if (m_impl->lastDate != httpDate) {
    m_impl->lastDate = httpDate;
    m_impl->lastWeekDate = m_impl->weekDate(m_impl->lastDate);
  }
  return m_impl->lastWeekDate;
}

}  // namespace platform
