// Strict reading of XML in one pass, that tells every fault it finds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// An element's or attribute's name. Views are valid during the call only.
struct XmlName {
  std::string_view local;      // without prefix
  std::string_view nameSpace;  // the namespace it is bound to; empty for none
};

struct XmlAttribute {
  XmlName name;
  std::string value;  // references decoded
};

/// Told of a document in its order. Where the text is not well-formed the reader mends it somehow and goes
/// on.
class XmlHandler {
 public:
  virtual ~XmlHandler() = default;

  /// `attributes` without the declarations of namespaces.
  virtual void startElement(const XmlName& name, const std::vector<XmlAttribute>& attributes) = 0;
  virtual void endElement() = 0;
  /// A piece of text, entities decoded; neighbouring pieces belong together.
  virtual void text(std::string_view piece) = 0;
  virtual void documentType() = 0;
  /// The text is not well-formed at this line (from 1). `message` is one sentence without its full stop.
  virtual void fault(int line, std::string_view message) = 0;
};

/// Reads `utf8` (valid UTF-8) as XML 1.0 with namespaces, whatever encoding it declares. Nothing outside the
/// text is fetched and no entity but the five predefined ones is known. Reading ends early where elements
/// nest deeper than 256, and at a start tag that goes on for more than 16 KiB; both are told as faults.
void readXml(std::string_view utf8, XmlHandler& handler);

}  // namespace platform
