#include "xml_editor/row_changes.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/phrases.h"
#include "platform/regex.h"

namespace xml_editor {

namespace {

using platform::Phrases;

constexpr std::array<const char*, 4> kBlank = {
    Phrases::noop("The URL field cannot be left blank"),
    Phrases::noop("The Last Updated field cannot be left blank"),
    Phrases::noop("The Change Frequency field cannot be left blank"),
    Phrases::noop("The Link Priority field cannot be left blank")};

constexpr bool continuesCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// `text` without its first `count` characters.
std::string_view behindCharacters(std::string_view text, std::size_t count) {
  while (count > 0 && !text.empty()) {
    do {
      text.remove_prefix(1);
    } while (!text.empty() && continuesCharacter(text[0]));
    --count;
  }
  return text;
}

std::string_view withoutLastCharacters(std::string_view text, std::size_t count) {
  for (; count > 0 && !text.empty(); --count) {
    while (text.size() > 1 && continuesCharacter(text.back())) text.remove_suffix(1);
    text.remove_suffix(1);
  }
  return text;
}

/// The number that `text` starts with, 0 when it starts with none. More digits than a date has count as one
/// number that is too large.
int leadingNumber(std::string_view text) {
  constexpr int kEnough = 1000;
  int number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    number = std::min(number * 10 + (c - '0'), kEnough);
  }
  return number;
}

bool isWithin(int number, int least, int most) {
  return number >= least && number <= most;
}

std::string dateRefusal(std::string_view value, std::string_view today) {
  constexpr std::size_t kMonthAt = 5;
  constexpr std::size_t kDayAt = 6;
  static const platform::Regex kDate("(\\d{4}\\-\\d{2}\\-\\d{2})");
  if (!kDate.find(value)) {
    return Phrases::tr("The Last Updated date format must be yyyy-mm-dd (%1)", {today});
  }
  if (!isWithin(leadingNumber(behindCharacters(withoutLastCharacters(value, 3), kMonthAt)), 2, 12)) {
    return Phrases::tr("The month must be a number between 01 and 12");
  }
  if (!isWithin(leadingNumber(behindCharacters(value, kDayAt)), 2, 31)) {
    return Phrases::tr("The day must be a number between 01 and 31");
  }
  return {};
}

}  // namespace

std::string refusal(Field field, std::string_view value, std::string_view today) {
  if (value.empty()) {
    return Phrases::tr(kBlank[static_cast<std::size_t>(field)]);
  }
  return field == Field::lastmod ? dateRefusal(value, today) : std::string();
}

std::string withValue(std::string row, Field field, std::string_view value) {
  const std::optional<ElementText> element = findElement(row, field);
  if (!element) return row;
  if (field == Field::loc) {
    if (!element->value.empty()) return platform::replaceText(row, element->value, value);
    // An empty text occurs nowhere, so that the address could never be filled in.
    return row.insert(static_cast<std::size_t>(element->value.data() - row.data()), value);
  }
  const std::string_view name = elementName(field);
  std::string written = "\n\t\t<";
  written.append(name).append(">").append(value).append("</").append(name).append(">");
  return platform::replaceText(row, element->whole, written);
}

}  // namespace xml_editor
