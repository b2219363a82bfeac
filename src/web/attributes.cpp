#include "web/attributes.h"

#include <algorithm>
#include <numeric>

#include "platform/ascii.h"

namespace web {

namespace {

/// By name, whatever its case, and then by place.
class ByName {
 public:
  explicit ByName(const std::vector<Attribute>& attributes) : m_attributes(attributes) {}

  int compare(std::size_t a, std::size_t b) const {
    const std::string_view left = m_attributes[a].name;
    const std::string_view right = m_attributes[b].name;
    const std::size_t shared = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < shared; ++i) {
      const int difference = platform::lowerAscii(left[i]) - platform::lowerAscii(right[i]);
      if (difference != 0) return difference;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
  }

  bool operator()(std::size_t a, std::size_t b) const {
    const int order = compare(a, b);
    return order != 0 ? order < 0 : a < b;
  }

 private:
  const std::vector<Attribute>& m_attributes;
};

}  // namespace

std::vector<Attribute> attributesOf(std::string_view written) {
  std::vector<Attribute> all;
  AttributeReader reader(written);
  for (Attribute attribute; reader.next(attribute);) all.push_back(attribute);
  if (all.size() < 2) return all;

  // A tag may hold a hundred thousand: each is compared with its neighbours in the order of names only.
  std::vector<std::size_t> order(all.size());
  std::iota(order.begin(), order.end(), 0);
  const ByName byName(all);
  std::sort(order.begin(), order.end(), byName);
  order.erase(std::unique(order.begin(), order.end(),
                          [&](std::size_t a, std::size_t b) { return byName.compare(a, b) == 0; }),
              order.end());
  if (order.size() == all.size()) return all;
  std::sort(order.begin(), order.end());
  std::vector<Attribute> first;
  for (const std::size_t i : order) first.push_back(all[i]);
  return first;
}

}  // namespace web
