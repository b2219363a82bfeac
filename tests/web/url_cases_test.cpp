// The public cases for addresses (web-platform-tests, folder "url/resources"), which the program's own tests
// do without: VESKEL_URL_CASES names the folder that holds them.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "platform/page_encoding.h"
#include "web/url.h"

namespace web {
namespace {

using nlohmann::json;

/// As scripts see it.
json asJson(const Url& url) {
  const auto withMark = [](const char* mark, std::optional<std::string_view> part) {
    return part && !part->empty() ? mark + std::string(*part) : std::string();
  };
  const std::string port = url.port() ? std::to_string(*url.port()) : "";
  const std::string host(url.host().value_or(""));
  return {{"href", url.href()},
          {"protocol", std::string(url.schemeName()) + ":"},
          {"username", std::string(url.username())},
          {"password", std::string(url.password())},
          {"host", port.empty() ? host : host + ":" + port},
          {"hostname", host},
          {"port", port},
          {"pathname", std::string(url.path())},
          {"search", withMark("?", url.query())},
          {"hash", withMark("#", url.fragment())}};
}

class UrlCases : public testing::Test {
 protected:
  void SetUp() override {
    if (std::getenv("VESKEL_URL_CASES") == nullptr)
      GTEST_SKIP() << "VESKEL_URL_CASES does not name the folder of the public cases";
  }

  /// Some entries of a file are remarks.
  void tryEach(const char* fileName, const std::function<void(const json&)>& tryCase) {
    const auto path = std::filesystem::path(std::getenv("VESKEL_URL_CASES")) / fileName;
    std::ifstream file(path);
    int tried = 0;
    for (const json& each : json::parse(file, nullptr, false)) {
      if (!each.is_object()) continue;
      SCOPED_TRACE(each.dump());
      tryCase(each);
      ++tried;
    }
    RecordProperty("tried", tried);
    EXPECT_GT(tried, 0) << path;
  }
};

TEST_F(UrlCases, AreReadSo) {
  tryEach("urltestdata.json", [](const json& each) {
    std::optional<Url> base;
    if (!each["base"].is_null()) base = parseUrl(each["base"].get<std::string>());
    std::optional<Url> url;
    if (base || each["base"].is_null())
      url = parseUrl(each["input"].get<std::string>(), base ? &*base : nullptr);
    EXPECT_EQ(url.has_value(), !each.contains("failure"));
    if (!url || each.contains("failure")) return;
    const json parts = asJson(*url);
    for (const auto& [name, part] : parts.items()) EXPECT_EQ(part, each[name]) << name;
    EXPECT_EQ(parts, asJson(parseUrl(url->href()).value_or(Url())));
  });
}

TEST_F(UrlCases, HaveDomainsInAscii) {
  tryEach("toascii.json", [](const json& each) {
    const std::optional<Url> url = parseUrl("https://" + each["input"].get<std::string>() + "/x");
    EXPECT_EQ(url ? json(*url->host()) : json(), each["output"]);
  });
}

TEST_F(UrlCases, HaveQueriesInTheEncodingOfThePage) {
  tryEach("percent-encoding.json", [](const json& each) {
    const std::string input = each["input"];
    for (const auto& [label, output] : each["output"].items()) {
      const platform::PageEncoding page = platform::pageEncoding("", "text/html; charset=" + label);
      const std::optional<Url> url =
          parseUrl("http://h.test/?" + input + "#" + input, nullptr, page.encoding);
      ASSERT_TRUE(url);
      EXPECT_EQ(*url->query(), output.get<std::string>()) << label;
      EXPECT_EQ(*url->fragment(), each["output"]["utf-8"].get<std::string>());
    }
  });
}

}  // namespace
}  // namespace web
