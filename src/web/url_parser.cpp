#include "web/url_parser.h"

#include <algorithm>
#include <utility>

#include "platform/ascii.h"
#include "platform/query_text.h"
#include "web/byte_set.h"
#include "web/percent_encoding.h"
#include "web/url_host.h"

namespace web {
namespace {

constexpr ByteSet kFileHostEnds("/\\?#");
constexpr ByteSet kPathEnds("?#");
constexpr ByteSet kQueryEnds("#");

bool isSchemeCharacter(char c) {
  return platform::isAsciiLetter(c) || platform::isAsciiDigit(c) || c == '+' || c == '-' || c == '.';
}

/// The drive at the start of a file's path: "/C:" or nothing.
std::string_view driveOf(std::string_view path) {
  const bool hasDrive = path.size() > 2 && path[2] == ':' && startsWithDriveLetter(path.substr(1));
  return path.substr(0, hasDrive ? 3 : 0);
}

}  // namespace

std::optional<Url> UrlParser::parse() {
  return readAll() ? std::optional(std::move(m_url)) : std::nullopt;
}

bool UrlParser::startsWithSlash() const {
  return m_rest.starts_with('/') || (isSpecial() && m_rest.starts_with('\\'));
}

std::string_view UrlParser::takeUpTo(const ByteSet& ends) {
  const std::string_view taken = ends.textBefore(m_rest);
  m_rest.remove_prefix(taken.size());
  return taken;
}

// --- Where to begin ---

bool UrlParser::readAll() {
  if (!readScheme()) return m_base != nullptr && readWithoutScheme();
  if (m_url.m_scheme == Scheme::file) return readFile();
  // "http:page" is relative, to a base that is of http too.
  if (isSpecial() && hasBaseOf(m_url.m_scheme) && !m_rest.starts_with("//")) return readRelative();
  if (isSpecial() || m_rest.starts_with("//")) {
    m_rest.remove_prefix(isSpecial() ? 0 : 2);
    return readAuthority();
  }
  endHost();
  if (!startsWithSlash()) return readOpaquePath();
  m_rest.remove_prefix(1);
  return readPath();
}

bool UrlParser::readScheme() {
  if (m_rest.empty() || !platform::isAsciiLetter(m_rest.front())) return false;
  const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isSchemeCharacter);
  if (end == m_rest.end() || *end != ':') return false;
  const auto length = static_cast<std::size_t>(end - m_rest.begin());
  m_url.m_href.reserve(m_rest.size() + 1);  // a path may have to be added
  for (const char c : m_rest.substr(0, length)) m_url.m_href += platform::lowerAscii(c);
  m_url.m_schemeEnd = length;
  m_url.m_scheme = schemeNamed(m_url.m_href);
  m_url.m_href += ':';
  m_rest.remove_prefix(length + 1);
  return true;
}

bool UrlParser::readWithoutScheme() {
  m_url.m_scheme = m_base->m_scheme;
  if (m_base->m_hasOpaquePath) {
    if (!m_rest.starts_with('#')) return false;
    copyUpToPath();
    return readFragmentOfBase();
  }
  return m_url.m_scheme == Scheme::file ? readFile() : readRelative();
}

/// Relative to the base, which has the same scheme.
bool UrlParser::readRelative() {
  if (!startsWithSlash()) return readPathOfBase();
  m_rest.remove_prefix(1);
  if (startsWithSlash()) {
    m_rest.remove_prefix(1);
    m_url.m_href.assign(m_base->m_href, 0, m_base->m_schemeEnd + 1);
    m_url.m_schemeEnd = m_base->m_schemeEnd;
    return readAuthority();
  }
  copyUpToPath();
  return readPath();
}

bool UrlParser::readPathOfBase() {
  copyUpToPath();
  if (m_rest.empty() || m_rest.starts_with('#')) return readFragmentOfBase();
  m_url.m_href += m_base->path();
  if (m_rest.starts_with('?')) return readQuery();
  if (m_url.m_scheme == Scheme::file && startsWithDriveLetter(m_rest)) {
    m_url.m_href.resize(m_url.m_pathStart);
  } else {
    path().shorten();
  }
  return readPath();
}

// --- Files ---

bool UrlParser::readFile() {
  const bool hasBase = hasBaseOf(Scheme::file);
  if (!startsWithSlash() && hasBase) return readPathOfBase();
  m_url.m_href = "file:";
  m_url.m_schemeEnd = m_url.m_href.size() - 1;
  const bool isBelowRoot = startsWithSlash();
  if (isBelowRoot) {
    m_rest.remove_prefix(1);
    if (startsWithSlash()) return readFileHost();
  }
  if (isBelowRoot && hasBase) {
    copyUpToPath();
    if (!startsWithDriveLetter(m_rest)) m_url.m_href += driveOf(m_base->path());
    return readPath();
  }
  startHost();
  endHost();
  return readPath();
}

