#include "crawler/repeat_watch.h"

namespace crawler {

namespace {

constexpr std::size_t kSlots = 1024;
constexpr int kSuspicious = 200;

/// Addresses that grow do so behind a fragment or a query, since those stay part of the page's own base.
std::string_view helpfulFilter(std::string_view url) {
  if (url.find('#') != std::string_view::npos) return "#";
  if (url.find('?') != std::string_view::npos) return "?";
  return {};
}

}  // namespace

std::string EndlessHint::text() const {
  return "This scan may not end: " + std::to_string(addresses) + " addresses gave the same page as " + url;
}

RepeatWatch::RepeatWatch() : m_slots(kSlots) {}

std::optional<EndlessHint> RepeatWatch::visited(std::string_view url, std::uint64_t fingerprint) {
  if (m_told) return std::nullopt;
  Slot& slot = m_slots[fingerprint % kSlots];
  if (slot.count > 0 && slot.fingerprint != fingerprint) {
    --slot.count;
    return std::nullopt;
  }
  if (slot.count == 0) {
    slot.fingerprint = fingerprint;
    slot.firstUrl = url;
  }
  if (++slot.count < kSuspicious) return std::nullopt;
  m_told = true;
  return EndlessHint{slot.count, slot.firstUrl, helpfulFilter(url)};
}

}  // namespace crawler
