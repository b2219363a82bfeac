#include "xml_editor/menu_values.h"

#include <optional>
#include <span>

namespace xml_editor {

const MenuValue* chosenValue(std::string_view row, Field field) {
  const std::optional<sitemaps::ElementText> element = sitemaps::findElement(row, field);
  if (!element) return nullptr;
  const std::span<const MenuValue> menu = field == Field::changefreq
                                              ? std::span<const MenuValue>(kFrequencyMenu)
                                              : std::span<const MenuValue>(kPriorityMenu);
  for (const MenuValue& each : menu) {
    if (element->value == each.value || element->value == each.title) return &each;
  }
  return nullptr;
}

}  // namespace xml_editor
