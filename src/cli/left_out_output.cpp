#include "cli/left_out_output.h"

#include <iostream>

#include <nlohmann/json.hpp>

#include "cli/cli_context.h"

namespace cli {

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

void printExamples(const crawler::LeftOut& leftOut) {
  for (const crawler::LeftOutGroup& group : leftOut.groups) {
    for (const crawler::LeftOutExample& example : group.examples) {
      std::cout << printable(group.reasonText()) << '\t' << printable(example.address) << '\t'
                << printable(example.page) << '\n';
    }
  }
}

}  // namespace cli
