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

void AnchorBounds::close(std::uint16_t key) {
  if (m_open[key] > 0) --m_open[key];
}

bool AnchorBounds::end(const ElementName& name) {
  if (!name.isPlain() || m_open[name.key()] == 0) return false;
  if (!m_inAnchor) {
    close(name.key());
    return false;
  }
  // What is looked through here is over, whether the tag ends one of them or all, so that their own end tags
  // end nothing any more.
  const auto found = std::find(m_inside.rbegin(), m_inside.rend(), name.key());
  const bool endsOuter = found == m_inside.rend();
  const auto first = endsOuter ? m_inside.begin() : found.base() - 1;
  for (auto ended = first; ended != m_inside.end(); ++ended) close(*ended);
  m_inside.erase(first, m_inside.end());
  if (endsOuter) close(name.key());
  return endsOuter;
}

}  // namespace web
