// Files of the store that hold one entry a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace store {

/// The lines of `text` that are not empty, in order. Only the line feed ends a line: a carriage return before
/// it belongs to the entry.
std::vector<std::string> nonEmptyLines(std::string_view text);

/// A text fit to stand between two tabs of a line: tabs, line feeds and backslashes become "\\t", "\\n" and
/// "\\\\".
std::string escapedField(std::string_view text);
void appendEscapedField(std::string& line, std::string_view text);
/// Whether the text is its own escaped form.
bool isPlainField(std::string_view text);
std::string unescapedField(std::string_view text);

/// Takes the field in front of the next tab, or the rest, off the line, and gives what it means.
std::string takeField(std::string_view& line);

}  // namespace store
