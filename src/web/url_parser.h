// How an address is read; parseUrl() is what to call.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "web/byte_set.h"
#include "web/url.h"
#include "web/url_path.h"

namespace web {

/// Reads an address from its start to its end, once, and writes it at the same time: each part stands where
/// the one in front of it ended. Only what climbs in a path takes something back.
class UrlParser {
 public:
  /// `input` is valid UTF-8 without blanks around it, tabs and line ends; all that is given outlives the
  /// parser.
  UrlParser(std::string_view input, const Url* base, const platform::Encoding* queryEncoding)
      : m_rest(input), m_base(base), m_queryEncoding(queryEncoding) {}

  /// Once.
  std::optional<Url> parse();

 private:
  // Each reads what is left from there on, to the end, and is false when it is no address.
  bool readAll();
  bool readWithoutScheme();
  bool readRelative();
  bool readFile();
  bool readFileHost();
  bool readAuthority();
  bool readPathBehindHost();
  bool readPathOfBase();
  bool readPath();
  bool readOpaquePath();
  bool readQuery();
  bool readFragment();
  bool readFragmentOfBase();

  // Each reads or writes one part.
  bool readScheme();
  void startHost();
  void appendUserInfo(std::string_view userInfo);
  bool appendPort(std::string_view port);
  void endHost();
  void endPath();
  void appendQuery(std::string_view query);
  void copyUpToPath();

  bool isSpecial() const { return m_url.m_scheme != Scheme::other; }
  /// Whether the base is an address of the same scheme, which browsers know.
  bool hasBaseOf(Scheme scheme) const { return m_base != nullptr && m_base->m_scheme == scheme; }
  bool startsWithSlash() const;
  /// What is in front of the first of `ends`.
  std::string_view takeUpTo(const ByteSet& ends);
  UrlPath path() { return {m_url.m_href, m_url.m_pathStart, m_url.m_scheme}; }

  std::string_view m_rest;  // what is not read yet
  const Url* const m_base;  // null when there is none
  const platform::Encoding* const m_queryEncoding;
  Url m_url;
};

}  // namespace web
