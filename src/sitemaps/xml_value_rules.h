// What the four values of a sitemap's entry may be, by the protocol and its schema.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace sitemaps {

/// Why a value is not allowed, as one sentence; nothing for one that is. Values come decoded. Blanks around
/// an address, a date or a priority do not count; around a frequency they do, as the schema has it.

/// An absolute address of http or https by RFC 3986, with fewer than 2,048 characters.
std::optional<std::string> locFault(std::string_view value);

/// A day of the calendar, "2010-06-15", or a moment, "2010-06-15T12:30:00Z" or with "+02:00" instead of the
/// "Z": of the forms that the W3C note on dates allows, those that the schema takes. Days count as of `zone`
/// (east of Greenwich); none may lie behind `now`.
std::optional<std::string> lastmodFault(std::string_view value, std::chrono::sys_seconds now,
                                        std::chrono::minutes zone);

std::optional<std::string> changefreqFault(std::string_view value);

/// A decimal number from 0.0 to 1.0.
std::optional<std::string> priorityFault(std::string_view value);

/// Scheme, host and port of an address in one form for all ways to write them: "http://a.test:80".
/// Nothing for what is no address of http or https.
std::optional<std::string> hostOf(std::string_view address);

/// `text` in quotes, cut where it is long.
std::string inQuotes(std::string_view text);

}  // namespace sitemaps
