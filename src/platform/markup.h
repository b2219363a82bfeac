// Forgiving HTML, read in one pass without a tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace platform {

struct MarkupAttribute {
  std::string_view name;   // lower case
  std::string_view value;  // entities decoded; empty for an attribute without a value
};

/// Told of the elements of a document in its order, as a tree of it would be walked: elements left open are
/// closed, implied ones are told too. Views are valid during the call only.
class MarkupHandler {
 public:
  virtual ~MarkupHandler() = default;

  virtual void startElement(std::string_view name, const std::vector<MarkupAttribute>& attributes) = 0;
  virtual void endElement(std::string_view name) = 0;
  /// A piece of text; neighbouring pieces belong to one text node.
  virtual void text(std::string_view piece) = 0;
  /// A comment or processing instruction.
  virtual void otherNode() = 0;
  /// A comment, for those who want its text: what stands between "<!--" and "-->".
  virtual void comment(std::string_view) { otherNode(); }
};

/// What a text may cost its reader. Where the parser searches one by one, a hostile text can make it do so
/// without end. The steps are counted and not timed, so that a text has the same contents wherever it is
/// read. A step is about half a nanosecond; pages that people wrote, however broken, stay below a hundredth
/// of these.
struct MarkupLimits {
  std::uint64_t steps = 4'000'000'000;
  std::uint64_t stepsInTag = 12'000'000'000;
  int depth = 200'000;  // of open elements, as each end tag may search all of them
  // Of all different names in a text: the parser keeps them, and its table of them stops growing at some
  // size. Its own limit on that is of no use, as it never gets past the tag whose name is one too many.
  std::size_t nameBytes = 4u << 20;
};

/// Reads `utf8` (valid UTF-8) as HTML. Never fails: every text yields some document, and the same text always
/// the same one. A text made to exhaust its reader is read up to some point and counts as ending there: where
/// elements nest hundreds of thousands deep, where a tag has tens of thousands of attributes, or where the
/// parser has searched in vain for too long.
void readHtml(std::string_view utf8, MarkupHandler& handler, const MarkupLimits& limits = {});

}  // namespace platform
