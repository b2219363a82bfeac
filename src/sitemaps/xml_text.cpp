#include "sitemaps/xml_text.h"

#include "sitemaps/xml_references.h"

namespace sitemaps {

void appendEscaped(std::string& escaped, std::string_view text) {
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else if (c == '\t' || c == '\n' || c == '\r') {
      escaped += ' ';
    } else if (static_cast<unsigned char>(c) < 0x20) {
      escaped += "\xEF\xBF\xBD";
    } else {
      escaped += c;
    }
  }
}

void appendNormalised(std::string& escaped, std::string_view text) {
  std::size_t done = 0;
  for (std::size_t at = 0; (at = text.find('&', at)) != std::string_view::npos; ++at) {
    const auto reference = referenceAt(text.substr(at));
    if (!reference) continue;
    appendEscaped(escaped, text.substr(done, at - done));
    appendEscaped(escaped, reference->character);
    done = at + reference->length;
    at = done - 1;
  }
  appendEscaped(escaped, text.substr(done));
}

}  // namespace sitemaps
