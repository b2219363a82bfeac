#include "support/scan_run.h"

#include <gtest/gtest.h>

#include "crawler/link_rules.h"
#include "crawler/site_identity.h"
#include "platform/files.h"
#include "platform/regex.h"
#include "sitemaps/html_format.h"
#include "sitemaps/layouts.h"
#include "sitemaps/xml_format.h"

namespace support {

ScanRun::ScanRun(const std::string& startUrl) : m_controls(m_home.path()), m_state(m_home.path() / "state") {
  std::filesystem::create_directories(m_controls.homeFolderLocation());
  const store::AddEditDeleteSites sites(m_controls, m_state);
  EXPECT_EQ(sites.createNewSite("Site", startUrl).outcome, store::SaveOutcome::saved);
  // Selecting a site adds the counter that a new record lacks.
  const std::filesystem::path record = m_controls.returnFullFileLocation("Site");
  EXPECT_TRUE(platform::replaceFile(record, store::withMissingCounters(file("Site.qzVSK"))).ok());
  settings.siteName = "Site";
  settings.startUrl = startUrl;
  settings.dateStyle = {"en_US", "UTC"};
}

crawler::ScanResult ScanRun::scan(const std::function<void(crawler::SiteScanner&)>& whenRunning) {
  platform::CurlHttpClient network(crawler::identityFor(settings), httpLimits);
  platform::SteadyClock steady;
  crawler::PatientClient patient(network, clock != nullptr ? *clock : steady, view);
  platform::HttpClient& client = clock != nullptr ? static_cast<platform::HttpClient&>(patient) : network;
  crawler::ReadAheadPages pages(client, limits, crawler::readingFor(settings));
  crawler::SiteScanner scanner({m_controls, client, pages, view, nullptr, isKept ? &m_state : nullptr, log},
                               settings);
  m_scanner = &scanner;
  scanner.scanSiteAction();
  if (whenRunning) whenRunning(scanner);
  scanner.wait();
  m_scanner = nullptr;
  return scanner.result();
}

std::string ScanRun::file(const std::string& name) const {
  const platform::FileContent content = platform::readFile(folder() / name);
  return content.result.ok() ? content.text : "(missing)";
}

std::string ScanRun::documents(const std::string& base) const {
  std::string all;
  const auto add = [&](const std::string& name, std::string_view header) {
    std::string text = file(name);
    EXPECT_TRUE(text.starts_with(header)) << name;
    text.erase(0, header.size());
    all += "======== " + name + "\n" + text + "\n";
  };
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
    add(std::string(layout.fileName), sitemaps::documentOpening(layout.columns));
  }
  add("sitemap.xml", sitemaps::kXmlHeader);
  add("badLinks.txt", "");
  add("Site.qzVSK", "");
  return platform::replaceText(all, base, "http://site.test/");
}

std::string leftOutLines(const crawler::ScanResult& result, const std::string& base) {
  std::string all;
  for (const crawler::LeftOutGroup& group : result.leftOut.groups) {
    all += std::to_string(group.count) + " " + group.reasonText(group.count) + ":";
    for (const crawler::LeftOutExample& example : group.examples)
      all += " " + example.address + "<" + example.page;
    all += "\n";
  }
  return platform::replaceText(all, base, "/");
}

void expectStored(const std::string& name, const std::string& actual) {
  const std::filesystem::path file = std::filesystem::path(TEST_DATA_DIR) / name;
  if (std::getenv("VESKEL_STORE_EXPECTED") != nullptr) {
    std::filesystem::create_directories(file.parent_path());
    ASSERT_TRUE(platform::replaceFile(file, actual).ok());
  }
  EXPECT_EQ(platform::readFile(file).text, actual) << "differs from " << file;
}

}  // namespace support
