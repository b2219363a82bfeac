#include "web/anchor_bounds.h"

#include <algorithm>

namespace web {

namespace {

/// No anchor that people wrote comes near. What nests deeper counts as not there.
constexpr std::size_t kMaxInside = 1u << 16;

}  // namespace

void AnchorBounds::start(const ElementName& name) {
  if (!name.isPlain()) return;
  // Most are left open, and each ends the one before.
  if (name.element() == Element::paragraph) m_open[name.key()] = 0;
  ++m_open[name.key()];
  if (m_inAnchor && m_inside.size() < kMaxInside) m_inside.push_back(name.key());
}

bool AnchorBounds::end(const ElementName& name) {
  if (!name.isPlain() || m_open[name.key()] == 0) return false;
  --m_open[name.key()];
  if (!m_inAnchor) return false;
  // What is looked through here is over, whether the tag ends one of them or all.
  const auto found = std::find(m_inside.rbegin(), m_inside.rend(), name.key());
  const bool endsOuter = found == m_inside.rend();
  m_inside.erase(endsOuter ? m_inside.begin() : found.base() - 1, m_inside.end());
  return endsOuter;
}

}  // namespace web
