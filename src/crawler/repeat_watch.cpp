#include "crawler/repeat_watch.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

#include "platform/phrases.h"

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

/// Whether the text ends in the same two or more bytes twice: "aboutnewsnews".
bool endsTwiceInTheSame(std::string_view text) {
  for (std::size_t size = 2; size * 2 <= text.size(); ++size) {
    const std::string_view last = text.substr(text.size() - size);
    if (text.substr(text.size() - 2 * size, size) == last) return true;
  }
  return false;
}

/// Whether the path tells of links that were followed from themselves: one of its folders stands in it twice,
/// or it repeats its end.
bool repeatsItself(std::string_view path) {
  if (endsTwiceInTheSame(path.substr(path.rfind('/') + 1))) return true;
  std::unordered_set<std::string_view> seen;
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find('/'));
    if (!name.empty() && !seen.insert(name).second) return true;
    path.remove_prefix(std::min(path.size(), name.size() + 1));
  }
  return false;
}

/// What addresses have in common that lead to one document because they grow; nothing for one that does not
/// look grown. Where a path repeats itself it is the document alone, behind a query or a fragment the path
/// too: many empty pages side by side are no sign of a site without end.
std::optional<std::uint64_t> growthOf(std::string_view url, std::uint64_t fingerprint) {
  constexpr std::uint64_t kSpread = 0x9e3779b97f4a7c15;
  const std::string_view path = url.substr(0, url.find_first_of("?#"));
  if (repeatsItself(path)) return fingerprint;
  if (path.size() == url.size()) return {};
  return fingerprint ^ (std::hash<std::string_view>{}(path)*kSpread);
}

}  // namespace

std::string EndlessHint::text() const {
  return platform::Phrases::tr("This scan may not end: %1 addresses gave the same page as %2",
                               {std::to_string(addresses), url});
}

RepeatWatch::RepeatWatch() : m_slots(kSlots) {}

std::optional<EndlessHint> RepeatWatch::visited(std::string_view url, std::uint64_t fingerprint) {
  if (m_told) return std::nullopt;
  const std::optional<std::uint64_t> growth = growthOf(url, fingerprint);
  if (!growth) return std::nullopt;
  Slot& slot = m_slots[*growth % kSlots];
  if (slot.count > 0 && slot.growth != *growth) {
    --slot.count;
    return std::nullopt;
  }
  if (slot.count == 0) {
    slot.growth = *growth;
    slot.firstUrl = url;
  }
  if (++slot.count < kSuspicious) return std::nullopt;
  m_told = true;
  return EndlessHint{slot.count, slot.firstUrl, helpfulFilter(url)};
}

}  // namespace crawler
