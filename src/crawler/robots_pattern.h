// The path of a rule in robots.txt: which addresses it speaks of (RFC 9309).
#pragma once

#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace crawler {

/// Which pairs of neighbouring octets a text has, those that share a place taken for one.
using OctetPairs = std::bitset<256>;

/// An address as patterns look at it. Made once for all of them.
struct RobotsPath {
  /// `path` is the address's path with its query, from the first "/", percent-encoded or not.
  explicit RobotsPath(std::string_view path);

  std::string octets;  // no longer percent-encoded
  OctetPairs pairs;
};

/// `text` stands for what begins with it: "*" is any octets, none too, and "$" at its end is the end of the
/// address. An octet and its percent-encoded form are the same, so "%2A" is an asterisk and nothing more.
class RobotsPattern {
 public:
  explicit RobotsPattern(std::string_view text);

  /// Whether it can match anything: addresses begin with "/".
  bool isUsable() const;

  /// The more, the more it says. "*" and "$" count too; an encoded octet counts once.
  std::size_t octets() const { return m_octets; }

  /// Takes time by the length of both multiplied at worst, and next to none where the path lacks a pair that
  /// the pattern has: most rules of a site speak of other pages.
  bool matches(const RobotsPath& path) const {
    return (m_pairs & ~path.pairs).none() && matchesOctets(path.octets);
  }

 private:
  bool matchesOctets(std::string_view path) const;

  std::vector<std::string> m_pieces;  // what stands between asterisks, decoded; at least one
  OctetPairs m_pairs;                 // of the pieces
  std::size_t m_octets = 0;
  bool m_reachesEnd = false;  // the last piece is the address's end
};

}  // namespace crawler