bool UrlParser::readFileHost() {
  m_rest.remove_prefix(1);
  startHost();
  const std::string_view atHost = m_rest;
  const std::string_view host = takeUpTo(kFileHostEnds);
  if (isDriveLetter(host)) {
    // "file://C:/x" was meant to have another slash.
    m_rest = atHost;
    endHost();
    return readPath();
  }
  if (!host.empty()) {
    if (!appendHost(m_url.m_href, host, HostForm::domain)) return false;
    if (std::string_view(m_url.m_href).substr(m_url.m_hostStart) == "localhost") {
      m_url.m_href.resize(m_url.m_hostStart);
    }
  }
  endHost();
  return readPathBehindHost();
}

// --- Path, query, fragment ---

bool UrlParser::readPathBehindHost() {
  const bool isEmpty = m_rest.empty() || m_rest.front() == '?' || m_rest.front() == '#';
  if (isEmpty && !isSpecial()) return readQuery();
  if (startsWithSlash()) m_rest.remove_prefix(1);
  return readPath();
}

/// The slash in front is read already.
bool UrlParser::readPath() {
  m_rest = path().append(m_rest);
  return readQuery();
}

bool UrlParser::readOpaquePath() {
  m_url.m_hasOpaquePath = true;
  const std::string_view written = takeUpTo(kPathEnds);
  // Blanks stay, but for one that would be the last once the rest is cut off.
  const bool endsBlank = written.ends_with(' ');
  appendPercentEncoded(m_url.m_href, written.substr(0, written.size() - (endsBlank ? 1 : 0)),
                       EncodeSet::control);
  if (endsBlank) m_url.m_href += "%20";
  return readQuery();
}

bool UrlParser::readQuery() {
  endPath();
  if (m_rest.starts_with('?')) {
    m_rest.remove_prefix(1);
    appendQuery(takeUpTo(kQueryEnds));
  }
  return readFragment();
}

void UrlParser::appendQuery(std::string_view query) {
  m_url.m_href += '?';
  const EncodeSet set = isSpecial() ? EncodeSet::specialQuery : EncodeSet::query;
  const bool isUtf8 = m_queryEncoding == nullptr || !isSpecial() || m_url.m_scheme == Scheme::ws ||
                      m_url.m_scheme == Scheme::wss;
  if (isUtf8) {
    appendPercentEncoded(m_url.m_href, query, set);
  } else {
    appendPercentEncoded(m_url.m_href, platform::encodeQuery(query, *m_queryEncoding), set);
  }
}

bool UrlParser::readFragment() {
  m_url.m_queryEnd = m_url.m_href.size();
  if (!m_rest.starts_with('#')) return true;
  m_url.m_href += '#';
  appendPercentEncoded(m_url.m_href, m_rest.substr(1), EncodeSet::fragment);
  return true;
}

void UrlParser::endPath() {
  if (!m_url.m_hasHost && m_url.m_href.compare(m_url.m_pathStart, 2, "//") == 0) {
    // The start of the path would be taken for a host.
    m_url.m_href.insert(m_url.m_pathStart, "/.");
    m_url.m_pathStart += 2;
  }
  m_url.m_pathEnd = m_url.m_href.size();
}

// --- What the base has ---

void UrlParser::copyUpToPath() {
  // Without a host there may be a "/." in front of the path, for its sake alone.
  const std::size_t end = m_base->m_hasHost ? m_base->m_pathStart : m_base->m_schemeEnd + 1;
  m_url.m_href.reserve(m_base->m_queryEnd + m_rest.size());
  m_url.m_href.assign(m_base->m_href, 0, end);
  m_url.m_schemeEnd = m_base->m_schemeEnd;
  m_url.m_usernameEnd = m_base->m_usernameEnd;
  m_url.m_hostStart = m_base->m_hostStart;
  m_url.m_hostEnd = m_base->m_hostEnd;
  m_url.m_pathStart = end;
  m_url.m_port = m_base->m_port;
  m_url.m_hasHost = m_base->m_hasHost;
}

/// With its query; what is left is at most a fragment.
bool UrlParser::readFragmentOfBase() {
  m_url.m_href += m_base->path();
  m_url.m_hasOpaquePath = m_base->m_hasOpaquePath;
  endPath();
  m_url.m_href += m_base->part(m_base->m_pathEnd, m_base->m_queryEnd);
  return readFragment();
}

}  // namespace web
