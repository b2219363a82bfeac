// How sites look on stdout, for people and as JSON.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "crawler/left_out.h"
#include "store/broken_reasons.h"
#include "store/site_list.h"
#include "store/site_settings.h"

namespace cli {

struct SiteRow {
  std::string name;
  store::SiteDetails details;
  std::optional<std::string> problem = {};  // why the details are empty or incomplete
};

/// An aligned table with a heading.
void printSitesTable(const std::vector<SiteRow>& rows);

/// An array with one object a site.
void printSitesJson(const std::vector<SiteRow>& rows);

struct ShownSite {
  std::string name;
  std::filesystem::path folder;
  store::SiteDetails details;
  store::SiteSettings settings;
  std::vector<store::BrokenPage> brokenPages;
  crawler::LeftOut leftOut;
  bool isUnfinished = false;  // a scan that was stopped can be gone on with
  bool hasFormerSet = false;  // edited sitemaps that a scan has replaced are kept
};

void printSite(const ShownSite& site);
void printSiteJson(const ShownSite& site);

}  // namespace cli
