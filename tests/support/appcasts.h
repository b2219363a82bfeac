// Lists of versions for tests.
#pragma once

#include <string>

namespace support {

/// A list of these items.
inline std::string appcastOf(const std::string& items) {
  return "<rss version=\"2.0\" "
         "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel>" +
         items + "</channel></rss>";
}

/// An item with this version, and `fields`.
inline std::string appcastItem(const std::string& version, const std::string& fields = {}) {
  return "<item><sparkle:version>" + version + "</sparkle:version>" + fields + "</item>";
}

}  // namespace support
