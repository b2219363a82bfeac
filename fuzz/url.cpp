// Addresses: the first line is the page's, the second its character set, the rest is the link.
#include "web/url.h"

#include <algorithm>
#include <string>

#include "fuzz_target.h"
#include "platform/page_encoding.h"

namespace {

using fuzz::require;
using web::Url;

std::string recomposed(const Url& url) {
  std::string text = std::string(url.schemeName()) + ":";
  if (url.host()) {
    text += "//";
    text += url.username();
    if (!url.password().empty()) text.append(":").append(url.password());
    if (!url.username().empty() || !url.password().empty()) text += '@';
    text += *url.host();
    if (url.port()) text.append(":").append(std::to_string(*url.port()));
  } else if (url.path().starts_with("//")) {
    text += "/.";
  }
  text += url.path();
  if (url.query()) text.append("?").append(*url.query());
  if (url.fragment()) text.append("#").append(*url.fragment());
  return text;
}

void check(const Url& url) {
  const std::string& href = url.href();
  require(std::all_of(href.begin(), href.end(), [](char c) { return c >= ' ' && c <= '~'; }),
          "an address is ASCII without controls");
  require(recomposed(url) == href, "the parts make up the address");
  const std::string withoutFragment(url.withoutFragment());
  require(withoutFragment == href.substr(0, href.find('#')), "a fragment is what stands behind the first #");
  if (url.isWeb()) {
    require(url.host() && !url.host()->empty() && url.path().starts_with('/'),
            "a web address has a host and a path");
    require(url.path().find('\\') == std::string_view::npos, "a web address has no backslash in its path");
  }
  for (const Url* base : {static_cast<const Url*>(nullptr), &url}) {
    const std::optional<Url> again = web::parseUrl(href, base);
    require(again && again->href() == href && again->path() == url.path() && again->host() == url.host(),
            "an address means itself wherever it stands");
  }
  const std::optional<Url> same = web::parseUrl("#", &url);
  require(same && same->href() == withoutFragment + "#", "a fragment stays on its page");
}

}  // namespace

void fuzz::tryInput(std::string_view input) {
  std::string_view rest = input;
  const std::optional<Url> base = web::parseUrl(takeLine(rest));
  const std::string contentType = "text/html; charset=" + std::string(takeLine(rest));
  const platform::Encoding* encoding = platform::pageEncoding("", contentType).encoding;
  if (base) check(*base);
  const std::optional<Url> url = web::parseUrl(rest, base ? &*base : nullptr, encoding);
  if (!url) return;
  check(*url);
  // Characters of other scripts and those that an encoding lacks are longer than they were.
  require(url->href().size() <= 64 + 20 * input.size(), "nothing grows without bound");
  const std::string padded = " \n" + std::string(rest) + "\t ";
  require(web::parseUrl(padded, base ? &*base : nullptr, encoding)->href() == url->href(),
          "blanks around a link mean nothing");
}
