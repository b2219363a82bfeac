// Which version is the newer one.
#include "update/version.h"

#include <string>

#include <gtest/gtest.h>

namespace update {
namespace {

TEST(CompareVersions, GoesByComponents) {
  const std::string digits(300, '9');
  struct Case {
    const char* name;
    std::string older;
    std::string newer;
  };
  const Case cases[] = {
      {"numbers, not texts", "1.9", "1.10"},
      {"one component more", "2.0", "2.0.1"},
      {"a zero in between", "2.0.1", "2.1"},
      {"zeros in front", "1.009", "1.10"},
      {"more digits than any number has", digits, "1" + std::string(300, '0')},
      {"as many digits", digits + "1", digits + "2"},
      {"a pre-release", "2.0-rc.1", "2.0"},
      {"a pre-release without a separator", "2.0b2", "2.0"},
      {"kinds of pre-releases", "2.0-beta.3", "2.0-rc.1"},
      {"numbered ones", "2.0b9", "2.0b10"},
      {"the first one without a number", "2.0-rc", "2.0-rc.1"},
      {"a pre-release of what comes later", "2.0", "2.0.1-alpha"},
      {"a pre-release of what ends in zeros", "2-rc1", "2.0.0"},
      {"one of a pre-release", "2.0-rc1-alpha", "2.0-rc1"},
      {"of what packages are numbered by", "2.0", "2.0-1"},
      {"nothing", "", "1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_TRUE(compareVersions(c.older, c.newer) < 0);
    EXPECT_TRUE(compareVersions(c.newer, c.older) > 0);
  }
}

TEST(CompareVersions, TakesTheSameInOtherWordsForTheSame) {
  const std::pair<const char*, const char*> cases[] = {
      {"2", "2.0"},        {"2.0.0", "2"},         {"2.0-rc1", "2-rc.1"}, {"2.0RC1", "2.0 rc1"},
      {"v2.1", " 2.1 "},   {"2.1+build.7", "2.1"}, {"2.01", "2.1"},       {"0", ""},
      {"2.0-rc", "2-rc0"}, {"2..1", "2.1"},
  };
  for (const auto& [left, right] : cases) {
    SCOPED_TRACE(left);
    EXPECT_TRUE(compareVersions(left, right) == 0);
    EXPECT_TRUE(compareVersions(right, left) == 0);
  }
}

TEST(IsVersion, WantsADigitFirstAndOneLineToShow) {
  for (const char* version : {"1", "V2.0", " 10.4 beta 2\n"}) EXPECT_TRUE(isVersion(version)) << version;
  for (const std::string& other :
       {std::string(), std::string("v"), std::string("beta 2"), std::string("-1"), std::string("2.0\nbeta"),
        std::string("2.0\xC3\xA4"), std::string(101, '1')})
    EXPECT_FALSE(isVersion(other)) << other;
}

}  // namespace
}  // namespace update
