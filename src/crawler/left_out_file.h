// What a site's last scan left out, kept in the site's state folder in "left-out.tsv". A line a reason: its
// name, the filter or rule, the count; below it a line an example, which begins with a tab: the address, the
// page. Tabs, line ends and backslashes inside are escaped.
#pragma once

#include <string_view>

#include "crawler/left_out.h"
#include "platform/files.h"
#include "store/state_folder.h"

namespace crawler {

/// Remembers it in place of what the scan before left out, also when there is nothing.
platform::FileResult saveLeftOut(const store::StateFolder& state, std::string_view siteName,
                                 const LeftOut& leftOut);

/// What was saved last; nothing when there is no such file, or it cannot be read. Lines that mean nothing are
/// passed over, and so are reasons that only a newer program knows.
LeftOut readLeftOut(const store::StateFolder& state, std::string_view siteName);

}  // namespace crawler
