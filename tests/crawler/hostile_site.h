// A site whose one page misbehaves, in all the ways that sites have, between two that are fine.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/http_client.h"
#include "support/raw_server.h"

namespace crawler {

/// How the bad page answers, and what a scan has to make of it.
struct Misbehaviour {
  std::string name;
  /// What is sent at once.
  std::function<std::string(const support::RawRequest&)> answer;
  /// What follows before the connection is closed; without it, the connection waits for the next request.
  std::function<void(support::RawConnection&)> then = {};
  std::string reason = {};        // for a broken page: why
  std::string title = {};         // for a page that is used
  std::string link = "bad.html";  // as the start page has it
  /// Whether the scan has to wait for the limit on silence.
  bool silent = false;
};

/// All that end by themselves.
std::vector<Misbehaviour> misbehaviours();

/// "0 - " and the failure's text.
std::string noAnswer(platform::FetchFailure failure);

/// An answer with its length, without the body when the request is a HEAD.
std::string fullAnswer(const support::RawRequest& request, std::string_view status, std::string_view headers,
                       std::string_view body);

/// A page of this title.
std::string titledPage(const support::RawRequest& request, std::string_view title);

/// "127.0.0.1:PORT", as the client addressed the server.
std::string hostOf(const support::RawRequest& request);

/// Serves a start page with links to the bad page and to "good.html". Whatever is neither the start page, nor
/// the good one, nor robots.txt, is the bad page.
class HostileSite {
 public:
  /// `underWay` is called whenever an answer of the bad page has begun, on a thread of the server.
  explicit HostileSite(Misbehaviour misbehaviour, std::function<void()> underWay = {});

  std::string url(std::string_view path = "/") const { return m_server.url(path); }

 private:
  void serve(support::RawConnection& connection);
  void shakeHands(support::RawConnection& connection);

  const Misbehaviour m_misbehaviour;
  const std::function<void()> m_underWay;
  support::RawServer m_server;  // last, so that it ends first
};

}  // namespace crawler
