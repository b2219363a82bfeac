// Bytes of an address that are written as "%" and two hex digits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace web {

/// Which bytes a part of an address cannot hold as themselves. All hold those above 0x7E and controls.
enum class EncodeSet : std::uint8_t {
  control = 1,  // nothing else
  fragment = 2,
  query = 4,
  specialQuery = 8,  // the query of a scheme that browsers know, such as http
  path = 16,
  userInfo = 32,
};

/// An encoded byte stays as it is: "%" is in none of the sets.
void appendPercentEncoded(std::string& to, std::string_view bytes, EncodeSet set);

/// Each "%" with two hex digits as its byte. Other "%" stay.
std::string percentDecoded(std::string_view text);

/// 16 for what is no hex digit.
unsigned hexValue(char c);

}  // namespace web
