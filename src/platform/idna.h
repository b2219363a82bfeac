// Host names in other scripts than Latin, as the name system knows them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// `url` with its host in ASCII ("http://b\u00fccher.example/" has "xn--bcher-kva.example"), by Unicode's UTS
/// #46 as browsers do. Unchanged when the host is ASCII already or cannot be written so.
std::string withAsciiHost(std::string_view url);

/// A domain in ASCII and lower case, by the same rules but as the URL Standard has them: labels may be of any
/// length, and hyphens stand where they like. Nothing when it breaks a rule, is bad UTF-8 or has more than 16
/// KB. The result may be empty, and may hold ASCII characters that a host may not.
std::optional<std::string> domainToAscii(std::string_view domain);

}  // namespace platform
