#pragma once

#include <string>
#include <string_view>

namespace support {

inline std::string repeated(std::string_view unit, std::size_t times = 150'000) {
  std::string text;
  for (; times > 0; --times) text += unit;
  return text;
}

}  // namespace support
