#include "report/link_check.h"

#include <algorithm>
#include <map>
#include <mutex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/private_address.h"
#include "report/page_resources.h"
#include "support/skipped_time.h"

namespace report {
namespace {

using platform::FetchFailure;
using platform::HttpAnswer;
using platform::HttpMethod;
using platform::HttpRequest;
using testing::ElementsAre;

/// Answers by address, GET apart where it is given; notes who was asked when.
class Servers : public platform::HttpClient {
 public:
  Servers(const platform::Clock& clock, std::map<std::string, HttpAnswer> answers)
      : m_clock(clock), m_answers(std::move(answers)) {}

  HttpAnswer fetch(const HttpRequest& request, std::stop_token) override {
    const std::lock_guard lock(m_mutex);
    const std::string get = request.method == HttpMethod::get ? "GET " : "";
    asked.push_back({get + request.url, m_clock.now()});
    EXPECT_FALSE(request.followsTo("http://x.test/"));
    const auto answer =
        m_answers.contains(get + request.url) ? m_answers.at(get + request.url) : m_answers.at(request.url);
    return answer;
  }

  std::vector<std::pair<std::string, platform::Clock::Time>> asked;

 private:
  const platform::Clock& m_clock;
  std::mutex m_mutex;
  const std::map<std::string, HttpAnswer> m_answers;
};

TEST(LinkCheck, TellsWhatBecameOfAnAddress) {
  const HttpAnswer toB{.status = 302, .redirectedTo = "http://b.test/"};
  struct Case {
    const char* name;
    std::map<std::string, HttpAnswer> answers;  // the address asked is http://a.test/
    LinkState state;
    const char* reason;
    const char* movedTo;
    std::size_t requests;
  };
  const std::string a = "http://a.test/";
  const Case cases[] = {
      {"fine", {{a, {.status = 200}}}, LinkState::fine, "200 - OK", "", 1},
      {"HEAD refused",
       {{a, {.status = 405}}, {"GET " + a, {.status = 200}}},
       LinkState::fine,
       "200 - OK",
       "",
       2},
      {"HEAD unanswered",
       {{a, {.failure = FetchFailure::connectionClosed}}, {"GET " + a, {.status = 204}}},
       LinkState::fine,
       "204 - No Content",
       "",
       2},
      {"gone", {{a, {.status = 404}}}, LinkState::broken, "404 - Not Found", "", 2},
      {"no host",
       {{a, {.failure = FetchFailure::nameNotResolved}}},
       LinkState::broken,
       "0 - The host name could not be resolved",
       "",
       1},
      {"busy", {{a, {.status = 429}}}, LinkState::unchecked, "429 - Too Many Requests", "", 1},
      {"forbidden", {{a, {.status = 403}}}, LinkState::unchecked, "403 - Forbidden", "", 2},
      {"private",
       {{a, {.failure = FetchFailure::privateAddress}}},
       LinkState::unchecked,
       "0 - The address is a private one",
       "",
       1},
      {"moved",
       {{a, toB}, {"http://b.test/", {.status = 200}}},
       LinkState::moved,
       "200 - OK",
       "http://b.test/",
       2},
      {"moved to nothing",
       {{a, toB}, {"http://b.test/", {.status = 410}}},
       LinkState::broken,
       "410 - Gone",
       "http://b.test/",
       3},
      {"in a circle",
       {{a, {.status = 301, .redirectedTo = a}}},
       LinkState::broken,
       "0 - Too many redirects",
       "",
       11},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    support::SkippedTime clock;
    Servers servers(clock, each.answers);
    std::vector<LinkCheck> checks;
    LinkCheckRun(servers, clock, [&](const LinkCheck& check) { checks.push_back(check); }).run({a}, {});
    ASSERT_EQ(checks.size(), 1u);
    EXPECT_EQ(checks[0].state, each.state);
    EXPECT_EQ(checks[0].reason, each.reason);
    EXPECT_EQ(checks[0].movedTo, each.movedTo);
    EXPECT_EQ(servers.asked.size(), each.requests);
  }
}

TEST(LinkCheck, AsksEachAddressOnceAndAHostOnceASecond) {
  support::SkippedTime clock;
  std::map<std::string, HttpAnswer> answers;
  std::vector<std::string> addresses;
  for (int i = 0; i < 60; ++i) {
    addresses.push_back("http://" + std::string(i % 2 == 0 ? "a" : "B") + ".test/" + std::to_string(i));
    answers[addresses.back()] = {.status = i % 3 == 0 ? 301 : 200,
                                 .redirectedTo = i % 3 == 0 ? "http://a.test/1" : ""};
  }
  answers["http://a.test/1"] = {.status = 200};
  Servers servers(clock, answers);
  std::size_t told = 0;
  std::vector<std::string> waits;
  LinkCheckRun(
      servers, clock, [&](const LinkCheck&) { ++told; },
      [&](const std::string& host) { waits.push_back(host); })
      .run(addresses, {});
  EXPECT_EQ(told, 60u);
  EXPECT_EQ(waits.at(0), "a.test");
  std::map<std::string, int> times;
  std::map<std::string, std::vector<platform::Clock::Time>> hosts;
  for (const auto& [address, time] : servers.asked) {
    ++times[address];
    hosts[address.substr(0, 8)].push_back(time);
  }
  for (const std::string& address : addresses) EXPECT_EQ(times[address], 1) << address;
  for (auto& [host, all] : hosts) {
    // Two threads may note a request in another order than they began it, but not more of them in a second.
    std::sort(all.begin(), all.end());
    EXPECT_GE(all.back() - all.front(), std::chrono::seconds(all.size() / 2)) << host;
  }
}

TEST(LinkCheck, EndsAtAStop) {
  support::SkippedTime clock;
  std::stop_source stop;
  Servers servers(clock, {{"http://a.test/", {.status = 200}}});
  stop.request_stop();
  LinkCheckRun(servers, clock, [&](const LinkCheck&) { FAIL(); }).run({"http://a.test/"}, stop.get_token());
  EXPECT_TRUE(servers.asked.empty());
}

TEST(PrivateAddress, IsToldFromAPublicOne) {
  for (const char* address :
       {"127.0.0.1", "10.1.2.3", "172.16.0.1", "172.31.255.255", "192.168.1.1", "169.254.1.1", "100.64.0.1",
        "0.0.0.0", "::1", "::", "fe80::1", "fc00::1", "fd12::1", "::ffff:10.0.0.1"}) {
    EXPECT_TRUE(platform::isPrivateAddress(address)) << address;
  }
  for (const char* address : {"8.8.8.8", "172.32.0.1", "172.15.0.1", "100.128.0.1", "2001:db8::1",
                              "::ffff:8.8.8.8", "a.test", ""}) {
    EXPECT_FALSE(platform::isPrivateAddress(address)) << address;
  }
}

TEST(PageResources, AreImagesStylesIconsAndScripts) {
  EXPECT_THAT(pageResources(
                  "<base href='/b/'><img src=i.png#x><img src=''><link rel='Alternate StyleSheet' href=s.css>"
                  "<link rel='shortcut icon' href=//h.test/i.ico><link rel=next href=n.html>"
                  "<script src='j.js?a&amp;b'></script><script>'<img src=no.png>'</script>"
                  "<img src='data:image/png,x'>",
                  "http://a.test/p.html"),
              ElementsAre("http://a.test/b/i.png", "http://a.test/b/s.css", "http://h.test/i.ico",
                          "http://a.test/b/j.js?a&b"));
}

}  // namespace
}  // namespace report
