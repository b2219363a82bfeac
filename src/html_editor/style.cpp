#include "html_editor/style.h"

#include "html_editor/style_rules.h"

namespace html_editor {

const std::array<std::string_view, 7> fontSizeArray = {"1.4em", "1.3em", "1.2em", "1.1em",
                                                       "1em",   "0.9em", "0.8em"};

const std::array<std::string_view, 6> fontFaceArray = {
    "Geneva, Arial, Helvetica, sans-serif",   "Verdana, Arial, Helvetica, sans-serif",
    "Georgia, Times New Roman, Times, serif", "Courier New, Courier, mono",
    "Times New Roman, Times, serif",          "Arial, Helvetica, sans-serif"};

namespace {

using platform::Regex;

std::optional<std::string_view> findBlock(std::string_view document, EntryClass entries) {
  static const Regex kTitle(".vskPageTitle a {[^>]*?}");
  static const Regex kLink(".vskPageLink a {[^>]*?}");
  if (entries == EntryClass::pageTitle) return findRule(document, "vskPageTitle a {", kTitle);
  return findRule(document, "vskPageLink a {", kLink);
}

std::optional<std::string> value(std::string_view block, const Regex& declaration) {
  const auto match = declaration.find(block);
  if (!match) return std::nullopt;
  return std::string(match->groups[0]);
}

/// `declaration` reaches to the last semicolon of its line, other than the patterns that read: what stands
/// behind the value on that line goes.
std::string withDeclaration(std::string_view document, EntryClass entries, const Regex& declaration,
                            std::string_view name, std::string_view newValue) {
  const auto block = findBlock(document, entries);
  const auto old = block ? declaration.find(*block) : std::nullopt;
  if (!old) return std::string(document);
  std::string written(name);
  written.append(": ").append(newValue).append(";");
  return platform::replaceText(document, *block, platform::replaceText(*block, old->whole, written));
}

}  // namespace

EntryStyle readStyle(std::string_view document, EntryClass entries) {
  static const Regex kColour("color: (.*?);");
  static const Regex kFamily("font-family: (.*?);");
  static const Regex kSize("font-size: (.*?);");
  static const Regex kWeight("font-weight: (.*?);");
  static const Regex kStyle("font-style: (.*?);");
  const auto block = findBlock(document, entries);
  if (!block) return {};
  return {.colour = value(*block, kColour),
          .family = value(*block, kFamily),
          .size = value(*block, kSize),
          .bold = value(*block, kWeight) == "bold",
          .italic = value(*block, kStyle) == "italic"};
}

std::string withFontFamily(std::string_view document, EntryClass entries, std::string_view value) {
  static const Regex kDeclaration("font-family:.*;");
  return withDeclaration(document, entries, kDeclaration, "font-family", value);
}

std::string withFontSize(std::string_view document, EntryClass entries, std::string_view value) {
  static const Regex kDeclaration("font-size:.*;");
  return withDeclaration(document, entries, kDeclaration, "font-size", value);
}

std::string withBold(std::string_view document, EntryClass entries, bool bold) {
  static const Regex kDeclaration("font-weight:.*;");
  return withDeclaration(document, entries, kDeclaration, "font-weight", bold ? "bold" : "normal");
}

std::string withItalic(std::string_view document, EntryClass entries, bool italic) {
  static const Regex kDeclaration("font-style:.*;");
  return withDeclaration(document, entries, kDeclaration, "font-style", italic ? "italic" : "normal");
}

std::string withColour(std::string_view document, EntryClass entries, std::string_view value) {
  static const Regex kDeclaration("color:.*;");
  return withDeclaration(document, entries, kDeclaration, "color", value);
}

}  // namespace html_editor
