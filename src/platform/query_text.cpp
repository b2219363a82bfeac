#include "platform/query_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include "platform/text.h"

namespace platform {
namespace {

constexpr UChar32 kReplacement = 0xFFFD;

/// Whether bytes below 80 mean other characters behind a switch.
bool hasStates(const Encoding& encoding) {
  return encoding.form == EncodingForm::multiByte && std::string_view(encoding.converter) == "iso-2022-jp";
}

/// Where every byte is a character.
class SingleBytes {
 public:
  explicit SingleBytes(const Encoding& encoding) : m_upper(upperHalf(encoding)) {}

  std::string bytesOf(UChar32 character) const {
    if (character < 0x80) return {static_cast<char>(character)};
    const auto* found = std::find(m_upper.begin(), m_upper.end(), character);
    if (found == m_upper.end() || character == kReplacement) return {};
    return {static_cast<char>(0x80 + (found - m_upper.begin()))};
  }

  std::string end() const { return {}; }

 private:
  const std::array<char16_t, 128> m_upper;
};

/// By ICU's converters, which know characters that browsers do not write.
class MultipleBytes {
 public:
  explicit MultipleBytes(const Encoding& encoding)
      : m_name(encoding.converter),
        m_isGbk(encoding.form == EncodingForm::gbk),
        m_hasStates(hasStates(encoding)) {
    UErrorCode error = U_ZERO_ERROR;
    m_converter.adoptInstead(ucnv_open(encoding.converter, &error));
    ucnv_setFromUCallBack(m_converter.getAlias(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &error);
    m_isThere = U_SUCCESS(error);
    if (m_isThere) ucnv_setFallback(m_converter.getAlias(), 0);  // to what looks alike
  }

  std::string bytesOf(UChar32 character) {
    if (character < 0x80 && !m_hasStates) return {static_cast<char>(character)};
    if (m_isJapanese) {
      if (character == 0x2212) character = 0xFF0D;  // the minus is a wide one there
      if (character == 0xA5 && !m_hasStates) return "\\";
      if (character == 0x203E && !m_hasStates) return "~";
    }
    if (m_isGbk && character == 0x20AC) return "\x80";
    std::string bytes = converted(icu::UnicodeString(character), !m_hasStates);
    return isWritten(bytes, character) ? bytes : std::string();
  }

  /// What has to follow the last character.
  std::string end() { return m_hasStates ? converted({}, true) : std::string(); }

 private:
  bool isWritten(std::string_view bytes, UChar32 character) const {
    if (m_isGbk) return bytes.size() <= 2;
    if (m_name == "gb18030") return character != 0xE5E5;
    // Their other characters, controls and those for private use among them, are read only.
    if (character < 0xA0 || (character >= 0xE000 && character <= 0xF8FF)) return character < 0x80;
    if (m_name == "Big5-HKSCS") return bytes >= "\xA1";
    return m_name != "euc-jp" || !bytes.starts_with('\x8F');
  }

  std::string converted(const icu::UnicodeString& text, bool isLast) {
    if (!m_isThere) return {};
    std::array<char, 32> bytes{};
    char* end = bytes.data();
    const UChar* source = text.getBuffer();
    UErrorCode error = U_ZERO_ERROR;
    ucnv_fromUnicode(m_converter.getAlias(), &end, bytes.data() + bytes.size(), &source,
                     source + text.length(), nullptr, static_cast<UBool>(isLast), &error);
    return U_SUCCESS(error) ? std::string(bytes.data(), end) : std::string();
  }

  const std::string_view m_name;
  const bool m_isGbk;
  const bool m_hasStates;
  const bool m_isJapanese = m_hasStates || m_name == "windows-31j" || m_name == "euc-jp";
  icu::LocalUConverterPointer m_converter;
  bool m_isThere;
};

template <typename Encoder>
std::string encoded(std::string_view utf8, Encoder encoder) {
  std::string result;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(utf8.data());
  for (std::size_t i = 0; i < utf8.size();) {
    UChar32 character = 0;
    U8_NEXT_OR_FFFD(bytes, i, utf8.size(), character);
    const std::string written = encoder.bytesOf(character);
    result += written;
    if (!written.empty()) continue;
    // ASCII is only refused where it switches to another set of characters: that must not come back to life.
    const bool isSwitch = character < 0x80;
    const std::string number = std::to_string(isSwitch ? kReplacement : character);
    for (const char c : "%26%23" + number + "%3B") result += encoder.bytesOf(c);
  }
  return result + encoder.end();
}

}  // namespace

std::string encodeQuery(std::string_view utf8, const Encoding& encoding) {
  // All that do not switch between sets write ASCII as itself, and most queries are nothing else.
  const bool isAscii = std::all_of(utf8.begin(), utf8.end(), [](char c) { return (c & 0x80) == 0; });
  if (isAscii && !hasStates(encoding)) return std::string(utf8);
  switch (encoding.form) {
    case EncodingForm::utf8:
    case EncodingForm::utf16:
      return std::string(utf8);
    case EncodingForm::singleByte:
    case EncodingForm::latin10:
    case EncodingForm::userDefined:
      return encoded(utf8, SingleBytes(encoding));
    case EncodingForm::multiByte:
    case EncodingForm::gbk:
      return encoded(utf8, MultipleBytes(encoding));
  }
  return {};
}

}  // namespace platform
