#include "crawler/patient_client.h"

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/skipped_time.h"
#include "support/waiting.h"

namespace crawler {
namespace {

using namespace std::chrono_literals;
using platform::FetchFailure;
using platform::HttpAnswer;
using platform::HttpMethod;
using platform::HttpRequest;
using support::SkippedTime;

/// Answers as it is told.
class Server : public platform::HttpClient {
 public:
  explicit Server(std::function<HttpAnswer(const HttpRequest&)> answer) : m_answer(std::move(answer)) {}
  HttpAnswer fetch(const HttpRequest& request, std::stop_token) override { return m_answer(request); }

 private:
  std::function<HttpAnswer(const HttpRequest&)> m_answer;
};

/// What a view is told.
class Ear : public ScanView {
 public:
  std::vector<std::chrono::seconds> heard;

  void waiting(std::chrono::seconds wait) override { heard.push_back(wait); }
};

const HttpAnswer kGood = {.status = 200};
const HttpAnswer kBusy = {.status = 503};
const HttpAnswer kClosed = {.failure = FetchFailure::connectionClosed};
const HttpAnswer kRefused = {.failure = FetchFailure::connectionFailed};

TEST(PatientClient, RepeatsWhatMayDoBetterLater) {
  struct Case {
    const char* name;
    std::vector<HttpAnswer> answers;  // all of them are asked for; the last one counts
    std::vector<std::chrono::milliseconds> waits;
  };
  const Case cases[] = {
      {"unknown name at the start", {{.failure = FetchFailure::nameNotResolved}}, {}},
      {"refused at the start", {kRefused}, {}},
      {"no trust at the start", {{.failure = FetchFailure::tlsFailed}, kGood}, {1s}},
      {"refused later on", {kRefused, kRefused, kRefused}, {1s, 2s}},
      {"silent", {{.failure = FetchFailure::timedOut}, kGood}, {1s}},
      {"too slow, too large", {{.failure = FetchFailure::tookTooLong}}, {}},
      {"missing", {{.status = 404}}, {}},
      {"broken", {{.status = 500}}, {}},
      {"busy for good", {kBusy, kBusy, kBusy, kBusy, kBusy}, {1s, 2s, 4s, 8s}},
      {"tells how long", {{.status = 429, .retryAfter = 7s}, kBusy, kGood}, {7s, 2s}},
      {"asks for a year", {{.status = 503, .retryAfter = 31'536'000s}, {.status = 404}}, {60s}},
      {"trouble of both kinds",
       {kClosed, kBusy, kClosed, kBusy, kBusy, kBusy, kClosed},
       {1s, 1s, 2s, 2s, 4s, 8s}},
  };
  std::vector<HttpAnswer> answers;
  Server server([&](const HttpRequest&) {
    if (answers.empty()) return HttpAnswer{.failure = FetchFailure::other};
    const HttpAnswer answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  });
  SkippedTime time;
  Ear ear;
  PatientClient client(server, time, ear);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    answers = c.answers;
    const HttpAnswer answer = client.fetch({}, {});
    EXPECT_EQ(answer.failure, c.answers.back().failure);
    EXPECT_EQ(answer.status, c.answers.back().status);
    EXPECT_EQ(answers.size(), 0u);
    EXPECT_EQ(time.takeSlept(), c.waits);
  }
  // Of the pauses, and of no other waits.
  EXPECT_THAT(ear.heard, testing::ElementsAre(1s, 2s, 4s, 8s, 7s, 2s, 60s, 1s, 2s, 4s, 8s));
}

TEST(PatientClient, LosesItsPatienceWithAServerThatIsAlwaysBusy) {
  int asked = 0;
  bool isWell = false;
  Server server([&](const HttpRequest& request) {
    ++asked;
    return request.method == HttpMethod::get && isWell ? kGood : kBusy;
  });
  SkippedTime time;
  ScanView view;
  PatientClient client(server, time, view);
  const auto timesAsked = [&](HttpMethod method) {
    asked = 0;
    static_cast<void>(client.fetch({.url = {}, .method = method}, {}));
    return asked;
  };
  for (const int times : {5, 5, 5, 1}) EXPECT_EQ(timesAsked(HttpMethod::get), times);
  isWell = true;
  for (const int times : {5, 5, 5, 1}) {  // some servers refuse every HEAD, which says nothing of their pages
    EXPECT_EQ(timesAsked(HttpMethod::get), 1);
    EXPECT_EQ(timesAsked(HttpMethod::head), times);
  }
  isWell = false;
  EXPECT_EQ(timesAsked(HttpMethod::get), 5);
}

TEST(PatientClient, KeepsItsDelay) {
  Server server([](const HttpRequest&) { return kGood; });
  SkippedTime time;
  ScanView view;
  PatientClient client(server, time, view, 1500ms);
  for (int i = 0; i < 3; ++i) static_cast<void>(client.fetch({}, {}));
  EXPECT_EQ(time.takeSlept(), std::vector(2, 1500ms));
  for (const std::chrono::milliseconds interval : {1000ms, 2000ms}) {
    client.keepInterval(interval);
    static_cast<void>(client.fetch({}, {}));
  }
  EXPECT_EQ(time.takeSlept(), (std::vector{1500ms, 1500ms}));
  static_cast<void>(client.fetch({}, {}));
  EXPECT_EQ(time.takeSlept(), std::vector{2000ms});
}

/// Wakes whoever sleeps next behind all others.
class UnfairTime : public SkippedTime {
 public:
  std::atomic<bool> isUnfair = false;

