// A page's title and links.
#include "crawler/page_contents.h"

#include "fuzz_target.h"
#include "platform/text.h"

using fuzz::require;

void fuzz::tryInput(std::string_view input) {
  const std::string markup = platform::decodePage(std::string(input), "text/html; charset=utf-8");
  const crawler::PageContents contents = crawler::readPageContents(markup);
  require(!contents.title.empty() && fuzz::isUtf8(contents.title), "there is a title");
  std::size_t written = 0;
  for (const crawler::Anchor& anchor : contents.anchors) {
    require(anchor.href.has_value() != anchor.title.empty(), "an anchor that leads somewhere has a name");
    if (!anchor.href) continue;
    require(fuzz::isUtf8(*anchor.href) && fuzz::isUtf8(anchor.title), "what comes out is valid UTF-8");
    written += anchor.href->size();
  }
  // A name may be fixed or longer than what is written; an address is at most a fifth longer.
  require(written <= markup.size() + markup.size() / 5, "the links are not longer than the page");

  const crawler::PageContents behind = crawler::readPageContents(markup + "<a href=last>");
  require(behind.anchors.size() <= contents.anchors.size() + 1, "a link more is one more at most");
  const crawler::PageContents twice =
      crawler::readPageContents("<title>x</title><a href=first></a>" + markup);
  require(twice.title == "x", "the first title is the page's");
  require(twice.anchors.size() == contents.anchors.size() + 1, "what stands in front changes nothing");
  for (std::size_t i = 0; i < contents.anchors.size(); ++i) {
    require(twice.anchors[i + 1].href == contents.anchors[i].href, "each address is the same then");
    require(twice.anchors[i + 1].title == contents.anchors[i].title, "and so is each name");
  }
}
