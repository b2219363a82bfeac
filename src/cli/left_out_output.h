// What a scan has left out, on stdout.
#pragma once

#include "crawler/left_out.h"

namespace cli {

/// A line an example, with tabs between: the reason, the address, the page that the link stands on.
void printExamples(const crawler::LeftOut& leftOut);

}  // namespace cli
