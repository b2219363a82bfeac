// The lock that everything takes which changes a site: a scan for its whole length, an edit for a moment.
#pragma once

#include <string_view>

#include "platform/files.h"
#include "platform/phrases.h"
#include "store/global_controls.h"

namespace store {

/// Held until it goes away, also when the site's folder is renamed meanwhile.
class SiteLock {
 public:
  SiteLock(const GlobalControls& controls, std::string_view siteName)
      : m_lock(controls.siteFolder(siteName)) {
    m_result = m_lock.result();
    if (m_result.status == platform::FileStatus::busy)
      m_result.error = platform::Phrases::tr("The site is being scanned.");
  }

  /// `busy` when somebody else has the lock, `missing` when there is no such site.
  const platform::FileResult& result() const { return m_result; }

 private:
  platform::FolderLock m_lock;
  platform::FileResult m_result;
};

}  // namespace store
