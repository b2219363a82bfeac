#include "platform/phrases.h"

#include <array>
#include <cstdio>
#include <ctime>

#include "platform/regex.h"

namespace platform {

namespace {

std::string localTime(std::int64_t secondsSince1970, const char* format) {
  const auto time = static_cast<std::time_t>(secondsSince1970);
  std::tm parts{};
  std::array<char, 64> text{};
  if (localtime_r(&time, &parts) == nullptr) return {};
  return {text.data(), std::strftime(text.data(), text.size(), format, &parts)};
}

/// Whatever the locale of the machine is.
class English : public Language {
 public:
  std::string text(const char* english, const char* several, std::int64_t count) const override {
    if (several == nullptr) return english;
    const std::string form = replaceText(count == 1 ? english : several, "%Ln", number(count));
    return replaceText(form, "%n", std::to_string(count));
  }

  std::string number(std::int64_t number) const override {
    std::string text = std::to_string(number);
    const std::size_t first = number < 0 ? 1 : 0;
    for (std::size_t at = text.size(); at > first + 3;) text.insert(at -= 3, ",");
    return text;
  }

  std::string number(double number, int places) const override {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", places, number);
    return text.data();
  }

  std::string date(std::int64_t secondsSince1970) const override {
    return localTime(secondsSince1970, "%Y-%m-%d");
  }

  std::string dateAndTime(std::int64_t secondsSince1970) const override {
    return localTime(secondsSince1970, "%Y-%m-%d %H:%M");
  }
};

const English kEnglish;
const Language* g_language = &kEnglish;

}  // namespace

void Phrases::speak(const Language& language) {
  g_language = &language;
}

const Language& Phrases::language() {
  return *g_language;
}

std::string Phrases::tr(const char* english) {
  return g_language->text(english, nullptr, 0);
}

std::string Phrases::tr(const char* english, std::initializer_list<std::string_view> values) {
  return filled(tr(english), values);
}

std::string Phrases::tr(std::string_view marked) {
  return tr(std::string(marked).c_str());
}

std::string Phrases::tr(const char* one, const char* several, std::int64_t count) {
  return g_language->text(one, several, count);
}

std::string filled(std::string_view text, std::initializer_list<std::string_view> values) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto place =
        text[at] == '%' && at + 1 < text.size() ? static_cast<unsigned>(text[at + 1] - '1') : 9u;
    if (place < values.size()) {
      result += *(values.begin() + place);
      ++at;
    } else {
      result += text[at];
    }
  }
  return result;
}

}  // namespace platform
