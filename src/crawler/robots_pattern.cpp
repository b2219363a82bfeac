#include "crawler/robots_pattern.h"

#include <algorithm>

#include "web/percent_encoding.h"

namespace crawler {

namespace {

void addPairs(OctetPairs& pairs, std::string_view octets) {
  for (std::size_t i = 1; i < octets.size(); ++i) {
    const unsigned first = static_cast<unsigned char>(octets[i - 1]);
    const unsigned second = static_cast<unsigned char>(octets[i]);
    pairs.set((first * 37 + second) % pairs.size());
  }
}

}  // namespace

RobotsPath::RobotsPath(std::string_view path) : octets(web::percentDecoded(path)) {
  addPairs(pairs, octets);
}

RobotsPattern::RobotsPattern(std::string_view text) : m_reachesEnd(text.ends_with('$')) {
  if (m_reachesEnd) text.remove_suffix(1);
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = text.find('*');
    m_pieces.push_back(web::percentDecoded(text.substr(0, end)));
    addPairs(m_pairs, m_pieces.back());
    m_octets += m_pieces.back().size() + 1;
    text.remove_prefix(std::min(text.size(), end + 1));
  }
  if (!m_reachesEnd) --m_octets;
}

bool RobotsPattern::isUsable() const {
  const std::string& start = m_pieces.front();
  return start.empty() ? m_pieces.size() > 1 : start.starts_with('/');
}

bool RobotsPattern::matchesOctets(std::string_view path) const {
  if (!path.starts_with(m_pieces.front())) return false;
  path.remove_prefix(m_pieces.front().size());
  if (m_pieces.size() == 1) return !m_reachesEnd || path.empty();
  // A piece taken where it stands first leaves the most for those behind it, so nothing is tried twice.
  for (std::size_t i = 1; i + 1 < m_pieces.size(); ++i) {
    const std::size_t at = path.find(m_pieces[i]);
    if (at == std::string_view::npos) return false;
    path.remove_prefix(at + m_pieces[i].size());
  }
  return m_reachesEnd ? path.ends_with(m_pieces.back())
                      : path.find(m_pieces.back()) != std::string_view::npos;
}

}  // namespace crawler
