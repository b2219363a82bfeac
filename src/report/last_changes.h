// What the last complete scan of a site has changed, in a few words, whatever the size of the site.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "store/state_folder.h"

namespace report {

struct LastChanges {
  platform::FileResult result = {};  // `missing` when no scan was kept yet
  std::string text = {};             // see changesText(); empty when there are no two scans to compare
  // Pages of each kind, see Changes:
  std::size_t added = 0;
  std::size_t gone = 0;
  std::size_t newlyBroken = 0;
  std::size_t repaired = 0;
  std::size_t renamed = 0;

  bool areKnown() const { return !text.empty(); }
};

/// Keeps some 200 bytes a page while it reads, and more only of pages that have changed.
LastChanges readLastChanges(const store::StateFolder& state, std::string_view siteName);

}  // namespace report
