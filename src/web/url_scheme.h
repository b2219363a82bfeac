// The schemes whose addresses browsers know more about than of others.
#pragma once

#include <cstdint>
#include <string_view>

namespace web {

enum class Scheme : std::uint8_t { other, http, https, ws, wss, ftp, file };

/// `name` is in lower case, without ":".
Scheme schemeNamed(std::string_view name);

/// 0 when there is none.
std::uint16_t defaultPort(Scheme scheme);

}  // namespace web
