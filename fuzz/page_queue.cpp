// The queue of pages against the standard containers. Input: addresses, one a line; one that begins with "*"
// stands for a very long one, one with a digit in front for that many different ones more.
#include "crawler/page_queue.h"

#include <string>
#include <unordered_set>
#include <vector>

#include "fuzz_target.h"

namespace {

using fuzz::require;

class Comparison {
 public:
  void append(const std::string& url) {
    const bool isNew = m_set.insert(url).second;
    if (isNew) m_order.push_back(url);
    require(m_queue.find(url).has_value() != isNew, "an address is known once it was appended, and not before");
    require((m_queue.append(url) == crawler::Queued::now) == isNew, "an address is appended once");
    askInPieces(url);
  }

  void compareAll() const {
    require(m_queue.size() == m_order.size(), "the queue grows by one with every new address");
    for (std::size_t i = 0; i < m_order.size(); ++i) {
      require(m_queue[i] == m_order[i], "entries stay where and what they are");
    }
  }

 private:
  void askInPieces(std::string_view url) const {
    for (std::size_t first = 0; first <= url.size(); first += 1 + url.size() / 4) {
      const std::size_t second = (url.size() - first) / 2;
      require(m_queue.find(url.substr(0, first), url.substr(first, second), url.substr(first + second)).has_value(),
              "an address is known however it is cut");
    }
    const std::string longer = std::string(url) + "/";
    require(m_queue.find(url, "/").has_value() == m_set.contains(longer), "more than an address is another address");
  }

  crawler::PageQueue m_queue;
  std::unordered_set<std::string> m_set;
  std::vector<std::string> m_order;
};

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  constexpr std::size_t kLong = 70'000;  // more than one of the queue's blocks of text
  constexpr int kMaxLong = 3;            // in one input, to stay quick
  Comparison comparison;
  int longOnes = 0;
  while (!rest.empty()) {
    std::string url(fuzz::takeLine(rest));
    if (url.starts_with('*') && longOnes++ < kMaxLong) url.append(kLong, url.back());
    comparison.append(url);
    const int more = !url.empty() && url[0] >= '1' && url[0] <= '9' ? url[0] - '0' : 0;
    for (int i = 0; i < more; ++i) comparison.append(url + "?" + std::to_string(i));
  }
  comparison.compareAll();
}
