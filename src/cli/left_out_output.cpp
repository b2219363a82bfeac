#include "cli/left_out_output.h"

#include <iostream>

#include "cli/cli_context.h"

namespace cli {

void printExamples(const crawler::LeftOut& leftOut) {
  for (const crawler::LeftOutGroup& group : leftOut.groups) {
    for (const crawler::LeftOutExample& example : group.examples) {
      std::cout << printable(group.reasonText()) << '\t' << printable(example.address) << '\t'
                << printable(example.page) << '\n';
    }
  }
}

}  // namespace cli
