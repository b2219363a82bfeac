// The rules of a site's robots.txt, as far as a scan honours them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace crawler {

/// Where a site's rules are asked for: below its base, which ends with "/" itself.
std::string robotsAddress(std::string_view siteBaseURL);

/// What may not stand in an address: the rest of every line that begins with "Disallow: ", one blank and the
/// case included. Lines are ended by line feeds alone, and who is addressed does not matter: a site's wish to
/// be left alone somewhere is taken as meant for everybody.
std::vector<std::string> robotsRules(std::string_view text);

}  // namespace crawler
