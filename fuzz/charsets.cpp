// A page's bytes as text. Input: a Content-Type header, then the page's bytes.
#include <algorithm>
#include <string>

#include "fuzz_target.h"
#include "platform/text.h"

namespace {

using fuzz::require;

bool hasMark(std::string_view bytes) {
  return bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE");
}

std::size_t characters(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

void checkPage(const std::string& bytes, std::string_view contentType) {
  const std::string page = platform::decodePage(bytes, contentType);
  require(fuzz::isUtf8(page), "a page is valid UTF-8");
  require(page.find('\0') == std::string::npos, "a page holds no U+0000");

  if (hasMark(bytes)) {
    require(page == platform::decodePage(bytes, ""), "a byte-order mark outweighs the header");
    return;
  }
  for (const char* const header : {"text/html; charset=iso-8859-1", "text/html; charset=koi8-r"}) {
    require(characters(platform::decodePage(bytes, header)) == bytes.size(),
            "single-byte sets have a character for each byte");
  }
}

void checkUtf8(const std::string& bytes) {
  const std::string text = platform::decodeUtf8(bytes);
  require(fuzz::isUtf8(text), "decoded text is valid UTF-8");
  if (fuzz::isUtf8(bytes) && !hasMark(bytes)) require(text == bytes, "valid text stays as it is");
  if (!hasMark(text)) require(platform::decodeUtf8(text) == text, "what was decoded once is decoded");
}

void checkFolding(const std::string& bytes) {
  const std::string folded = platform::foldCase(bytes);
  require(fuzz::isUtf8(folded), "folded text is valid UTF-8");
  require(platform::foldCase(folded) == folded, "what was folded once is folded");
  // Folding looks at one character after the other, so that a part of a text folds to a part of the folded
  // text.
  const std::string text = platform::decodeUtf8(bytes);
  require(platform::foldCase(text + "Q" + text) == platform::foldCase(text) + "q" + platform::foldCase(text),
          "text folds piece by piece");
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string_view contentType = fuzz::takeLine(rest);
  const std::string bytes(rest);
  checkPage(bytes, contentType);
  checkUtf8(bytes);
  checkFolding(bytes);
}
