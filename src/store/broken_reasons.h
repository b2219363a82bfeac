// Why pages of a site's last scan were broken. The site's folder holds only their addresses, so the reasons
// are kept in its state folder, in "reasons.tsv". A line of the file is the URL, a tab and the reason; tabs,
// line ends and backslashes inside the two are escaped, so that a hostile URL cannot pass for another line.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "store/state_folder.h"

namespace store {

struct BrokenPage {
  std::string url;
  std::string reason;  // "404 - Not Found"; "0 - " and the cause when no answer came; empty where unknown
};

/// The reasons of all sites of one user. A value; the folder is made when something is first saved.
class BrokenReasons {
 public:
  explicit BrokenReasons(StateFolder state) : m_state(std::move(state)) {}

  /// Remembers the broken pages of a scan that has just ended, also when there are none.
  platform::FileResult save(std::string_view siteName, const std::vector<BrokenPage>& pages) const;

  /// When save() was last called for the site, which is when it was last scanned; nothing when never.
  std::optional<std::filesystem::file_time_type> savedAt(std::string_view siteName) const;

  /// `urls` with the reasons known for them. A file that is missing or cannot be read knows none.
  std::vector<BrokenPage> lookUp(std::string_view siteName, const std::vector<std::string>& urls) const;

  /// Takes along what former versions kept in one folder for all sites, "broken". Done once: the folder goes.
  void takeFormer(const std::vector<std::string>& siteNames) const;

 private:
  std::filesystem::path file(std::string_view siteName) const;

  StateFolder m_state;
};

}  // namespace store
