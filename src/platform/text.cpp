#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include "platform/ascii.h"

namespace platform {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr UChar kReplacementUnit = 0xFFFD;

/// Lengths as ICU counts them. Bodies of pages stay far below this bound.
std::int32_t icuLength(std::string_view text) {
  return static_cast<std::int32_t>(
      std::min<std::size_t>(text.size(), std::numeric_limits<std::int32_t>::max()));
}

/// The length of the ASCII text at the start.
std::size_t asciiLength(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t i = 0;
  for (std::uint64_t word = 0; i + sizeof word <= text.size(); i += sizeof word) {
    std::memcpy(&word, text.data() + i, sizeof word);
    if ((word & kHighBits) != 0) break;
  }
  while (i < text.size() && static_cast<unsigned char>(text[i]) < 0x80) ++i;
  return i;
}

struct Utf8Run {
  std::size_t valid;  // bytes
  std::size_t bad;    // bytes behind them that together are no character; 0 at the end of the text
};

Utf8Run utf8Run(std::string_view text) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  std::size_t i = asciiLength(text);
  while (i < text.size()) {
    const std::size_t start = i;
    UChar32 character = 0;
    U8_NEXT(bytes, i, text.size(), character);
    if (character < 0) return {start, i - start};
    // Most scripts leave ASCII for more than a character at a time, and come back to it seldom.
    if (character < 0x80) i += asciiLength(text.substr(i));
  }
  return {i, 0};
}

std::string replaceBadUtf8(std::string bytes, const std::stop_token& stop = {}) {
  std::string_view rest = bytes;
  Utf8Run run = utf8Run(rest);
  if (run.bad == 0) return bytes;
  std::string result;
  result.reserve(bytes.size() + bytes.size() / 4);
  for (; run.bad != 0; run = utf8Run(rest)) {
    result.append(rest, 0, run.valid).append(kReplacement);
    rest.remove_prefix(run.valid + run.bad);
    if (stop.stop_requested()) return result;
  }
  return result.append(rest);
}

std::string replaceNuls(std::string text) {
  if (text.find('\0') == std::string::npos) return text;
  std::string result;
  for (const char c : text) {
    if (c == '\0') {
      result += kReplacement;
    } else {
      result += c;
    }
  }
  return result;
}

/// Told by ICU of bytes that mean nothing. `euroAt80`: not null when byte 80 is the euro sign nevertheless.
void U_CALLCONV replaceBadBytes(const void* euroAt80, UConverterToUnicodeArgs* out, const char* bytes,
                                std::int32_t length, UConverterCallbackReason reason, UErrorCode* error) {
  if (reason > UCNV_IRREGULAR) return;  // not about bytes
  *error = U_ZERO_ERROR;
  const bool isEuro = euroAt80 != nullptr && length == 1 && bytes[0] == '\x80';
  const UChar unit = isEuro ? 0x20AC : kReplacementUnit;
  ucnv_cbToUWriteUChars(out, &unit, 1, 0, error);
}

/// Piece by piece, so that a stop need not wait for the end of a large page.
icu::UnicodeString convertPieces(UConverter* converter, std::string_view bytes, const std::stop_token& stop) {
  constexpr std::size_t kPiece = 64 * 1024;
  icu::UnicodeString text;
  std::vector<UChar> units(kPiece);
  const char* source = bytes.data();
  const char* const end = bytes.data() + bytes.size();
  UErrorCode error = U_BUFFER_OVERFLOW_ERROR;  // there is more to come
  const char* limit = source;
  while (error == U_BUFFER_OVERFLOW_ERROR || limit < end) {
    if (stop.stop_requested()) return text;
    if (source == limit) limit += std::min(kPiece, static_cast<std::size_t>(end - limit));
    UChar* target = units.data();
    error = U_ZERO_ERROR;
    ucnv_toUnicode(converter, &target, units.data() + units.size(), &source, limit, nullptr, limit == end,
                   &error);
    text.append(units.data(), static_cast<std::int32_t>(target - units.data()));
    if (U_FAILURE(error) && error != U_BUFFER_OVERFLOW_ERROR) return text;
  }
  return text;
}

/// By ICU's converter; nothing but U+FFFD for a converter that this ICU lacks.
icu::UnicodeString convert(std::string_view bytes, const char* converterName, const std::stop_token& stop) {
  UErrorCode error = U_ZERO_ERROR;
  const icu::LocalUConverterPointer converter(ucnv_open(converterName, &error));
  // Windows writes the euro sign so in its character set for Chinese, which pages call GB 2312.
  static constexpr bool kYes = true;
  const bool* euroAt80 = std::string_view(converterName) == "gb18030" ? &kYes : nullptr;
  ucnv_setToUCallBack(converter.getAlias(), replaceBadBytes, euroAt80, nullptr, nullptr, &error);
  if (U_FAILURE(error)) return {kReplacementUnit};
  return convertPieces(converter.getAlias(), bytes, stop);
}

