#include "store/text_lines.h"

#include <algorithm>

namespace store {

std::vector<std::string> nonEmptyLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    if (end > 0) lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string escapedField(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '\\':
        result += "\\\\";
        break;
      case '\t':
        result += "\\t";
        break;
      case '\n':
        result += "\\n";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string unescapedField(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const char code = text[++i];
    result += code == 't' ? '\t' : code == 'n' ? '\n' : code;
  }
  return result;
}

}  // namespace store
