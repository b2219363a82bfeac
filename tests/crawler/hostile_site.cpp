#include "crawler/hostile_site.h"

#include <chrono>
#include <utility>

#include "support/bombs.h"
#include "support/tls_handshake.h"

namespace crawler {

namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using platform::FetchFailure;
using support::RawConnection;
using support::RawRequest;

constexpr std::string_view kHtml = "Content-Type: text/html\r\n";
const std::string kOkHead = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n";
const std::string kChunked = "Transfer-Encoding: chunked\r\n\r\n";
constexpr std::size_t kBombBytes = 128u << 20;  // twice what a page may hold

auto saying(std::string text) {
  return [text = std::move(text)](const RawRequest&) { return text; };
}

auto page(std::string headers, std::string body) {
  return [headers = std::move(headers), body = std::move(body)](const RawRequest& request) {
    return fullAnswer(request, "200 OK", headers, body);
  };
}

auto redirectTo(std::string location) {
  return [location = std::move(location)](const RawRequest& request) {
    return fullAnswer(request, "302 Found", "Location: " + location + "\r\n", "moved");
  };
}

auto sendForever(std::string bytes, std::chrono::milliseconds pause = {}) {
  return
      [bytes = std::move(bytes), pause](RawConnection& connection) { connection.sendForever(bytes, pause); };
}

void close(RawConnection&) {}

void stayOpen(RawConnection& connection) {
  connection.waitForClose();
}

/// Redirects `count` times from one address to the next.
auto chainOf(int count) {
  return [count](const RawRequest& request) {
    constexpr std::string_view kHop = "/hop";
    const std::string target(request.target());
    const int hop = target.starts_with(kHop) ? std::stoi(target.substr(kHop.size())) : 0;
    if (hop == count) return titledPage(request, "Arrived");
    return redirectTo(std::string(kHop) + std::to_string(hop + 1))(request);
  };
}

/// Away to another host's name, which sends back to another page here.
std::string awayAndBack(const RawRequest& request) {
  const std::string port = hostOf(request).substr(hostOf(request).find(':'));
  if (request.target() == "/bad.html") return redirectTo("http://localhost" + port + "/away")(request);
  if (request.target() == "/away") return redirectTo("http://127.0.0.1" + port + "/back.html")(request);
  return titledPage(request, "Back");
}

std::string utf16(std::string_view ascii, bool bigEndian) {
  std::string bytes;
  for (const char c : ascii) {
    if (bigEndian) bytes += '\0';
    bytes += c;
    if (!bigEndian) bytes += '\0';
  }
  return bytes;
}

std::string manyAttributes(int count) {
  std::string tag = "<title>Busy</title><p";
  for (int i = 0; i < count; ++i) tag += " data-" + std::to_string(i);
  return tag + ">";
}

void addEndlessOnes(std::vector<Misbehaviour>& all) {
  const std::string tooLarge = noAnswer(FetchFailure::tooLarge);
  const std::string timedOut = noAnswer(FetchFailure::timedOut);
  const std::string junk(10'000, 'x');
  all.push_back({"gzip bomb",
                 page(std::string(kHtml) + "Content-Encoding: gzip\r\n", support::gzipBomb(kBombBytes)),
                 {},
                 tooLarge});
  all.push_back({"br bomb",
                 page(std::string(kHtml) + "Content-Encoding: br\r\n", support::brotliBomb(kBombBytes)),
                 {},
                 tooLarge});
  all.push_back({"endless body", saying(kOkHead + "\r\n"), sendForever(junk), tooLarge});
  all.push_back(
      {"endless chunks", saying(kOkHead + kChunked), sendForever("2710\r\n" + junk + "\r\n"), tooLarge});
  all.push_back({"endless header", saying(kOkHead + "X: "), sendForever(junk), tooLarge});
  all.push_back({"endless headers", saying(kOkHead), sendForever("a: b\r\n"), tooLarge});
  all.push_back({.name = "a byte a second",
                 .answer = saying(kOkHead + "\r\n"),
                 .then = sendForever("x", 1s),
                 .reason = timedOut,
                 .silent = true});
  all.push_back({.name = "a header's byte a second",
                 .answer = saying(kOkHead + "X: "),
                 .then = sendForever("x", 1s),
                 .reason = timedOut,
                 .silent = true});
  all.push_back(
      {.name = "silence", .answer = saying(""), .then = stayOpen, .reason = timedOut, .silent = true});
  all.push_back({.name = "length that never comes",
                 .answer = saying(kOkHead + "Content-Length: 1000\r\n\r\n<title>Half</title>"),
                 .then = stayOpen,
                 .reason = timedOut,
                 .silent = true});
}

void addRedirects(std::vector<Misbehaviour>& all) {
  const std::string tooMany = noAnswer(FetchFailure::tooManyRedirects);
  const std::string forbidden = noAnswer(FetchFailure::forbiddenRedirect);
  all.push_back({"redirect to itself", redirectTo("/bad.html"), {}, tooMany});
  all.push_back({"chain of 21 redirects", chainOf(21), {}, tooMany});
  all.push_back({"chain of 20 redirects", chainOf(20), {}, {}, "Arrived"});
  all.push_back({"redirect to a file", redirectTo("file:///etc/passwd"), {}, forbidden});
  all.push_back({"redirect to ftp", redirectTo("ftp://127.0.0.1/x.html"), {}, forbidden});
  all.push_back({"redirect to no address", redirectTo("http://"), {}, forbidden});
  all.push_back({"redirect to another host and back", awayAndBack, {}, {}, "Back"});
  all.push_back({"redirect to a name that does not resolve",
                 redirectTo("http://nonexistent.invalid/"),
                 {},
                 noAnswer(FetchFailure::nameNotResolved)});
  all.push_back({"redirect to a port that nobody listens on",
                 redirectTo("http://127.0.0.1:1/"),
                 {},
                 noAnswer(FetchFailure::connectionFailed)});
}

void addBrokenExchanges(std::vector<Misbehaviour>& all) {
  const std::string closed = noAnswer(FetchFailure::connectionClosed);
  const std::string shortPage = "<title>Short</title>";
  const std::pair<const char*, std::string> breaks[] = {
      {"closed before any answer", ""},
      {"closed within the status", "HTTP/1.1 2"},
      {"closed behind the status", "HTTP/1.1 200 OK\r\n"},
      {"closed within the headers", kOkHead + "Last-Mod"},
      {"closed before the body", kOkHead + "Content-Length: 20\r\n\r\n"},
      {"closed within the body", kOkHead + "Content-Length: 1000\r\n\r\n" + shortPage},
      {"truncated chunk", kOkHead + kChunked + "ff\r\n" + shortPage},
      {"no last chunk", kOkHead + kChunked + "14\r\n" + shortPage + "\r\n"},
      {"length of no digits", kOkHead + "Content-Length: many\r\n\r\n" + shortPage},
      {"NUL in a header", kOkHead + "X: a\0b\r\n\r\n"s + shortPage},
      {"no HTTP at all", shortPage},
  };
  for (const auto& [name, sent] : breaks) all.push_back({name, saying(sent), close, closed});
  all.push_back({"length too small",
                 saying(kOkHead + "Content-Length: 20\r\n\r\n" + shortPage + "HTTP/1.1 200 OK\r\n\r\nmore"),
                 close,
                 {},
                 "Short"});
  all.push_back({"broken gzip",
                 page(std::string(kHtml) + "Content-Encoding: gzip\r\n", shortPage),
                 {},
                 noAnswer(FetchFailure::undecodable)});
  all.push_back({"no Content-Type", page("", shortPage), {}, "200 - OK"});
  all.push_back({"Content-Type of no sense", page("Content-Type: ;;html\r\n", shortPage), {}, "200 - OK"});
  all.push_back({"non-ASCII headers",
                 page("X-\xE9: \xFF\r\nContent-Type: text/html; charset=\xE9\xE8\r\n"
                      "Last-Modified: \xD0\xBF\xD0\xBE\xD0\xBD\xD1\x8F\r\n",
                      shortPage),
                 {},
                 {},
                 "Short"});
  all.push_back({.name = "self-signed certificate",
                 .answer = saying(""),
                 .then = stayOpen,
                 .reason = noAnswer(FetchFailure::tlsFailed),
                 .link = "https://HOST/bad.html"});
  const std::string longName = std::string(8'000, 'a') + ".html";
  all.push_back(
      {.name = "8 KB address that is too long",
       .answer =
           [](const RawRequest& request) { return fullAnswer(request, "414 URI Too Long", kHtml, "no"); },
       .reason = "414 - URI Too Long",
       .link = longName});
  all.push_back({.name = "8 KB address",
                 .answer = [](const RawRequest& request) { return titledPage(request, "Far"); },
                 .title = "Far",
                 .link = longName});
}

void addOddTexts(std::vector<Misbehaviour>& all) {
  const std::string wide = "<title>Wide</title>";
  const std::string html(kHtml);
  all.push_back(
      {"UTF-16 with a byte-order mark", page(html, "\xFF\xFE" + utf16(wide, false)), {}, {}, "Wide"});
  all.push_back({"UTF-16 with a byte-order mark that the charset denies",
                 page("Content-Type: text/html; charset=utf-8\r\n", "\xFE\xFF" + utf16(wide, true)),
                 {},
                 {},
                 "Wide"});
  all.push_back({"UTF-16 told by its charset",
                 page("Content-Type: text/html; charset=utf-16be\r\n", utf16(wide, true)),
                 {},
                 {},
                 "Wide"});
  all.push_back(
      {"UTF-16 told by nobody", page(html, utf16(wide, false)), {}, {}, "Could not find page title"});
  all.push_back({"charset that is not true",
                 page("Content-Type: text/html; charset=utf-8\r\n", "<title>Caf\xE9!</title>"),
                 {},
                 {},
                 "Caf\xEF\xBF\xBD!"});
  all.push_back({"charset that does not exist",
                 page("Content-Type: text/html; charset=klingon\r\n", "<title>Caf\xE9</title>"),
                 {},
                 {},
                 "Caf\xC3\xA9"});
  // The slowest of the character sets: each switch of its own costs as much as many characters.
  std::string switches = "<title>Slow</title>";
  while (switches.size() < 16u << 20) switches += "\x1B$B\x1B(B";
  all.push_back({"16 MB of switches between sets",
                 page("Content-Type: text/html; charset=iso-2022-jp\r\n", switches),
                 {},
                 {},
                 "Slow"});
  all.push_back({"a tag of 20,000 attributes", page(html, manyAttributes(20'000)), {}, {}, "Busy"});
  all.push_back({"a tag of 200,000 attributes", page(html, manyAttributes(200'000)), {}, {}, "Busy"});
}

}  // namespace

std::vector<Misbehaviour> misbehaviours() {
  std::vector<Misbehaviour> all;
  addEndlessOnes(all);
  addRedirects(all);
  addBrokenExchanges(all);
  addOddTexts(all);
  return all;
}

std::string noAnswer(FetchFailure failure) {
  return "0 - " + std::string(platform::failureText(failure));
}

std::string fullAnswer(const RawRequest& request, std::string_view status, std::string_view headers,
                       std::string_view body) {
  std::string answer = support::rawAnswer(status, headers, body);
  if (request.method() == "HEAD") answer.resize(answer.size() - body.size());
  return answer;
}

std::string titledPage(const RawRequest& request, std::string_view title) {
  return fullAnswer(request, "200 OK", kHtml, "<title>" + std::string(title) + "</title>");
}

std::string hostOf(const RawRequest& request) {
  constexpr std::string_view kName = "Host: ";
  const std::size_t start = request.head.find(kName) + kName.size();
  return request.head.substr(start, request.head.find("\r\n", start) - start);
}

HostileSite::HostileSite(Misbehaviour misbehaviour, std::function<void()> underWay)
    : m_misbehaviour(std::move(misbehaviour)),
      m_underWay(std::move(underWay)),
      m_server([this](RawConnection& connection) { serve(connection); }) {}

void HostileSite::serve(RawConnection& connection) {
  if (connection.startsTls()) return shakeHands(connection);
  while (const auto request = connection.readRequest()) {
    std::string answer;
    if (request->target() == "/") {
      std::string link = m_misbehaviour.link;
      if (const std::size_t host = link.find("HOST"); host != std::string::npos) {
        link.replace(host, 4, hostOf(*request));
      }
      answer = fullAnswer(*request, "200 OK", kHtml,
                          "<title>Start</title><a href=\"" + link + "\">Bad</a><a href=good.html>Good</a>");
    } else if (request->target() == "/good.html") {
      answer = titledPage(*request, "Good page");
    } else if (request->target() == "//robots.txt") {
      answer = fullAnswer(*request, "404 Not Found", "", "");
    } else {
      const bool open = connection.send(m_misbehaviour.answer(*request));
      if (m_underWay) m_underWay();
      if (open && m_misbehaviour.then) m_misbehaviour.then(connection);
      if (!open || m_misbehaviour.then) return;
      continue;
    }
    if (!connection.send(answer)) return;
  }
}

void HostileSite::shakeHands(RawConnection& connection) {
  if (m_underWay) m_underWay();
  support::shakeHandsSelfSigned(connection);
}

}  // namespace crawler