// Latin-10 from A0 on: the only single-byte set that ICU does not have.
constexpr std::u16string_view kLatin10 =
    u"\u00A0ĄąŁ€„Š§š©Ș«Ź\u00ADźŻ°±ČłŽ”¶·žčș»ŒœŸż"
    u"ÀÁÂĂÄĆÆÇÈÉÊËÌÍÎÏĐŃÒÓÔŐÖŚŰÙÚÛÜĘȚß"
    u"àáâăäćæçèéêëìíîïđńòóôőöśűùúûüęțÿ";

void appendUtf8(std::string& out, char16_t unit) {
  const unsigned code = unit;
  if (code >= 0x800) {
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
  } else {
    out += static_cast<char>(0xC0 | code >> 6);
  }
  out += static_cast<char>(0x80 | (code & 0x3F));
}

std::string decodeSingleByte(std::string_view bytes, const std::array<char16_t, 128>& upper) {
  std::string result;
  result.reserve(bytes.size() + bytes.size() / 4);
  for (;;) {
    const std::size_t plain = asciiLength(bytes);
    result.append(bytes, 0, plain);
    if (plain == bytes.size()) return result;
    appendUtf8(result, upper[static_cast<unsigned char>(bytes[plain]) - 0x80u]);
    bytes.remove_prefix(plain + 1);
  }
}

std::string decodeBy(const Encoding& encoding, std::string bytes, const std::stop_token& stop) {
  if (encoding.form == EncodingForm::utf8) return replaceBadUtf8(std::move(bytes), stop);
  if (encoding.form == EncodingForm::utf16 || encoding.form == EncodingForm::multiByte ||
      encoding.form == EncodingForm::gbk) {
    std::string result;
    convert(bytes, encoding.converter, stop).toUTF8String(result);
    return result;
  }
  // All others extend ASCII by a byte for a character.
  if (asciiLength(bytes) == bytes.size()) return bytes;
  return decodeSingleByte(bytes, upperHalf(encoding));
}

}  // namespace

std::array<char16_t, 128> upperHalf(const Encoding& encoding) {
  std::array<char16_t, 128> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (encoding.form == EncodingForm::userDefined) table[i] = static_cast<char16_t>(0xF780 + i);
    if (encoding.form == EncodingForm::latin10)
      table[i] = i < 32 ? static_cast<char16_t>(0x80 + i) : kLatin10[i - 32];
  }
  if (encoding.form != EncodingForm::singleByte) return table;
  std::string bytes(table.size(), '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(0x80 + i);
  const icu::UnicodeString characters = convert(bytes, encoding.converter, {});
  for (std::size_t i = 0; i < table.size(); ++i) {
    table[i] =
        characters.length() == 128 ? characters.charAt(static_cast<std::int32_t>(i)) : kReplacementUnit;
  }
  return table;
}

std::string foldCase(std::string_view utf8) {
  if (asciiLength(utf8) == utf8.size()) return lowerAscii(utf8);
  // ICU would let bad bytes through.
  const std::string text = replaceBadUtf8(std::string(utf8));
  std::string folded;
  folded.reserve(text.size());
  icu::StringByteSink<std::string> sink(&folded);
  UErrorCode error = U_ZERO_ERROR;
  icu::CaseMap::utf8Fold(U_FOLD_CASE_DEFAULT, {text.data(), icuLength(text)}, sink, nullptr, error);
  return folded;
}

std::string decodePage(std::string bytes, std::string_view contentType, std::stop_token stop) {
  const PageEncoding encoding = pageEncoding(bytes, contentType);
  return decodePage(std::move(bytes), encoding, std::move(stop));
}

std::string decodePage(std::string bytes, const PageEncoding& encoding, std::stop_token stop) {
  bytes.erase(0, encoding.markLength);
  return replaceNuls(decodeBy(*encoding.encoding, std::move(bytes), stop));
}

std::string decodeUtf8(std::string bytes) {
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  return replaceBadUtf8(std::move(bytes));
}

std::string mimeType(std::string_view contentType) {
  return lowerAscii(trimmed(contentType.substr(0, contentType.find(';'))));
}

}  // namespace platform
