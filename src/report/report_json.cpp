#include "report/report_json.h"

#include <string_view>

#include <nlohmann/json.hpp>

#include "report/changes.h"
#include "report/left_out_json.h"
#include "report/link_check_json.h"
#include "report/outside_rows.h"

namespace report {

namespace {

using crawler::PageStanding;
using Json = nlohmann::ordered_json;

std::string textOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// An array of many, which as a tree would take ten times the memory.
template <typename Items, typename ToJson>
std::string lines(const Items& items, ToJson toJson) {
  std::string text = "[";
  const char* between = "\n  ";
  for (const auto& item : items) {
    const Json json = toJson(item);
    if (json.is_null()) continue;
    text += between + textOf(json);
    between = ",\n  ";
  }
  return text + "]";
}

Json factsJson(const ScanFacts& facts) {
  return {{"started", facts.started},
          {"ended", facts.ended},
          {"end", facts.end},
          {"pagesFound", facts.pagesFound},
          {"pagesUsed", facts.pagesUsed},
          {"broken", facts.broken},
          {"links", facts.links}};
}

Json pageJson(const Page& page) {
  Json json = {{"url", page.address}, {"status", page.status}, {"standing", nameOf(page.standing)}};
  if (page.standing == PageStanding::leftOut && page.leftOutBy != crawler::LinkReason::none)
    json["leftOutBy"] = crawler::nameOf(page.leftOutBy);
  json["title"] = page.title;
  if (!page.type.empty()) json["type"] = page.type;
  json["bytes"] = page.bytes;
  json["milliseconds"] = page.time.count();
  if (!page.modified.empty()) json["lastModified"] = page.modified;
  json["level"] = page.level;
  if (!page.redirectedTo.empty()) json["redirectedTo"] = page.redirectedTo;
  json["linkedFrom"] = page.linkedFrom;
  return json;
}

Json brokenJson(const SiteReport& report, const Page& page) {
  if (page.standing != PageStanding::broken) return {};
  Json json = {{"url", page.address},
               {"status", page.status},
               {"reason", page.brokenReason},
               {"linkedFrom", page.linkedFrom},
               {"linkingPages", Json::array()}};
  for (const LinkingPage& link : report.linksTo({false, page.number}))
    json["linkingPages"].push_back({{"url", link.address}, {"link", link.name}});
  return json;
}

std::string brokenLines(const SiteReport& report) {
  return lines(report.now.pages, [&](const Page& page) { return brokenJson(report, page); });
}

std::string addresses(const std::vector<PageChange>& pages) {
  return lines(pages, [](const PageChange& page) { return Json(page.page().address); });
}

std::string changesJson(const Changes& changes) {
  if (!changes.areKnown) return "null";
  const std::string renamed = lines(changes.renamed, [](const PageChange& page) {
    return Json{{"url", page.now->address}, {"before", page.before->title}, {"now", page.now->title}};
  });
  return "{\"new\":" + addresses(changes.added) + ",\n\"gone\":" + addresses(changes.gone) +
         ",\n\"newlyBroken\":" + addresses(changes.newlyBroken) +
         ",\n\"repaired\":" + addresses(changes.repaired) + ",\n\"renamed\":" + renamed + "}";
}

Json outsideJson(const OutsideRow& row) {
  Json json = {{"url", row.address()}};
  if (row.link != nullptr) json["linkedFrom"] = row.linkedFrom();
  if (row.check != nullptr) addCheck(json, *row.check);
  return json;
}

std::string checkJson(const CheckFacts& check) {
  if (!check.isKnown()) return "null";
  Json json = {{"started", check.started}, {"ended", nullptr}};
  if (!check.isUnfinished()) json["ended"] = check.ended;
  return textOf(json);
}

}  // namespace

std::string reportJson(const SiteReport& report) {
  std::string text = "{";
  const auto add = [&](std::string_view name, std::string_view json) {
    text.append(text.size() == 1 ? "\"" : ",\n\"").append(name).append("\":").append(json);
  };
  add("site", textOf(report.siteName));
  add("url", textOf(report.startUrl));
  add("scan", textOf(factsJson(report.now.facts)));
  add("history", lines(report.history, factsJson));
  add("changes", changesJson(compare(report.before, report.now)));
  add("broken", brokenLines(report));
  add("leftOut", lines(report.leftOut.groups, leftOutJson));
  add("pages", lines(report.now.pages, pageJson));
  const std::vector<OutsideRow> outside = outsideRows(report.now, report.checks);
  add("outside",
      lines(outside, [](const OutsideRow& row) { return row.link == nullptr ? Json() : outsideJson(row); }));
  add("resources",
      lines(outside, [](const OutsideRow& row) { return row.link == nullptr ? outsideJson(row) : Json(); }));
  add("linkCheck", checkJson(report.lastCheck));
  add("hasAllOutside", report.now.hasAllOutside ? "true" : "false");
  return text + "}\n";
}

std::string brokenJson(const SiteReport& report) {
  return brokenLines(report) + "\n";
}

}  // namespace report
