// The host of an address.
#pragma once

#include <string>
#include <string_view>

namespace web {

enum class HostForm {
  domain,  // of a scheme that browsers know, such as http
  opaque,  // of any other: kept as it is written
};

/// Appends the host that is written so: a domain in ASCII and lower case, an IPv4 address as four numbers, an
/// IPv6 one in brackets. `written` is valid UTF-8; a domain is not empty. False when it is no host; what was
/// appended then means nothing.
[[nodiscard]] bool appendHost(std::string& to, std::string_view written, HostForm form);

}  // namespace web
