// What a user may do to have pages in the sitemaps that were left out.
#pragma once

#include <string_view>

#include "crawler/link_rules.h"

namespace report {

/// What the reader has at hand, and so what an advice names.
enum class Reader { window, commandLine };

/// The setting that would change it, in a sentence or two. Empty where nothing is missing: those are other
/// sites, second names of pages, and what is no page.
std::string adviceFor(crawler::LinkReason reason, Reader reader);

}  // namespace report
