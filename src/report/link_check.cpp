#include "report/link_check.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "platform/ascii.h"
#include "platform/uri.h"

namespace report {

namespace {

using platform::FetchFailure;
using platform::HttpAnswer;
using platform::HttpMethod;
using platform::HttpRequest;
using Time = platform::Clock::Time;

constexpr std::size_t kThreads = 16;
constexpr int kAtATime = 2;
constexpr int kMostRedirects = 10;
constexpr std::chrono::seconds kApart{1};
constexpr std::chrono::seconds kTimeout{30};

struct Host {
  std::deque<const std::string*> addresses;
  int running = 0;
  Time next{};  // the next request may start then
};

/// Hands out addresses host by host. Any thread.
class Hosts {
 public:
  Hosts(const std::vector<std::string>& addresses, platform::Clock& clock, std::stop_token stop)
      : m_clock(clock), m_stop(std::move(stop)) {
    for (const std::string& address : addresses) hostOf(address).addresses.push_back(&address);
  }

  struct Turn {
    Host* host;
    const std::string* address;
  };

  /// The next address of the host that may be asked soonest. Nothing when none is left, or at a stop.
  std::optional<Turn> take() {
    std::unique_lock lock(m_mutex);
    while (!m_stop.stop_requested()) {
      Host* best = nullptr;
      bool isLeft = false;
      for (auto& [name, host] : m_hosts) {
        if (host.addresses.empty()) continue;
        isLeft = true;
        if (host.running < kAtATime && (best == nullptr || host.next < best->next)) best = &host;
      }
      if (!isLeft) return {};
      if (best != nullptr) {
        ++best->running;
        const Turn turn{best, best->addresses.front()};
        best->addresses.pop_front();
        return turn;
      }
      m_free.wait(lock, m_stop, [&, seen = m_given] { return m_given != seen; });
    }
    return {};
  }

  /// Waits until another request to the address's host may start. False at a stop.
  bool waitForTurn(const std::string& address) {
    Time start;
    {
      const std::lock_guard lock(m_mutex);
      Host& host = hostOf(address);
      start = std::max(host.next, m_clock.now());
      host.next = start + kApart;
    }
    m_clock.sleepUntil(start, m_stop);
    return !m_stop.stop_requested();
  }

  /// The host that most addresses are left of, those under way included; empty when none is.
  std::string slowest() {
    const std::lock_guard lock(m_mutex);
    std::string slowest;
    std::size_t most = 0;
    for (const auto& [name, host] : m_hosts) {
      const std::size_t left = host.addresses.size() + static_cast<std::size_t>(host.running);
      if (left <= most) continue;
      most = left;
      slowest = name;
    }
    return slowest;
  }

  void giveBack(Host& host) {
    {
      const std::lock_guard lock(m_mutex);
      --host.running;
      ++m_given;
    }
    m_free.notify_all();
  }

 private:
  Host& hostOf(const std::string& address) {
    return m_hosts[platform::lowerAscii(platform::splitUri(address).host())];
  }

  platform::Clock& m_clock;
  const std::stop_token m_stop;
  std::mutex m_mutex;  // guards all below
  std::condition_variable_any m_free;
  std::uint64_t m_given = 0;  // turns that were given back
  std::map<std::string, Host> m_hosts;
};

bool isRefusedHead(const HttpAnswer& answer) {
  return answer.failure == FetchFailure::connectionClosed || (answer.status >= 400 && answer.status != 429);
}

std::string reasonOf(const HttpAnswer& answer) {
  if (answer.failure != FetchFailure::none)
    return "0 - " + std::string(platform::failureText(answer.failure));
  return std::to_string(answer.status) + " - " + std::string(platform::reasonPhrase(answer.status));
}

LinkState stateOf(const HttpAnswer& answer, bool hasMoved) {
  if (answer.failure == FetchFailure::privateAddress || answer.status == 403 || answer.status == 429)
    return LinkState::unchecked;
  if (answer.failure != FetchFailure::none || answer.status >= 400) return LinkState::broken;
  return hasMoved ? LinkState::moved : LinkState::fine;
}

}  // namespace

std::string_view nameOf(LinkState state) {
  switch (state) {
    case LinkState::fine:
      return "fine";
    case LinkState::moved:
      return "moved";
    case LinkState::broken:
      return "broken";
    case LinkState::unchecked:
      return "unchecked";
  }
  return "";
}

void LinkCheckRun::run(const std::vector<std::string>& addresses, const std::stop_token& stop) {
  Hosts hosts(addresses, m_clock, stop);
  const auto waitForTurn = [&](const std::string& address) { return hosts.waitForTurn(address); };
  std::mutex telling;
  std::string waitedFor;
  const auto tellWait = [&] {
    std::string host = hosts.slowest();
    if (!m_wait || host.empty() || host == waitedFor) return;
    waitedFor = std::move(host);
    m_wait(waitedFor);
  };
  tellWait();
  const auto work = [&] {
    while (const auto turn = hosts.take()) {
      const LinkCheck checked = check(*turn->address, waitForTurn, stop);
      hosts.giveBack(*turn->host);
      if (stop.stop_requested()) return;
      const std::lock_guard lock(telling);
      m_use(checked);
      tellWait();
    }
  };
  std::vector<std::jthread> threads;
  for (std::size_t i = 0; i < std::min(kThreads, addresses.size()); ++i) threads.emplace_back(work);
}

LinkCheck LinkCheckRun::check(const std::string& address,
                              const std::function<bool(const std::string& address)>& waitForTurn,
                              const std::stop_token& stop) const {
  HttpRequest request{.url = address, .method = HttpMethod::head, .timeout = kTimeout};
  request.wantsBody = [](std::string_view) { return false; };
  request.followsTo = [](std::string_view) { return false; };  // each step has to wait for its turn
  HttpAnswer answer;
  for (int redirects = 0; redirects <= kMostRedirects;) {
    if (!waitForTurn(request.url)) return {};
    answer = m_client.fetch(request, stop);
    if (request.method == HttpMethod::head && isRefusedHead(answer)) {
      request.method = HttpMethod::get;
    } else if (answer.redirectedTo.empty()) {
      break;
    } else {
      request.url = std::exchange(answer, {.failure = FetchFailure::tooManyRedirects}).redirectedTo;
      ++redirects;
    }
  }
  const bool hasMoved = answer.failure == FetchFailure::none && request.url != address;
  return {.address = address,
          .state = stateOf(answer, hasMoved),
          .status = answer.status,
          .reason = reasonOf(answer),
          .movedTo = hasMoved ? request.url : std::string(),
          .certificateEnds = answer.certificateEnds};
}

}  // namespace report
