#include "crawler/patient_client.h"

#include <algorithm>
#include <new>

namespace crawler {

namespace {

using platform::FetchFailure;
using platform::HttpAnswer;
using platform::HttpMethod;
using platform::HttpRequest;

constexpr int kBusyRepeats = 4;
constexpr int kFailureRepeats = 2;
constexpr int kInVainBelieved = 3;
constexpr int kAnswersForOneMore = 20;

bool asksForPatience(const HttpAnswer& answer) {
  return answer.status == 429 || answer.status == 503;
}

/// 1, 2, 4, 8 seconds.
std::chrono::seconds pauseBefore(int repeat) {
  return std::chrono::seconds(1 << repeat);
}

}  // namespace

HttpAnswer PatientClient::fetch(const HttpRequest& request, std::stop_token stop) {
  Asked asked{.ticket = m_tickets++, .method = request.method};
  try {
    while (waitForTurn(asked.ticket, stop)) {
      HttpAnswer answer = m_client.fetch(request, stop);
      if (!isToBeRepeated(answer, asked, stop)) return answer;
    }
    return {.failure = FetchFailure::stopped};
  } catch (const std::bad_alloc&) {  // between two turns
    {
      const std::lock_guard lock(m_mutex);
      m_waiting.erase(asked.ticket);
    }
    m_turn.notify_all();
    return {.failure = FetchFailure::tooLarge};
  }
}

void PatientClient::hold(bool isHeld) {
  {
    const std::lock_guard lock(m_mutex);
    m_isHeld = isHeld;
  }
  m_turn.notify_all();
}

void PatientClient::keepInterval(std::chrono::milliseconds interval) {
  const std::lock_guard lock(m_mutex);
  m_delay = std::max(m_delay, interval);
}

/// False when a stop came first.
bool PatientClient::waitForTurn(Ticket ticket, const std::stop_token& stop) {
  std::unique_lock lock(m_mutex);
  const auto place = m_waiting.insert(ticket).first;
  const auto isNext = [&] { return !m_isHeld && m_waiting.begin() == place && m_running < m_atOnce; };
  bool mayGo = false;
  while (m_turn.wait(lock, stop, isNext) && !stop.stop_requested()) {
    const Time start = std::max(m_pauseEnd, m_delayEnd);
    mayGo = m_clock.now() >= start;
    if (mayGo) break;
    lock.unlock();
    m_clock.sleepUntil(start, stop);
    lock.lock();
  }
  m_waiting.erase(place);
  if (mayGo) {
    ++m_running;
    m_delayEnd = m_clock.now() + m_delay;
  }
  const bool othersWait = !m_waiting.empty();
  lock.unlock();
  if (othersWait) m_turn.notify_all();
  return mayGo;
}

/// Draws the conclusions from an answer, for the request and for all others. When it says that the request is
/// to be repeated, its own wait is over.
bool PatientClient::isToBeRepeated(const HttpAnswer& answer, Asked& asked, const std::stop_token& stop) {
  std::unique_lock lock(m_mutex);
  --m_running;
  bool again = false;
  std::chrono::seconds news{0};
  const bool isFailure = answer.failure != FetchFailure::none;
  if (asksForPatience(answer)) {
    again = pauseFor(answer, asked, news);
    // At once, or one that came later might take the turn.
    if (again) m_waiting.insert(asked.ticket);
  } else if (isFailure) {
    again = mayRecover(answer.failure) && asked.failed < kFailureRepeats;
  } else {
    noteAnswer(asked.method);
  }
  m_hasAnswered = m_hasAnswered || !isFailure;
  lock.unlock();
  m_turn.notify_all();
  if (news.count() > 0) m_view.waiting(news);
  // Others go on meanwhile: it may be this page alone.
  if (again && isFailure) m_clock.sleepUntil(m_clock.now() + pauseBefore(asked.failed++), stop);
  return again;
}

/// Whether the server is left alone, and asked once more behind that. `news` is how long, if that is worth
/// telling.
bool PatientClient::pauseFor(const HttpAnswer& answer, Asked& asked, std::chrono::seconds& news) {
  int& inVain = m_inVain[asked.method];
  if (inVain == kInVainBelieved) return false;
  m_atOnce = 1;
  m_inARow = 0;
  if (asked.busy == kBusyRepeats) {
    ++inVain;
    return false;
  }
  const bool isTold = answer.retryAfter.count() > 0;
  const auto pause = std::min(isTold ? answer.retryAfter : pauseBefore(asked.busy), kLongestPause);
  const Time now = m_clock.now();
  const Time end = now + pause;
  // Answers that were under way together all say the same.
  if (m_pauseEnd <= now || end >= m_pauseEnd + std::chrono::seconds(1)) news = pause;
  m_pauseEnd = std::max(m_pauseEnd, end);
  ++asked.busy;
  return true;
}

void PatientClient::noteAnswer(HttpMethod method) {
  m_inVain[method] = 0;
  if (m_atOnce == std::numeric_limits<int>::max() || ++m_inARow < kAnswersForOneMore) return;
  ++m_atOnce;
  m_inARow = 0;
}

bool PatientClient::mayRecover(FetchFailure failure) const {
  switch (failure) {
    case FetchFailure::nameNotResolved:
    case FetchFailure::connectionFailed:
      return m_hasAnswered;
    case FetchFailure::tlsFailed:
    case FetchFailure::timedOut:
    case FetchFailure::connectionClosed:
      return true;
    default:
      return false;
  }
}

}  // namespace crawler
