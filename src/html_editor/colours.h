// Colours as the colour wells hold them and as hex digits, and what a user may type for one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace html_editor {

/// Each part from 0 to 1.
struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;

  bool operator==(const Colour&) const = default;
};

/// "#" and six upper-case hex digits. Parts are truncated, not rounded: 0.5 is "7F".
std::string getHEXValue(const Colour& colour);

/// The colour that `text` begins with, one "#" in front or none: its leading hex digits have to be six.
std::optional<Colour> setHEXValue(std::string_view text);

/// What follows when a user has typed a colour.
struct HexFieldAnswer {
  std::string text;            // what the field shows then: as typed, but six characters get their "#"
  bool accepted = false;       // `text` is to be written as the colour
  std::optional<Colour> well;  // the colour well's new colour; nothing: it stays
  int complaints = 0;          // how often the sheet kHexFieldMessage is shown: 0, 1 or 2 times
};

extern const std::string_view kHexFieldMessage;

/// Length and digits are looked at separately, and each may complain. A text with six digits in it is
/// accepted also when its length is wrong.
HexFieldAnswer checkHexField(std::string_view typed);

}  // namespace html_editor
