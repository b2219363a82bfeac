#include "report/left_out_advice.h"

namespace report {

std::string_view adviceFor(crawler::LinkReason reason) {
  using enum crawler::LinkReason;
  switch (reason) {
    case foreignExtension:
      return "Pages with other endings are found with Links as browsers do (--links browser).";
    case filter:
      return "A filter of the site does this: delete it in Filters (filters NAME --delete TEXT).";
    case robots:
      return "The site's robots.txt asks for it: Ignore robots.txt scans them all the same (--ignore-robots "
             "yes).";
    case tooDeep:
      return "Raise the site's deepest level, or set it to 0 (--levels).";
    case otherPort:
    case aboveStart:
      return "A scan stays below its start: a URL further up takes them in (--url), or a site of their own.";
    case notFollowed:
    case noIndex:
      return "The pages themselves ask for it (nofollow, noindex). Simple links do not heed that (--links "
             "simple).";
    case redirectedOutside:
      return "They lead to another site: link there, or add it as a site of its own.";
    case tooLong:
    case surplusLink:
    case surplusPage:
      return "This is a bound of every scan, and no setting changes it. A filter keeps endless addresses "
             "out.";
    default:
      return "";
  }
}

}  // namespace report
