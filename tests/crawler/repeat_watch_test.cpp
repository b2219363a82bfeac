#include "crawler/repeat_watch.h"

#include <functional>

#include <gtest/gtest.h>

#include "support/repeated.h"

namespace crawler {
namespace {

using support::repeated;

TEST(RepeatWatch, CountsAddressesThatGrow) {
  struct Case {
    const char* name;
    std::function<std::string(std::size_t)> address;
    std::optional<std::string_view> filter;  // nothing: no hint
  };
  const Case cases[] = {
      {"fragments of one page", [](std::size_t i) { return "http://h/p#" + std::to_string(i); }, "#"},
      {"queries that grow", [](std::size_t i) { return "http://h/list" + repeated("?x", i); }, "?"},
      {"queries of many pages", [](std::size_t i) { return "http://h/" + std::to_string(i) + "?x"; },
       std::nullopt},
      {"empty pages side by side", [](std::size_t i) { return "http://h/page" + std::to_string(i); },
       std::nullopt},
      {"a path that repeats itself",
       [](std::size_t i) { return "http://h/a/" + repeated("b/", i) + "c.html"; }, ""},
      {"a name that repeats itself", [](std::size_t i) { return "http://h/about" + repeated("news", i); },
       ""},
      {"two folders in any order",
       [](std::size_t i) { return "http://h/" + repeated(i % 3 == 0 ? "a/" : "b/", i) + "a/b/"; }, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RepeatWatch watch;
    std::optional<EndlessHint> hint;
    for (std::size_t i = 0; i < 1'000 && !hint; ++i) {
      // Of many different documents nobody keeps count.
      for (std::size_t k = 0; k < 3; ++k) {
        const std::uint64_t other = (3 * i + k) * 0x9e3779b97f4a7c15;
        EXPECT_FALSE(watch.visited("http://h/q?" + std::to_string(other), other));
      }
      hint = watch.visited(c.address(i), 42);
    }
    EXPECT_EQ(hint ? std::optional(hint->filter) : std::nullopt, c.filter);
  }
}

}  // namespace
}  // namespace crawler
