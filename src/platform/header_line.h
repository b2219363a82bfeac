// Header lines that users have sent with every request.
#pragma once

#include <string>
#include <string_view>

namespace platform {

struct HeaderLine {
  std::string name;
  std::string value;  // without blanks at its ends; may be empty

  /// "Name: value"
  std::string text() const { return name + (value.empty() ? ":" : ": " + value); }
};

/// Splits at the first colon; without one everything is the name.
HeaderLine splitHeaderLine(std::string_view line);

/// Why such a line cannot be sent: "it has to look like ...". Names that the client has to see to itself are
/// refused, as they say how a message is framed, who is asked, or what the client can read. Empty when the
/// line is fine.
std::string headerLineProblem(std::string_view line);

/// Why a text cannot stand in a header line: "it cannot contain ...", "it is longer than ...". Empty when it
/// can, as the empty text can.
std::string headerTextProblem(std::string_view text);

/// Why a name cannot be told by HTTP authentication (RFC 7617, section 2); likewise.
std::string userNameProblem(std::string_view name);

}  // namespace platform
