// How a scan comes by the password of its site, and where the programs keep it.
#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>

#include "platform/secret_store.h"
#include "store/site_settings.h"

namespace crawler {

/// What the site's password is kept under; nothing when its user has set no name, or the address has no
/// server.
std::optional<platform::SecretKey> passwordKey(const std::string& startUrl, const store::SiteSettings& site);

/// The password of one scan, asked for when the first request needs it. Any thread.
class SitePassword {
 public:
  /// May block until the stop.
  using Source = std::function<platform::SecretAnswer(const std::stop_token& stop)>;

  explicit SitePassword(Source source) : m_source(std::move(source)) {}

  /// Nothing when there is none.
  std::optional<std::string> get(const std::stop_token& stop);

  /// Why there is none; empty when there is, and until it was asked for.
  std::string problem() const;

 private:
  const Source m_source;
  mutable std::mutex m_mutex;
  std::optional<platform::SecretAnswer> m_answer;  // guarded by m_mutex
};

/// The passwords of a program that runs for long: in the secret service, and as long as the program runs also
/// here, so that they count where there is no service. Any thread; the store is borrowed.
class PasswordKeeper {
 public:
  explicit PasswordKeeper(platform::SecretStore& store) : m_store(store) {}

  /// As SecretStore::lookUp().
  platform::SecretAnswer lookUp(const platform::SecretKey& key, const std::stop_token& stop);

  /// As SecretStore::contains(), and whether it is only here.
  struct Presence {
    platform::SecretAnswer stored = {};
    bool isHere = false;

    bool isKnown() const { return isHere || stored.ok(); }
  };
  Presence presence(const platform::SecretKey& key, const std::stop_token& stop);

  /// From now on the password is this one, or none; returns at once. The store is to be told, too.
  void set(const platform::SecretKey& key, const std::optional<std::string>& password);

  /// Tells the store what set() said. Where that fails it counts until the program ends.
  platform::SecretAnswer save(const platform::SecretKey& key, const std::stop_token& stop);

 private:
  platform::SecretStore& m_store;
  std::mutex m_mutex;
  std::map<platform::SecretKey, std::optional<std::string>> m_here;  // guarded by m_mutex; nothing: removed
};

}  // namespace crawler
