#include "platform/private_address.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>

#include "platform/idna.h"
#include "platform/uri.h"

namespace platform {

namespace {

struct Network {
  std::uint32_t address;
  int bits;
};

constexpr std::array kPrivate = {
    Network{0x00000000, 8},   // this network
    Network{0x0A000000, 8},   // private
    Network{0x64400000, 10},  // shared by a provider's customers
    Network{0x7F000000, 8},   // loopback
    Network{0xA9FE0000, 16},  // link-local
    Network{0xAC100000, 12},  // private
    Network{0xC0A80000, 16},  // private
};

bool isPrivate(std::uint32_t address) {
  return std::any_of(kPrivate.begin(), kPrivate.end(), [&](const Network& network) {
    return (address ^ network.address) >> (32 - network.bits) == 0;
  });
}

bool isPrivate(const in6_addr& address) {
  const auto& bytes = address.s6_addr;
  std::uint32_t last = 0;
  std::memcpy(&last, bytes + 12, sizeof last);
  if (IN6_IS_ADDR_V4MAPPED(&address)) return isPrivate(ntohl(last));
  return IN6_IS_ADDR_UNSPECIFIED(&address) || IN6_IS_ADDR_LOOPBACK(&address) ||
         IN6_IS_ADDR_LINKLOCAL(&address) || (bytes[0] & 0xFE) == 0xFC;  // unique local
}

}  // namespace

bool isPrivateAddress(const sockaddr& address) {
  if (address.sa_family == AF_INET) {
    sockaddr_in v4{};
    std::memcpy(&v4, &address, sizeof v4);
    return isPrivate(ntohl(v4.sin_addr.s_addr));
  }
  if (address.sa_family != AF_INET6) return false;
  sockaddr_in6 v6{};
  std::memcpy(&v6, &address, sizeof v6);
  return isPrivate(v6.sin6_addr);
}

bool isPrivateAddress(const std::string& text) {
  in_addr v4{};
  in6_addr v6{};
  if (inet_pton(AF_INET, text.c_str(), &v4) == 1) return isPrivate(ntohl(v4.s_addr));
  return inet_pton(AF_INET6, text.c_str(), &v6) == 1 && isPrivate(v6);
}

bool isOnPrivateHost(const std::string& url) {
  const std::string ascii = withAsciiHost(url);
  std::string host(splitUri(ascii).host());
  if (host.starts_with('[') && host.ends_with(']')) host = host.substr(1, host.size() - 2);
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), nullptr, nullptr, &found) != 0) return false;
  const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> all(found, &freeaddrinfo);
  for (const addrinfo* each = found; each != nullptr; each = each->ai_next) {
    if (isPrivateAddress(*each->ai_addr)) return true;
  }
  return false;
}

}  // namespace platform
