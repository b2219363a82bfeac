// What a scan has left out, on stdout and as JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "crawler/left_out.h"

namespace cli {

/// Its reason, its filter or rule where it has one, the count and the examples.
nlohmann::ordered_json leftOutJson(const crawler::LeftOutGroup& group);

/// A line an example, with tabs between: the reason, the address, the page that the link stands on.
void printExamples(const crawler::LeftOut& leftOut);

}  // namespace cli
