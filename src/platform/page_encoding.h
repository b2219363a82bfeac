// Which character set a page is written in, found out as browsers do (WHATWG Encoding).
#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// How bytes become characters.
enum class EncodingForm {
  utf8,
  utf16,
  singleByte,   // extends ASCII by a byte for a character
  latin10,      // likewise; the only one that ICU does not have
  userDefined,  // likewise; the private characters F780 to F7FF
  multiByte,
  gbk,  // read as GB 18030; written with two bytes for a character at most
};

struct Encoding {
  EncodingForm form;
  const char* converter;    // its name in ICU, null where ICU has none
  std::string_view labels;  // each between two blanks
};

/// The encoding that browsers know by this label, in any case; null for an unknown label.
const Encoding* encodingLabelled(std::string_view label);

struct PageEncoding {
  const Encoding* encoding;    // never null
  std::size_t markLength = 0;  // bytes of the byte-order mark
};

/// By the byte-order mark, else the charset of the Content-Type header, else a declaration in the first 1024
/// bytes, else a meta element in the rest of the head (64 KB at most), else windows-1252.
PageEncoding pageEncoding(std::string_view bytes, std::string_view contentType);

}  // namespace platform
