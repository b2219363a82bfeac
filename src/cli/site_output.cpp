#include "cli/site_output.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>
#include <unistd.h>

#include "cli/cli_context.h"
#include "report/left_out_json.h"

namespace cli {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kColumns = 6;
constexpr std::size_t kFirstNumber = 2;  // the columns from here on are aligned to the right
using TableLine = std::array<std::string, kColumns>;

/// In characters, so that names beyond ASCII line up too.
std::size_t width(std::string_view utf8) {
  const auto startsCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; };
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), startsCharacter));
}

TableLine tableLine(const SiteRow& row) {
  const store::SiteDetails& details = row.details;
  if (row.problem && details.name.empty()) return {printable(row.name)};
  return {printable(row.name),
          printable(details.url),
          std::to_string(details.pagesFound),
          std::to_string(details.totalLinks),
          std::to_string(details.pagesUsed),
          std::to_string(details.badLinks.size())};
}

std::string aligned(const TableLine& line, const std::array<std::size_t, kColumns>& widths) {
  std::string text;
  for (std::size_t column = 0; column < kColumns; ++column) {
    const std::string padding(widths[column] - width(line[column]), ' ');
    if (column > 0) text += "  ";
    text += column < kFirstNumber ? line[column] + padding : padding + line[column];
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

Json detailsJson(const std::string& name, const store::SiteDetails& details) {
  Json json;
  json["name"] = name;
  json["url"] = details.url;
  json["ignoreRobots"] = details.ignoreRobots;
  json["pagesFound"] = details.pagesFound;
  json["totalLinks"] = details.totalLinks;
  json["pagesUsed"] = details.pagesUsed;
  return json;
}

bool isNumber(const store::SettingField& field) {
  return std::holds_alternative<store::WholeNumber>(field.value) ||
         std::holds_alternative<store::Seconds>(field.value);
}

/// Numbers as numbers, choices by their names, lines as an array.
Json settingsJson(const store::SiteSettings& settings) {
  Json json = Json::object();
  for (const store::SettingField& field : store::kSiteSettings) {
    const std::vector<std::string> texts = field.texts(settings);
    Json& value = json[std::string(field.key)];
    if (std::holds_alternative<store::Lines>(field.value)) {
      value = texts;
    } else {
      value = isNumber(field) ? Json::parse(texts.front()) : Json(texts.front());
    }
  }
  return json;
}

/// JSON escapes the ASCII controls only; on a terminal everything beyond ASCII is escaped, so that nothing is
/// obeyed.
void print(const Json& json) {
  const bool asciiOnly = isatty(STDOUT_FILENO) != 0;
  std::cout << json.dump(2, ' ', asciiOnly, Json::error_handler_t::replace) << '\n';
}

}  // namespace

void printSitesTable(const std::vector<SiteRow>& rows) {
  std::vector<TableLine> lines = {{"NAME", "URL", "PAGES", "LINKS", "USED", "BROKEN"}};
  for (const SiteRow& row : rows) lines.push_back(tableLine(row));
  std::array<std::size_t, kColumns> widths{};
  for (const TableLine& line : lines) {
    for (std::size_t column = 0; column < kColumns; ++column) {
      widths[column] = std::max(widths[column], width(line[column]));
    }
  }
  for (const TableLine& line : lines) std::cout << aligned(line, widths) << '\n';
}

void printSitesJson(const std::vector<SiteRow>& rows) {
  Json sites = Json::array();
  for (const SiteRow& row : rows) {
    Json site = detailsJson(row.name, row.details);
    site["broken"] = row.details.badLinks.size();
    if (row.problem) site["problem"] = *row.problem;
    sites.push_back(std::move(site));
  }
  print(sites);
}

void printSite(const ShownSite& site) {
  const store::SiteDetails& details = site.details;
  std::cout << "Name:        " << printable(site.name) << '\n'
            << "URL:         " << printable(details.url) << '\n'
            << "robots.txt:  " << (details.ignoreRobots ? "ignored" : "obeyed") << '\n';
  const std::string settings = store::settingsAsOptions(site.settings);
  if (!settings.empty()) std::cout << "Settings:    " << printable(settings) << '\n';
  std::cout << "Folder:      " << printable(site.folder.native()) << '\n'
            << "Pages found: " << details.pagesFound << '\n'
            << "Total links: " << details.totalLinks << '\n'
            << "Pages used:  " << details.pagesUsed << '\n'
            << "Broken:      " << site.brokenPages.size() << '\n';
  if (site.isUnfinished)
    std::cout << "Unfinished:  a scan that was stopped; scan --continue goes on with it\n";
  if (site.hasFormerSet) std::cout << "Kept:        the sitemaps of before, for \"restore\"\n";
  if (const std::string leftOut = site.leftOut.sentence(); !leftOut.empty())
    std::cout << '\n' << printable(leftOut) << '\n';
  if (site.brokenPages.empty()) return;
  std::cout << "\nBroken pages of the last scan:\n";
  for (const store::BrokenPage& page : site.brokenPages) {
    std::cout << "  " << printable(page.url) << '\n';
    if (!page.reason.empty()) std::cout << "      " << printable(page.reason) << '\n';
  }
}

void printSiteJson(const ShownSite& site) {
  Json json = detailsJson(site.name, site.details);
  json["settings"] = settingsJson(site.settings);
  json["folder"] = site.folder.native();
  json["formerSitemapsKept"] = site.hasFormerSet;
  json["broken"] = Json::array();
  for (const store::BrokenPage& page : site.brokenPages) {
    Json broken;
    broken["url"] = page.url;
    broken["reason"] = page.reason.empty() ? Json() : Json(page.reason);
    json["broken"].push_back(std::move(broken));
  }
  json["isUnfinished"] = site.isUnfinished;
  json["leftOut"] = Json::array();
  for (const crawler::LeftOutGroup& group : site.leftOut.groups)
    json["leftOut"].push_back(report::leftOutJson(group));
  print(json);
}

}  // namespace cli
