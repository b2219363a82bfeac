// The tokens of a document: the first byte tells what it begins with.
#include "web/html_tokens.h"

#include <vector>

#include "fuzz_target.h"
#include "web/attributes.h"

namespace {

using fuzz::require;
using web::Token;
using web::TokenKind;

std::vector<Token> tokensOf(std::string_view text, web::Content content, bool cdata) {
  web::Tokenizer tokenizer(text);
  tokenizer.allowCdata(cdata);
  tokenizer.readContent(content, "script");
  std::vector<Token> tokens;
  while (tokens.size() <= text.size()) {
    tokens.push_back(tokenizer.next());
    if (tokens.back().kind == TokenKind::end) return tokens;
  }
  require(false, "there are no more tokens than letters");
  return tokens;
}

/// What the token means, and that it stands in the text behind `from`. Returns where it ends.
const char* readToken(const Token& token, const char* from, std::string_view text) {
  const char* end = from;
  const auto take = [&](std::string_view range) {
    require(range.data() >= end && range.data() + range.size() <= text.data() + text.size(),
            "ranges stand in the text, one behind the other");
    end = range.data() + range.size();
  };
  std::string meaning;
  if (!token.name.empty()) {
    take(token.name);
    web::appendName(meaning, token.name);
    for (const web::Attribute& each : web::attributesOf(token.written)) {
      const char* const attributeEnd = each.name.data() + each.name.size();
      require(!each.name.empty() && each.name.data() >= end,
              "attributes have names and stand behind the tag's");
      require(each.value.empty() || each.value.data() > attributeEnd, "values stand behind their names");
      web::appendName(meaning, each.name);
      web::appendAttributeValue(meaning, each.value);
    }
  }
  take(token.written);
  if (token.kind == TokenKind::text) {
    require(!token.written.empty(), "texts are not empty");
    web::appendText(meaning, token.written, token.form);
  }
  require(meaning.size() <= 3 * token.written.size() + 3 * token.name.size(), "nothing grows without bound");
  require(!fuzz::isUtf8(text) || fuzz::isUtf8(meaning), "what comes out is valid UTF-8");
  require(meaning.find('\r') == std::string::npos || text.find("&#") != std::string_view::npos,
          "line ends are one letter");
  return end;
}

}  // namespace

void fuzz::tryInput(std::string_view input) {
  if (input.empty()) return;
  const auto first = static_cast<unsigned char>(input.front());
  const auto content = static_cast<web::Content>(first % 6);
  const bool cdata = (first & 0x40) != 0;
  const std::string_view text = input.substr(1);
  const std::vector<Token> tokens = tokensOf(text, content, cdata);
  const char* at = text.data();
  for (const Token& token : tokens) {
    if (token.kind != TokenKind::end) at = readToken(token, at, text);
  }
}
