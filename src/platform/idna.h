// Host names in other scripts than Latin, as the name system knows them.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// `url` with its host in ASCII ("http://b\u00fccher.example/" has "xn--bcher-kva.example"), by Unicode's UTS
/// #46 as browsers do. Unchanged when the host is ASCII already or cannot be written so.
std::string withAsciiHost(std::string_view url);

}  // namespace platform
