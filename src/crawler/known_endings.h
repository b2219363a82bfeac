// What an address tells of its document before anybody has asked for it.
#pragma once

#include <string_view>

namespace crawler {

/// Whether an address ends as files of a well-known type do that is no page's: images, archives, office
/// documents, styles, scripts, media, fonts. `path` is an address's path; the ending is what follows its last
/// dot, in any case.
bool hasKnownOtherEnding(std::string_view path);

}  // namespace crawler
