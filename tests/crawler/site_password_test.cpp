#include "crawler/site_password.h"

#include <gtest/gtest.h>

#include "support/fake_secrets.h"

namespace crawler {
namespace {

using platform::SecretOutcome;

TEST(PasswordKey, NeedsANameAndAServer) {
  const auto key = passwordKey("HTTP://B\xC3\xBC.Test:80/x/", {.httpUser = "me"});
  ASSERT_TRUE(key);
  EXPECT_EQ(key->origin, "http://xn--b-eha.test");
  EXPECT_FALSE(passwordKey("http://h.test/", {}));
  EXPECT_FALSE(passwordKey("mailto:a@h.test", {.httpUser = "me"}));
}

TEST(PasswordKeeper, CountsAtOnceAndWithoutAService) {
  const platform::SecretKey key = {"http://h.test", "me"};
  for (const SecretOutcome service : {SecretOutcome::done, SecretOutcome::unavailable}) {
    SCOPED_TRACE(static_cast<int>(service));
    const bool isThere = service == SecretOutcome::done;
    support::FakeSecrets secrets;
    secrets.kept[key] = "old";
    secrets.refusal.outcome = service;
    PasswordKeeper keeper(secrets);
    EXPECT_EQ(keeper.lookUp(key, {}).secret, isThere ? "old" : "");
    EXPECT_EQ(keeper.presence(key, {}).isKnown(), isThere);
    keeper.set(key, "new");
    EXPECT_EQ(keeper.lookUp(key, {}).secret, "new");
    EXPECT_TRUE(keeper.presence(key, {}).isKnown());
    EXPECT_EQ(keeper.save(key, {}).outcome, service);
    EXPECT_EQ(secrets.kept[key], isThere ? "new" : "old");
    keeper.set(key, {});
    EXPECT_EQ(keeper.lookUp(key, {}).outcome, SecretOutcome::missing);
    EXPECT_FALSE(keeper.presence(key, {}).isKnown());
    EXPECT_EQ(keeper.save(key, {}).outcome, service);
    EXPECT_EQ(secrets.kept.contains(key), !isThere);
  }
}

TEST(SitePassword, IsAskedForOnce) {
  int asked = 0;
  SitePassword password([&](const std::stop_token&) {
    ++asked;
    return platform::SecretAnswer{SecretOutcome::locked, "", "locked"};
  });
  EXPECT_EQ(password.problem(), "");
  EXPECT_FALSE(password.get({}) || password.get({}));
  EXPECT_EQ(password.problem(), "locked");
  EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace crawler
