// What belongs to a site: its host and port, below the folder of its start address.
#pragma once

#include <string>
#include <string_view>

#include "crawler/link_rules.h"
#include "platform/uri.h"

namespace crawler {

/// The bounds of one site. A host with and without "www." in front counts as one, whatever its case, and so
/// do http and https, each with its own port.
class SiteBounds {
 public:
  explicit SiteBounds(std::string_view startUrl);

  /// LinkReason::none for an address of the site, else what is different: otherHost, otherPort or aboveStart.
  /// What has no host is on another one.
  LinkReason judge(const platform::UriParts& link) const;

 private:
  std::string m_host;
  std::string m_port;    // empty: the scheme's own
  std::string m_folder;  // path up to its last "/"
};

}  // namespace crawler
