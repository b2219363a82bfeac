#include "report/left_out_advice.h"

#include "platform/phrases.h"

namespace report {

namespace {

using platform::Phrases;

struct Advice {
  const char* window = "";
  const char* commandLine = "";
};

Advice adviceFor(crawler::LinkReason reason) {
  using enum crawler::LinkReason;
  constexpr const char* kBound = Phrases::noop(
      "This is a bound of every scan, and no setting changes it. A filter keeps endless addresses out.");
  constexpr const char* kElsewhere =
      Phrases::noop("They lead to another site: link there, or add it as a site of its own.");
  switch (reason) {
    case foreignExtension:
      return {
          Phrases::noop(
              "Pages with other endings are found when Links in the Scan Settings is set to As browsers do."),
          "Pages with other endings are found with links as browsers do (--links browser)."};
    case withoutPort:
      return {
          Phrases::noop(
              "Simple links lose the port of addresses that begin with a slash. They are found when Links in "
              "the Scan Settings is set to As browsers do."),
          "Simple links lose the port of addresses that begin with a slash; links as browsers do find "
          "them (--links browser)."};
    case filter:
      return {Phrases::noop("A filter of the site does this: delete it in the Filters beside the Scan view."),
              "A filter of the site does this: delete it (filters NAME --delete TEXT)."};
    case robots:
      return {Phrases::noop("The site's robots.txt asks for it: Ignore robots.txt in the Scan view has them "
                            "scanned all the "
                            "same."),
              "The site's robots.txt asks for it: they are scanned all the same with --ignore-robots yes."};
    case tooDeep:
      return {Phrases::noop("Raise Deepest level in the Scan Settings, or set it to 0."),
              "Raise the site's deepest level, or set it to 0 (--levels)."};
    case otherPort:
    case aboveStart:
      return {
          Phrases::noop("A scan stays below its start: a Site URL further up, in Edit Site, takes them in, "
                        "or a site of "
                        "their own."),
          "A scan stays below its start: a URL further up takes them in (--url), or a site of their own."};
    case notFollowed:
    case noIndex:
      return {
          Phrases::noop(
              "The pages themselves ask for it (nofollow, noindex). With Links in the Scan Settings set to "
              "Simple that is not heeded."),
          "The pages themselves ask for it (nofollow, noindex). Simple links do not heed that (--links "
          "simple)."};
    case redirectedOutside:
      return {kElsewhere, kElsewhere};
    case tooLong:
    case surplusLink:
    case surplusPage:
      return {kBound, kBound};
    default:
      return {};
  }
}

}  // namespace

std::string adviceFor(crawler::LinkReason reason, Reader reader) {
  const Advice advice = adviceFor(reason);
  if (reader == Reader::commandLine) return advice.commandLine;
  return *advice.window == '\0' ? std::string() : Phrases::tr(advice.window);
}

}  // namespace report
