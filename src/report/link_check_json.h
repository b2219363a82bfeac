// What became of an address, as JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "report/link_check.h"

namespace report {

/// Adds "state", "status" and "reason" to the address's object, and "movedTo", "certificateEnds" and
/// "foundOn" where there is something to tell.
void addCheck(nlohmann::ordered_json& address, const LinkCheck& check);

}  // namespace report
