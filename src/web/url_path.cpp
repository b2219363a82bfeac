#include "web/url_path.h"

#include "platform/ascii.h"
#include "web/byte_set.h"
#include "web/percent_encoding.h"

namespace web {
namespace {

constexpr ByteSet kSegmentEnds("/?#");
constexpr ByteSet kSpecialSegmentEnds("/\\?#");

/// How many dots the segment consists of, encoded ones included; 0 when of anything else.
std::size_t dotCount(std::string_view segment) {
  std::size_t dots = 0;
  while (!segment.empty()) {
    const bool isEncoded = platform::startsWithAnyCase(segment, "%2e");
    if (!isEncoded && segment.front() != '.') return 0;
    segment.remove_prefix(isEncoded ? 3 : 1);
    if (++dots > 2) return 0;  // a name like any other
  }
  return dots;
}

}  // namespace

std::string_view UrlPath::append(std::string_view written) {
  const ByteSet& ends = m_scheme == Scheme::other ? kSegmentEnds : kSpecialSegmentEnds;
  for (;;) {
    const std::string_view segment = ends.textBefore(written);
    written.remove_prefix(segment.size());
    const bool isLast = written.empty() || written.front() == '?' || written.front() == '#';
    appendSegment(segment, isLast);
    if (isLast) return written;
    written.remove_prefix(1);
  }
}

void UrlPath::appendSegment(std::string_view written, bool isLast) {
  if (const std::size_t dots = dotCount(written); dots > 0) {
    if (dots == 2) shorten();
    if (isLast) m_address += '/';
    return;
  }
  m_address += '/';
  if (m_scheme == Scheme::file && m_address.size() == m_start + 1 && isDriveLetter(written)) {
    m_address += {written[0], ':'};
  } else {
    appendPercentEncoded(m_address, written, EncodeSet::path);
  }
}

void UrlPath::shorten() {
  const std::string_view path = std::string_view(m_address).substr(m_start);
  if (path.empty()) return;
  if (m_scheme == Scheme::file && isDriveLetter(path.substr(1)) && path.ends_with(':')) return;
  m_address.resize(m_start + path.rfind('/'));
}

bool isDriveLetter(std::string_view text) {
  return text.size() == 2 && platform::isAsciiLetter(text[0]) && (text[1] == ':' || text[1] == '|');
}

bool startsWithDriveLetter(std::string_view text) {
  return isDriveLetter(text.substr(0, 2)) && (text.size() == 2 || kSpecialSegmentEnds.has(text[2]));
}

}  // namespace web
