// The pages of a site in the order found: the crawl's queue and its set of known pages at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace crawler {

enum class Queued { now, before, noRoom };

/// Grows only. Each address is stored once, and a look-up costs the same at a hundred entries and at a
/// million.
class PageQueue {
 public:
  static constexpr std::size_t kMaxBytes = 1'000'000'000;

  /// Takes addresses of at most so many bytes together.
  explicit PageQueue(std::size_t maxBytes = kMaxBytes);

  std::size_t size() const { return m_entries.size(); }

  /// The entry at `index` in the order found. The view stays good as long as the queue.
  std::string_view operator[](std::size_t index) const { return m_entries[index]; }

  /// Adds an address that is not known yet, if there is room for it.
  Queued append(std::string_view url);

  /// The index of the address made of the three pieces one after the other, if it is known. Comparison is by
  /// bytes.
  std::optional<std::size_t> find(std::string_view first, std::string_view second = {},
                                  std::string_view third = {}) const;

  /// Whether find() would find one with any of the `endings` as its third piece.
  bool containsAny(std::string_view first, std::string_view second,
                   std::span<const std::string_view> endings) const;

 private:
  struct Slot {
    std::uint32_t hash = 0;   // upper half, to tell most entries apart without a look at their text
    std::uint32_t entry = 0;  // index + 1; 0 is a free slot
  };

  std::optional<std::size_t> findHashed(std::uint64_t hash, std::string_view first, std::string_view second,
                                        std::string_view third) const;
  std::uint64_t hashOf(std::string_view first, std::string_view second, std::string_view third) const;
  std::string_view store(std::string_view url);
  void grow();

  std::size_t m_bytesLeft;
  std::vector<std::string_view> m_entries;
  std::vector<std::unique_ptr<char[]>> m_blocks;  // the entries' text; blocks never move
  std::size_t m_blockLeft = 0;
  char* m_blockNext = nullptr;
  std::vector<Slot> m_slots;  // open addressing, a power of two of slots, at most half full
  std::uint64_t m_seed;       // so that no site can prepare addresses that collide
};

}  // namespace crawler
