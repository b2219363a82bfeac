// Addresses that lead into somebody's own network, or to this machine.
#pragma once

#include <string>

struct sockaddr;

namespace platform {

/// Whether the address is none of the public Internet: loopback, link-local, private, shared or unspecified,
/// of IPv4 (RFC 1918, 3927, 6598) and IPv6 (RFC 4193, 4291), and IPv4 within IPv6.
bool isPrivateAddress(const sockaddr& address);
/// The same for an address as text, "127.0.0.1" or "fe80::1"; what is none is not private.
bool isPrivateAddress(const std::string& text);

/// Whether the host of an http or https address is a private one, or has one such address. Asks the resolver,
/// which may take a while.
bool isOnPrivateHost(const std::string& url);

}  // namespace platform
