// The tokens of the public cases (html5lib-tests, folder "tokenizer"), which the program's own tests do
// without: VESKEL_TOKENIZER_CASES names the folder that holds them.
#include "web/html_tokens.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "web/attributes.h"

namespace web {
namespace {

using nlohmann::json;

template <typename Append, typename... Arguments>
std::string read(Append append, Arguments... arguments) {
  std::string text;
  append(text, arguments...);
  return text;
}

json asJson(const Token& token) {
  switch (token.kind) {
    case TokenKind::text:
      return {"Character", read(appendText, token.written, token.form)};
    case TokenKind::comment:
      return {"Comment", read(appendText, token.written, TextForm::rawtext)};
    case TokenKind::endTag:
      return {"EndTag", read(appendName, token.name)};
    case TokenKind::documentType:
      return {"DOCTYPE"};
    default:
      break;
  }
  json attributes = json::object();
  for (const Attribute& each : attributesOf(token.written)) {
    const std::string name = read(appendName, each.name);
    EXPECT_FALSE(attributes.contains(name)) << name;
    attributes[name] = read(appendAttributeValue, each.value);
  }
  json tag = {"StartTag", read(appendName, token.name), attributes};
  if (token.selfClosing) tag.push_back(true);
  return tag;
}

/// Neighbouring texts are one token in the cases.
json tokensOf(Tokenizer tokenizer) {
  json tokens = json::array();
  for (Token token; (token = tokenizer.next()).kind != TokenKind::end;) {
    json next = asJson(token);
    if (next[0] == "Character" && !tokens.empty() && tokens.back()[0] == "Character") {
      tokens.back()[1] = tokens.back()[1].get<std::string>() + next[1].get<std::string>();
    } else {
      tokens.push_back(std::move(next));
    }
  }
  return tokens;
}

/// Some cases write characters that are hard to see as "\u" and four digits once more. Null for halves of a
/// pair that stand alone, which no page holds.
json unescaped(const json& each) {
  if (!each.value("doubleEscaped", false)) return each;
  const json plain =
      json::parse(std::regex_replace(each.dump(), std::regex(R"(\\\\u)"), "\\u"), nullptr, false);
  return plain.is_discarded() ? json() : plain;
}

const std::map<std::string, Content> kStates = {
    {"Data state", Content::markup},         {"RCDATA state", Content::rcdata},
    {"RAWTEXT state", Content::rawtext},     {"Script data state", Content::script},
    {"PLAINTEXT state", Content::plaintext}, {"CDATA section state", Content::cdataSection}};

/// How many cases there were.
int tryCase(const json& written) {
  const json each = unescaped(written);
  if (each.is_null()) return 0;
  const auto input = each["input"].get<std::string>();
  json expected = each["output"];
  for (json& token : expected) {
    if (token[0] == "DOCTYPE") token = {"DOCTYPE"};  // where one ends counts here, not what it means
  }
  int tried = 0;
  for (const std::string& state : each.value("initialStates", std::vector<std::string>{"Data state"})) {
    SCOPED_TRACE(each["description"].get<std::string>() + ", " + state);
    const std::string name = each.value("lastStartTag", std::string());
    Tokenizer tokenizer(input);
    tokenizer.readContent(kStates.at(state), name);
    EXPECT_EQ(tokensOf(tokenizer), expected) << input;
    ++tried;
  }
  return tried;
}

TEST(HtmlTokens, AreThoseOfThePublicCases) {
  const char* folder = std::getenv("VESKEL_TOKENIZER_CASES");
  if (folder == nullptr)
    GTEST_SKIP() << "VESKEL_TOKENIZER_CASES does not name the folder of the public cases";
  int tried = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".test") continue;
    SCOPED_TRACE(entry.path().filename());
    std::ifstream file(entry.path());
    // Those of the one file that has another list are about documents that become XML.
    for (const json& each : json::parse(file).value("tests", json::array())) tried += tryCase(each);
  }
  RecordProperty("tried", tried);
  EXPECT_GT(tried, 0) << folder;
}

}  // namespace
}  // namespace web
