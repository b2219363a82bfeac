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
  appendEscapedField(result, text);
  return result;
}

void appendEscapedField(std::string& line, std::string_view text) {
  while (!text.empty()) {
    const std::size_t plain = std::min(text.find_first_of("\\\t\n"), text.size());
    line += text.substr(0, plain);
    text.remove_prefix(plain);
    if (text.empty()) return;
    line += text.front() == '\\' ? "\\\\" : text.front() == '\t' ? "\\t" : "\\n";
    text.remove_prefix(1);
  }
}

bool isPlainField(std::string_view text) {
  constexpr std::string_view kEscaped = "\\\t\n";
  return std::all_of(kEscaped.begin(), kEscaped.end(),
                     [&](char c) { return text.find(c) == std::string_view::npos; });
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

std::string takeField(std::string_view& line) {
  const std::string_view field = line.substr(0, line.find('\t'));
  line.remove_prefix(std::min(field.size() + 1, line.size()));
  return unescapedField(field);
}

}  // namespace store
