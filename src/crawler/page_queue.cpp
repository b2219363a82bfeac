#include "crawler/page_queue.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace crawler {

namespace {

constexpr std::size_t kBlockSize = 64 * 1024;
constexpr std::size_t kFirstSlots = 1024;

std::uint64_t mixIn(std::uint64_t hash, std::string_view text) {
  constexpr std::uint64_t kPrime = 0x100000001b3;  // FNV-1a
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
  return hash;
}

/// FNV leaves the low bits weak; the table uses those.
std::uint64_t finish(std::uint64_t hash) {
  hash ^= hash >> 32;
  hash *= 0x9e3779b97f4a7c15;
  return hash ^ (hash >> 29);
}

bool equalsPieces(std::string_view text, std::string_view first, std::string_view second,
                  std::string_view third) {
  return text.size() == first.size() + second.size() + third.size() && text.starts_with(first) &&
         text.substr(first.size()).starts_with(second) && text.ends_with(third);
}

std::uint64_t randomSeed() {
  std::random_device device;
  return (static_cast<std::uint64_t>(device()) << 32) | device();
}

}  // namespace

PageQueue::PageQueue(std::size_t maxBytes)
    : m_bytesLeft(maxBytes), m_slots(kFirstSlots), m_seed(randomSeed()) {}

Queued PageQueue::append(std::string_view url) {
  if (find(url)) return Queued::before;
  if (url.size() > m_bytesLeft) return Queued::noRoom;
  if ((m_entries.size() + 1) * 2 > m_slots.size()) grow();
  m_entries.push_back(store(url));
  const std::uint64_t hash = hashOf(url, {}, {});
  const std::size_t mask = m_slots.size() - 1;
  std::size_t at = hash & mask;
  while (m_slots[at].entry != 0) at = (at + 1) & mask;
  m_slots[at] = {static_cast<std::uint32_t>(hash >> 32), static_cast<std::uint32_t>(m_entries.size())};
  m_bytesLeft -= url.size();
  return Queued::now;
}

std::optional<std::size_t> PageQueue::find(std::string_view first, std::string_view second,
                                           std::string_view third) const {
  return findHashed(hashOf(first, second, third), first, second, third);
}

bool PageQueue::containsAny(std::string_view first, std::string_view second,
                            std::span<const std::string_view> endings) const {
  const std::uint64_t common = mixIn(mixIn(m_seed, first), second);
  return std::any_of(endings.begin(), endings.end(), [&](std::string_view ending) {
    return findHashed(finish(mixIn(common, ending)), first, second, ending).has_value();
  });
}

std::optional<std::size_t> PageQueue::findHashed(std::uint64_t hash, std::string_view first,
                                                 std::string_view second, std::string_view third) const {
  const std::size_t mask = m_slots.size() - 1;
  for (std::size_t at = hash & mask; m_slots[at].entry != 0; at = (at + 1) & mask) {
    const Slot& slot = m_slots[at];
    if (slot.hash == static_cast<std::uint32_t>(hash >> 32) &&
        equalsPieces(m_entries[slot.entry - 1], first, second, third)) {
      return slot.entry - 1;
    }
  }
  return {};
}

std::uint64_t PageQueue::hashOf(std::string_view first, std::string_view second,
                                std::string_view third) const {
  return finish(mixIn(mixIn(mixIn(m_seed, first), second), third));
}

std::string_view PageQueue::store(std::string_view url) {
  if (url.size() > m_blockLeft) {
    const std::size_t size = std::max(kBlockSize, url.size());
    m_blocks.push_back(std::make_unique<char[]>(size));
    m_blockNext = m_blocks.back().get();
    m_blockLeft = size;
  }
  if (!url.empty()) std::memcpy(m_blockNext, url.data(), url.size());
  const std::string_view stored(m_blockNext, url.size());
  m_blockNext += url.size();
  m_blockLeft -= url.size();
  return stored;
}

void PageQueue::grow() {
  std::vector<Slot> larger(m_slots.size() * 2);
  const std::size_t mask = larger.size() - 1;
  for (std::size_t i = 0; i < m_entries.size(); ++i) {
    const std::uint64_t hash = hashOf(m_entries[i], {}, {});
    std::size_t at = hash & mask;
    while (larger[at].entry != 0) at = (at + 1) & mask;
    larger[at] = {static_cast<std::uint32_t>(hash >> 32), static_cast<std::uint32_t>(i + 1)};
  }
  m_slots = std::move(larger);
}

}  // namespace crawler
