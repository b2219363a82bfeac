// A whole scan of a test server into a data folder of its own.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "crawler/patient_client.h"
#include "crawler/read_ahead_pages.h"
#include "crawler/site_scanner.h"
#include "platform/curl_http_client.h"
#include "store/add_edit_delete_sites.h"
#include "support/temp_folder.h"

namespace support {

/// Keeps the order of what a scan says. `onPage` and `onLink`, where set, are called on the scan's thread.
class RecordingView : public crawler::ScanView {
 public:
  std::vector<std::string> events;  // in order; counters and links are left out
  std::function<void(const crawler::VisitedPage&)> onPage;
  std::function<void(std::string_view link)> onLink;
  std::function<void()> onLooping;

  void scanStarted() override { events.push_back("started"); }
  void connectionEstablished() override { events.push_back("connected"); }
  void updateScanLinksList(std::string_view link) override {
    if (onLink) onLink(link);
  }
  void pageVisited(const crawler::VisitedPage& page) override {
    if (onPage) onPage(page);
  }
  bool askAboutLooping() override {
    events.push_back("looping");
    if (onLooping) onLooping();
    return static_cast<bool>(onLooping);
  }
  void scanMayNotEnd(const crawler::EndlessHint& hint) override {
    events.push_back(hint.text() + ", filter " + std::string(hint.filter));
  }
  void closingDocuments() override { events.push_back("closing"); }
  void scanFinished(const crawler::ScanResult&) override { events.push_back("finished"); }
};

/// A site named "Site" with a record, ready to be scanned as often as wanted.
class ScanRun {
 public:
  explicit ScanRun(const std::string& startUrl);

  crawler::ScanSettings settings;
  crawler::ReadAheadLimits limits;
  platform::HttpLimits httpLimits;
  crawler::ScanLog* log = nullptr;    // told what the next scan meets
  bool isKept = false;               // what it fetches, for a later scan to go on with
  platform::Clock* clock = nullptr;  // where set, the scan is patient, by this clock
  RecordingView view;                // of the next scan

  /// Scans from start to end. `whenRunning` is called with the scanner right after its start.
  crawler::ScanResult scan(const std::function<void(crawler::SiteScanner&)>& whenRunning = {});

  /// The scanner in hand, for callbacks of the view.
  crawler::SiteScanner& scanner() { return *m_scanner; }

  const store::StateFolder& state() const { return m_state; }

  /// Where a scan that was stopped has kept its pages.
  std::filesystem::path journal() const { return m_state.ofSite("Site") / "unfinished-scan.tsv"; }

  const store::GlobalControls& controls() const { return m_controls; }
  std::filesystem::path folder() const { return m_controls.siteFolder("Site"); }

  /// A file of the site's folder, whole; "(missing)" when there is none.
  std::string file(const std::string& name) const;

  /// The seven documents, the record and the list of broken pages in one text, a heading before each. The
  /// part of the documents that is the same in all is left out, and `base`, the server's address, becomes
  /// "http://site.test/".
  std::string documents(const std::string& base) const;

 private:
  TempFolder m_home;
  store::GlobalControls m_controls;
  store::StateFolder m_state;
  crawler::SiteScanner* m_scanner = nullptr;
};

/// What was left out, a line a reason with its examples; `base`, the server's address, becomes "/".
std::string leftOutLines(const crawler::ScanResult& result, const std::string& base);

/// Compares with the file tests/data/NAME, or writes it when VESKEL_STORE_EXPECTED is set in the environment.
void expectStored(const std::string& name, const std::string& actual);

}  // namespace support
