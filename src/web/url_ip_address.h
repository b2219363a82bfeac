// Hosts that are numbers, in all the ways that browsers read them.
#pragma once

#include <string>
#include <string_view>

namespace web {

/// Whether a domain can be nothing but an IPv4 address, since its last label is a number.
bool endsInNumber(std::string_view domain);

/// Appends an IPv4 address with four decimal numbers. It may be written with fewer, in octal and in
/// hexadecimal: "0x7f.1" is "127.0.0.1". False when it is none.
[[nodiscard]] bool appendIpv4(std::string& to, std::string_view written);

/// Appends an IPv6 address in its shortest form; both are without brackets. False when it is none.
[[nodiscard]] bool appendIpv6(std::string& to, std::string_view written);

}  // namespace web
