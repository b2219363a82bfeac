// A page's title and links by the one-pass reader: the same as the markup parser's tree has.
#include "crawler/page_contents.h"

#include "fuzz_target.h"
#include "platform/text.h"
#include "support/tree_contents.h"

namespace {

using fuzz::require;

void compareWithTree(const std::string& markup) {
  const crawler::PageContents contents = crawler::readPageContents(markup);
  const crawler::PageContents expected = support::contentsOfTree(markup);
  require(contents.title == expected.title, "the title is that of the tree");
  require(contents.anchors.size() == expected.anchors.size(), "there are as many anchors as in the tree");
  for (std::size_t i = 0; i < expected.anchors.size(); ++i) {
    require(contents.anchors[i].href == expected.anchors[i].href, "each href is that of the tree");
    require(contents.anchors[i].title == expected.anchors[i].title, "each name is that of the tree");
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(fuzz::textOf(data, size));
  const std::string markup = platform::decodePage(bytes, "text/html; charset=utf-8");
  compareWithTree(markup);

  // The parser gets a page in pieces of at most this many bytes: one shall end in the middle of the markup.
  constexpr std::size_t kPiece = 4000;
  std::string filler;
  while (filler.size() + markup.size() / 2 < kPiece) filler += filler.size() % 2 == 0 ? 'x' : ' ';
  compareWithTree(filler + markup);
  return 0;
}
