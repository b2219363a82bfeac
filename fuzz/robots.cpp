// The rules of a robots.txt.
#include "crawler/robots.h"

#include <string>
#include <vector>

#include "crawler/exclusions.h"
#include "fuzz_target.h"

using fuzz::require;

void fuzz::tryInput(std::string_view input) {
  const std::vector<std::string> rules = crawler::robotsRules(input);
  const crawler::Exclusions exclusions(rules);
  for (const std::string& rule : rules) {
    require(input.find("Disallow: " + rule) != input.npos, "a rule is what stands in its line");
    require(rule.empty() || exclusions.find("http://a.test" + rule).has_value(), "a rule keeps its path out");
  }
}
