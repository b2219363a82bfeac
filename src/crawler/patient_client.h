// Asks again where a site has trouble, and leaves it alone where it asks for that.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <limits>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <stop_token>

#include "crawler/scan_view.h"
#include "platform/clock.h"
#include "platform/http_client.h"

namespace crawler {

/// The longest that a site is left alone at a time, whatever it asks for: a Retry-After of a year must not
/// hang a scan.
inline constexpr std::chrono::seconds kLongestPause{60};

/// Passes requests on to another client, and repeats those that may do better later; what counts is the last
/// answer.
///
/// - 429 and 503 ask for patience: such a request is repeated up to four times, after what Retry-After says
///   or else after 1, 2, 4 and 8 seconds. Meanwhile nothing else is asked either. Then requests go out one at
///   a time, in the order in which they came, so that none is turned down again and again because of the
///   others; with twenty answers in a row one more at a time is allowed.
/// - A server that was not reached, closed the connection, failed in its TLS handshake or was silent for too
///   long is asked twice more, after 1 and 2 seconds. Where nothing has ever answered, the name is likely to
///   be wrong: one that cannot be resolved, or refuses the connection, is not asked again then.
/// - When three requests in a row were repeated in vain, patience does not help: 429 and 503 count at once
///   until something else is answered. GET and HEAD are counted each by itself, as some servers refuse every
///   HEAD.
///
/// Between the starts of two requests passes at least the `delay`. A redirect belongs to the request that led
/// to it.
///
/// The view is told of every pause that begins or grows by a second. May be used from several threads at
/// once, as the other client is. All that it works with is borrowed.
class PatientClient : public platform::HttpClient {
 public:
  PatientClient(platform::HttpClient& client, platform::Clock& clock, ScanView& view,
                std::chrono::milliseconds delay = {})
      : m_client(client), m_clock(clock), m_view(view), m_delay(delay) {}

  /// A stop also ends every wait at once.
  platform::HttpAnswer fetch(const platform::HttpRequest& request, std::stop_token stop) override;

  /// While it is held no request begins; those that are under way go on. Any thread.
  void hold(bool isHeld);

  /// Never makes the delay shorter.
  void keepInterval(std::chrono::milliseconds interval) override;

 private:
  using Time = platform::Clock::Time;
  using Ticket = std::uint64_t;  // in the order of the requests

  /// A request, and how often it was repeated so far.
  struct Asked {
    Ticket ticket;
    platform::HttpMethod method;
    int busy = 0;
    int failed = 0;
  };

  bool waitForTurn(Ticket ticket, const std::stop_token& stop);
  bool isToBeRepeated(const platform::HttpAnswer& answer, Asked& asked, const std::stop_token& stop);
  bool pauseFor(const platform::HttpAnswer& answer, Asked& asked, std::chrono::seconds& news);
  void noteAnswer(platform::HttpMethod method);
  bool mayRecover(platform::FetchFailure failure) const;

  platform::HttpClient& m_client;
  platform::Clock& m_clock;
  ScanView& m_view;
  std::atomic<Ticket> m_tickets = 0;

  std::mutex m_mutex;  // guards all below
  std::condition_variable_any m_turn;
  std::set<Ticket> m_waiting;  // for their turn; the first is the next
  bool m_isHeld = false;
  int m_running = 0;
  int m_atOnce = std::numeric_limits<int>::max();  // so many may run
  int m_inARow = 0;                                // answered since that last changed
  std::chrono::milliseconds m_delay;
  Time m_pauseEnd;                               // nothing is asked before
  Time m_delayEnd;                               // nor before that
  std::map<platform::HttpMethod, int> m_inVain;  // requests in a row that patience did not help
  bool m_hasAnswered = false;                    // whatever it was
};

}  // namespace crawler
