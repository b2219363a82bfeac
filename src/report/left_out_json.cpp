#include "report/left_out_json.h"

#include <nlohmann/json.hpp>

namespace report {

using Json = nlohmann::ordered_json;

Json leftOutJson(const crawler::LeftOutGroup& group) {
  Json json = {{"reason", crawler::nameOf(group.reason)}};
  if (!group.which.empty()) json["which"] = group.which;
  json["count"] = group.count;
  json["pagesMayBeMissing"] = group.mayMissPages();
  json["examples"] = Json::array();
  for (const crawler::LeftOutExample& example : group.examples) {
    Json entry = {{"url", example.address}};
    if (!example.page.empty()) entry["page"] = example.page;
    json["examples"].push_back(std::move(entry));
  }
  return json;
}

}  // namespace report
