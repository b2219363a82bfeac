// What a scan has left out, as JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "crawler/left_out.h"

namespace report {

/// Its reason, its filter or rule where it has one, the count and the examples.
nlohmann::ordered_json leftOutJson(const crawler::LeftOutGroup& group);

}  // namespace report