  void sleepUntil(Time time, const std::stop_token& stop) override {
    for (int i = isUnfair.exchange(false) ? 5000 : 0; i > 0; --i) std::this_thread::yield();
    SkippedTime::sleepUntil(time, stop);
  }
};

TEST(PatientClient, AsksNothingWhileItIsHeld) {
  std::atomic<int> asked = 0;
  Server server([&](const HttpRequest&) {
    ++asked;
    return kGood;
  });
  SkippedTime clock;
  Ear ear;
  PatientClient client(server, clock, ear);
  client.hold(true);
  std::stop_source stop;
  std::thread stopped([&] { EXPECT_EQ(client.fetch({}, stop.get_token()).failure, FetchFailure::stopped); });
  stop.request_stop();
  stopped.join();
  std::thread waiting([&] { EXPECT_EQ(client.fetch({}, {}).status, 200); });
  EXPECT_EQ(asked, 0);
  client.hold(false);
  waiting.join();
  EXPECT_EQ(asked, 1);
}

TEST(PatientClient, KeepsTheTurnOfWhatItRepeats) {
  UnfairTime time;
  std::vector<std::string> asked;
  std::vector<std::jthread> others;
  PatientClient* client = nullptr;
  Server server([&](const HttpRequest& request) {
    asked.push_back(request.url);
    if (asked.size() == 1) return kBusy;  // so that from now on one is asked at a time
    if (asked.size() != 3) return kGood;
    for (int i = 0; i < 8; ++i) {
      others.emplace_back([&] { static_cast<void>(client->fetch({.url = "other"}, {})); });
    }
    time.isUnfair = true;
    return kBusy;
  });
  ScanView view;
  PatientClient patient(server, time, view);
  client = &patient;
  for (const char* url : {"first", "second"}) static_cast<void>(client->fetch({.url = url}, {}));
  others.clear();
  asked.resize(5);
  EXPECT_THAT(asked, testing::ElementsAre("first", "first", "second", "second", "other"));
}

/// Tells that somebody sleeps, whom only a stop can wake.
class EndlessClock : public platform::SteadyClock {
 public:
  std::atomic<bool> isSlept = false;

  void sleepUntil(Time time, const std::stop_token& stop) override {
    isSlept = true;
    SteadyClock::sleepUntil(time + 24h, stop);
  }
};

TEST(PatientClient, EndsItsWaitsAtAStop) {
  for (const HttpAnswer& first : {HttpAnswer{.status = 503, .retryAfter = 1h}, kClosed}) {
    SCOPED_TRACE(first.status);
    std::atomic<int> asked = 0;
    Server server([&](const HttpRequest&) { return ++asked == 1 ? first : kGood; });
    EndlessClock clock;
    ScanView view;
    PatientClient client(server, clock, view);
    std::stop_source stop;
    const auto fetch = [&] { EXPECT_EQ(client.fetch({}, stop.get_token()).failure, FetchFailure::stopped); };
    std::jthread waiting(fetch);
    ASSERT_TRUE(support::comesTrue([&] { return clock.isSlept.load(); }));
    // One more, which waits because of the other.
    std::jthread behind;
    if (first.status == 503) behind = std::jthread(fetch);
    stop.request_stop();
    waiting.join();
    if (behind.joinable()) behind.join();
    EXPECT_EQ(asked, 1);
  }
}

}  // namespace
}  // namespace crawler
