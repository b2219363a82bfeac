#include "web/url_scheme.h"

namespace web {
namespace {

struct KnownScheme {
  std::string_view name;
  Scheme scheme;
  std::uint16_t port;
};
constexpr KnownScheme kKnownSchemes[] = {{"https", Scheme::https, 443}, {"http", Scheme::http, 80},
                                         {"file", Scheme::file, 0},     {"ftp", Scheme::ftp, 21},
                                         {"ws", Scheme::ws, 80},        {"wss", Scheme::wss, 443}};

}  // namespace

Scheme schemeNamed(std::string_view name) {
  for (const KnownScheme& each : kKnownSchemes) {
    if (each.name == name) return each.scheme;
  }
  return Scheme::other;
}

std::uint16_t defaultPort(Scheme scheme) {
  for (const KnownScheme& each : kKnownSchemes) {
    if (each.scheme == scheme) return each.port;
  }
  return 0;
}

}  // namespace web
