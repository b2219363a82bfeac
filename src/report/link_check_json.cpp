#include "report/link_check_json.h"

#include <nlohmann/json.hpp>

namespace report {

void addCheck(nlohmann::ordered_json& address, const LinkCheck& check) {
  address["state"] = nameOf(check.state);
  address["status"] = check.status;
  address["reason"] = check.reason;
  if (!check.movedTo.empty()) address["movedTo"] = check.movedTo;
  if (check.certificateEnds.count() > 0) address["certificateEnds"] = check.certificateEnds.count();
  if (!check.foundOn.empty()) address["foundOn"] = check.foundOn;
}

}  // namespace report
