#include "crawler/repeat_watch.h"

#include <functional>

#include <gtest/gtest.h>

namespace crawler {
namespace {

TEST(RepeatWatch, CountsAddressesThatGrow) {
  struct Case {
    const char* name;
    std::function<std::string(int)> address;
    std::optional<std::string_view> filter;  // nothing: no hint
  };
  const auto times = [](const std::string& text, int count) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
  };
  const Case cases[] = {
      {"fragments of one page", [](int i) { return "http://h/p#" + std::to_string(i); }, "#"},
      {"queries that grow", [&](int i) { return "http://h/list" + times("?x", i); }, "?"},
      {"queries of many pages", [](int i) { return "http://h/" + std::to_string(i) + "?x"; }, std::nullopt},
      {"empty pages side by side", [](int i) { return "http://h/" + std::to_string(i); }, std::nullopt},
      {"a path that repeats itself", [&](int i) { return "http://h/a/" + times("b/", i) + "c.html"; }, ""},
      {"a name that repeats itself", [&](int i) { return "http://h/about" + times("news", i); }, ""},
      {"two folders in any order",
       [&](int i) { return "http://h/" + times(i % 3 == 0 ? "a/" : "b/", i) + "a/b/"; }, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RepeatWatch watch;
    std::optional<EndlessHint> hint;
    for (int i = 0; i < 1'000 && !hint; ++i) {
      // Of many different documents nobody keeps count.
      for (int k = 0; k < 3; ++k) {
        const auto other = static_cast<std::uint64_t>(3 * i + k) * 0x9e3779b97f4a7c15;
        EXPECT_FALSE(watch.visited("http://h/q?" + std::to_string(other), other));
      }
      hint = watch.visited(c.address(i), 42);
    }
    EXPECT_EQ(hint ? std::optional(hint->filter) : std::nullopt, c.filter);
  }
}

}  // namespace
}  // namespace crawler
