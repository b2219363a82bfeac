// Where an anchor ends that nobody closed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "web/elements.h"

namespace web {

/// Told of a page's tags, it knows when one ends an element that the anchor in hand began in, like the
/// "</li>" of "<li><a href=x>text</li>". Elements are told apart by ElementName::key(), and only roughly by
/// where they are.
class AnchorBounds {
 public:
  void beginAnchor() {
    m_inside.clear();
    m_inAnchor = true;
  }
  void endAnchor() { m_inAnchor = false; }

  void start(const ElementName& name);

  /// Whether the end tag ends an element that has begun before the anchor in hand. Those that end nothing do
  /// not.
  bool end(const ElementName& name);

 private:
  void close(std::uint16_t key);

  std::array<std::uint32_t, ElementName::kKeys> m_open{};  // how many of each are open, in the anchor or not
  bool m_inAnchor = false;
  std::vector<std::uint16_t> m_inside;  // begun since the anchor, the innermost last
};

}  // namespace web
