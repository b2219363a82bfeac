// A check of the links that lead outside of a site, from what is asked to what is kept of it.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/scan_settings.h"
#include "platform/files.h"
#include "report/link_check.h"
#include "report/report_database.h"
#include "store/global_controls.h"
#include "store/state_folder.h"

namespace report {

enum class CheckEnd {
  complete,
  stopped,       // the next check may go on with it
  noScan,        // no complete scan is kept that tells what there is to ask
  checked,       // by another check, at this moment
  beingScanned,  // likewise
  failed,        // the site's report could not be read or written
};

/// What a check of a site would do.
struct CheckPlan {
  CheckEnd end = CheckEnd::complete;  // why it would come to nothing; `complete` when it would not
  platform::FileResult file = {};     // for `failed`
  std::size_t links = 0;              // addresses outside of the site
  std::size_t pages = 0;              // that would be read for what they are made of
  std::size_t asked = 0;              // by the last check
  CheckFacts last = {};
};

/// Reads the site's report. Its time grows with the number of addresses.
CheckPlan planCheck(const store::GlobalControls& controls, const store::StateFolder& state,
                    std::string_view siteName);

struct CheckRequest {
  crawler::ScanSettings scan;  // the site, and how its own server is asked
  bool resources = false;      // also the images, styles and scripts of its pages
  bool again = false;          // all of them, also where the last check was stopped
};

/// How far a check is. First pages are read, if that is wanted, and then addresses asked.
struct CheckProgress {
  std::size_t pages = 0;
  std::size_t pagesRead = 0;
  std::size_t all = 0;        // addresses
  CheckCounts asked = {};     // with those that the check before it has asked
  std::string waitsFor = {};  // the host that most of the rest is asked of

  std::size_t left() const { return all - asked.all(); }
};

class CheckObserver {
 public:
  virtual ~CheckObserver() = default;
  /// Called on any thread, one call at a time. Returns at once.
  virtual void checkProgressed(const CheckProgress& progress) = 0;
};

struct [[nodiscard]] CheckResult {
  CheckEnd end = CheckEnd::complete;
  platform::FileResult file = {};  // for `failed`
  CheckProgress progress = {};
  bool hasAllOutside = true;  // else the scan met more addresses than it could remember
};

/// Why a check came to nothing, a sentence; empty for those that did not. The name is shown as it is given.
std::string whyNotChecked(CheckEnd end, const platform::FileResult& file, std::string_view siteName);

/// Asks what the last complete scan of a site has met and keeps what comes of it, some at a time: whatever
/// ends a check, the next one goes on near there. Addresses of private networks are asked only when the site
/// itself is in one. For one run; what is borrowed outlives it.
class SiteLinkCheck {
 public:
  SiteLinkCheck(const store::GlobalControls& controls, const store::StateFolder& state, CheckRequest request,
                CheckObserver& observer)
      : m_controls(controls), m_state(state), m_request(std::move(request)), m_observer(observer) {}

  /// Blocks until all is asked, or until a stop, at which requests under way are ended.
  CheckResult run(const std::stop_token& stop);

 private:
  void gather(const ScanFacts& scan, const std::stop_token& stop);
  void addResources(const std::vector<std::string>& pages, const std::stop_token& stop);
  void begin();
  void ask(const std::stop_token& stop);
  void add(LinkCheck check);
  void keep();
  void keepAll();

  const store::GlobalControls& m_controls;
  const store::StateFolder& m_state;
  const CheckRequest m_request;
  CheckObserver& m_observer;
  CheckResult m_result;
  std::map<std::string, std::string> m_wanted;  // addresses, with the page where a resource was found
  std::vector<LinkCheck> m_unwritten;
  std::stop_source m_giveUp;  // what is found can be kept no more
};

}  // namespace report
