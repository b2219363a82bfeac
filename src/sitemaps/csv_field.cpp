#include "sitemaps/csv_field.h"

namespace sitemaps {

std::string csvField(std::string_view text) {
  constexpr std::string_view kFormulaStarts = "=+-@\t\r";
  const bool isFormula = !text.empty() && kFormulaStarts.find(text.front()) != std::string_view::npos;
  std::string field = isFormula ? "'" : "";
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return field.append(text);
  field.insert(0, "\"");
  for (const char c : text) {
    if (c == '"') field += '"';
    field += c;
  }
  return field + '"';
}

}  // namespace sitemaps
