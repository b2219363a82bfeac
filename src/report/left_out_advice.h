// What a user may do to have pages in the sitemaps that were left out.
#pragma once

#include <string_view>

#include "crawler/link_rules.h"

namespace report {

/// The setting that would change it, a sentence with the names that window and command line have for it.
/// Empty where nothing is missing: those are other sites, second names of pages, and what is no page.
std::string_view adviceFor(crawler::LinkReason reason);

}  // namespace report
