// Asks the addresses outside of a site whether they are still there.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <numeric>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/http_client.h"

namespace report {

enum class LinkState {
  fine,
  moved,      // answered at another address
  broken,     // status 400 or above, or no answer
  unchecked,  // the server would not say: 403, 429, or a private address
};

/// What became of an address.
struct LinkCheck {
  std::string address = {};
  LinkState state = LinkState::fine;
  int status = 0;                           // 0 when no answer came
  std::string reason = {};                  // "404 - Not Found", whatever the state
  std::string movedTo = {};                 // where it answered, if not there
  std::chrono::seconds certificateEnds{0};  // since 1970-01-01 UTC; 0 when not told
  std::string foundOn = {};  // of an image, style or script, the first page that names it; empty for links
};

/// How many addresses are in each state.
class CheckCounts {
 public:
  void add(LinkState state) { ++m_counts[static_cast<std::size_t>(state)]; }
  std::size_t of(LinkState state) const { return m_counts[static_cast<std::size_t>(state)]; }
  std::size_t all() const { return std::accumulate(m_counts.begin(), m_counts.end(), std::size_t{0}); }

 private:
  std::array<std::size_t, 4> m_counts{};
};

/// The name of a state in files: "fine", "moved", "broken", "unchecked".
std::string_view nameOf(LinkState state);

/// A certificate that ends within this time is worth telling.
inline constexpr std::chrono::seconds kCertificateNotice = std::chrono::hours(14 * 24);

/// Two requests at a time go to a host, at most, and their starts are a second apart; hosts do not wait for
/// each other. Each address is asked once: with HEAD, and where that is refused with GET, whose body is not
/// read. Redirects are followed, ten at most; each step is a request like any other.
class LinkCheckRun {
 public:
  /// Called for each address that was asked, one at a time, on any thread.
  using Use = std::function<void(const LinkCheck& check)>;

  /// Called likewise with the host that most addresses are left of, since the run waits for that one: before
  /// the first address, and whenever it is another one.
  using Wait = std::function<void(const std::string& host)>;

  /// What is borrowed outlives the run.
  LinkCheckRun(platform::HttpClient& client, platform::Clock& clock, Use use, Wait wait = {})
      : m_client(client), m_clock(clock), m_use(std::move(use)), m_wait(std::move(wait)) {}

  /// Blocks until all are asked, or a stop: then those under way are not told.
  void run(const std::vector<std::string>& addresses, const std::stop_token& stop);

 private:
  LinkCheck check(const std::string& address,
                  const std::function<bool(const std::string& address)>& waitForTurn,
                  const std::stop_token& stop) const;

  platform::HttpClient& m_client;
  platform::Clock& m_clock;
  Use m_use;
  Wait m_wait;
};

}  // namespace report
