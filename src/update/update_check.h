// Whether there is a newer version of the program, by the list that its publisher keeps.
#pragma once

#include <chrono>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>

#include "platform/http_client.h"
#include "update/appcast.h"

namespace update {

/// Where the list lies: what the program was built with, empty when it is to know of no updates.
std::string_view appcastAddress();

struct CheckRequest {
  std::string address;         // of the list
  std::string programVersion;  // isVersion()
  /// Of the Linux kernel. A release that needs a newer one does not count: nothing else is called the
  /// system's version on all of them alike. Empty when it is not known, and then all fit.
  std::string systemVersion = {};
  std::chrono::milliseconds timeout{30'000};  // for the list, and once more for the notes
};

enum class CheckEnd {
  newer,             // there is a newer version
  current,           // there is none
  needsNewerSystem,  // there is one, that does not run here
  programIsNewer,    // all that are offered are older
  notReached,        // the list could not be had
  notRead,           // it came, and is of no use
  stopped,
};

struct CheckResult {
  CheckEnd end = CheckEnd::stopped;
  /// The newest one that fits the system; with needsNewerSystem the newest one. Means something for the first
  /// four ends only.
  Release release = {};
  std::string problem = {};  // why it was not reached or read, without its full stop
  std::string notesProblem =
      {};  // likewise for the notes of a newer version, where they are a page of their own
};

/// Asks for the list, and for the notes where they lie elsewhere. Only https is asked, also after redirects,
/// for a megabyte at most; of notes a part is enough. Any thread; ends soon after a stop. Never throws.
CheckResult checkForUpdate(platform::HttpClient& client, const CheckRequest& request,
                           const std::stop_token& stop);

/// What is told of a result; nothing of one that was stopped.
struct CheckText {
  std::string title;    // a sentence
  std::string message;  // more of it, may be empty
};
CheckText textOf(const CheckResult& result, const CheckRequest& request);

/// The client that asks over the network, as "Veskel/" and this version.
std::unique_ptr<platform::HttpClient> networkClient(std::string_view programVersion);

}  // namespace update
