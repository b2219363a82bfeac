// Looking for the first of several bytes, at one look-up for each that is passed.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace web {

class ByteSet {
 public:
  constexpr explicit ByteSet(std::string_view bytes) {
    for (const char c : bytes) m_has[static_cast<unsigned char>(c)] = true;
  }

  constexpr bool has(char c) const { return m_has[static_cast<unsigned char>(c)]; }

  /// What is in front of the first of them; all when there is none.
  constexpr std::string_view textBefore(std::string_view text) const {
    std::size_t length = 0;
    while (length < text.size() && !has(text[length])) ++length;
    return text.substr(0, length);
  }

 private:
  std::array<bool, 256> m_has{};
};

}  // namespace web
