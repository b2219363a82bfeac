#include "web/html_text.h"

#include <algorithm>
#include <array>

#include "platform/ascii.h"
#include "web/character_references.h"

namespace web {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

enum class References { no, yes };
enum class Nuls { stay, replaced };

template <References references, Nuls nuls, ReferencePlace place>
void append(std::string& to, std::string_view written) {
  static constexpr std::array<bool, 256> kPlain = [] {
    std::array<bool, 256> plain{};
    plain.fill(true);
    plain['\r'] = false;
    plain['&'] = references == References::no;
    plain['\0'] = nuls == Nuls::stay;
    return plain;
  }();
  for (std::size_t i = 0; i < written.size();) {
    const std::size_t begin = i;
    while (i < written.size() && kPlain[static_cast<unsigned char>(written[i])]) ++i;
    to.append(written, begin, i - begin);
    if (i == written.size()) return;
    if (written[i] == '\r') {
      to += '\n';
      i += written.substr(i).starts_with("\r\n") ? 2 : 1;
    } else if (written[i] == '\0') {
      to += kReplacement;
      ++i;
    } else {
      const std::size_t length = appendReference(to, written.substr(i), place);
      if (length == 0) to += '&';
      i += std::max<std::size_t>(length, 1);
    }
  }
}

}  // namespace

void appendText(std::string& to, std::string_view written, TextForm form) {
  switch (form) {
    case TextForm::data:
      return append<References::yes, Nuls::stay, ReferencePlace::text>(to, written);
    case TextForm::rcdata:
      return append<References::yes, Nuls::replaced, ReferencePlace::text>(to, written);
    case TextForm::rawtext:
      return append<References::no, Nuls::replaced, ReferencePlace::text>(to, written);
    case TextForm::cdata:
      return append<References::no, Nuls::stay, ReferencePlace::text>(to, written);
  }
}

void appendAttributeValue(std::string& to, std::string_view written) {
  append<References::yes, Nuls::replaced, ReferencePlace::attribute>(to, written);
}

void appendName(std::string& to, std::string_view written) {
  for (const char c : written) {
    if (c == '\0') {
      to += kReplacement;
    } else {
      to += platform::lowerAscii(c);
    }
  }
}

bool isNamed(std::string_view written, std::string_view lower) {
  return std::equal(written.begin(), written.end(), lower.begin(), lower.end(),
                    [](char a, char b) { return platform::lowerAscii(a) == b; });
}

}  // namespace web
