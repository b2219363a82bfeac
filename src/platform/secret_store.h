// Passwords, kept where the desktop keeps them.
#pragma once

#include <stop_token>
#include <string>

namespace platform {

/// What a password is for.
struct SecretKey {
  std::string origin;  // "https://h.test", see originOf()
  std::string user;

  auto operator<=>(const SecretKey&) const = default;
};

enum class SecretOutcome {
  done,
  missing,      // nothing is kept for the key
  unavailable,  // there is no service
  locked,       // its user did not unlock it
  failed,       // it refused, or did not answer in time
  stopped,      // the stop token asked for it
};

struct [[nodiscard]] SecretAnswer {
  SecretOutcome outcome = SecretOutcome::done;
  std::string secret = {};  // of lookUp(), UTF-8
  std::string error = {};   // what went wrong, without a full stop: "there is no secret service"

  bool ok() const { return outcome == SecretOutcome::done; }
};

/// Any thread. Every call may ask the user to unlock what is kept, and so may last a minute, but no longer; a
/// stop ends it at once.
class SecretStore {
 public:
  virtual ~SecretStore() = default;

  virtual SecretAnswer lookUp(const SecretKey& key, std::stop_token stop) = 0;

  /// Whether there is something to be looked up. Asks its user nothing.
  virtual SecretAnswer contains(const SecretKey& key, std::stop_token stop) = 0;

  /// In place of what was kept for the key.
  virtual SecretAnswer store(const SecretKey& key, const std::string& secret, std::stop_token stop) = 0;

  /// Fine where nothing is kept.
  virtual SecretAnswer remove(const SecretKey& key, std::stop_token stop) = 0;
};

/// The secret service of the desktop that the program runs on.
class DesktopSecretStore : public SecretStore {
 public:
  SecretAnswer lookUp(const SecretKey& key, std::stop_token stop) override;
  SecretAnswer contains(const SecretKey& key, std::stop_token stop) override;
  SecretAnswer store(const SecretKey& key, const std::string& secret, std::stop_token stop) override;
  SecretAnswer remove(const SecretKey& key, std::stop_token stop) override;
};

}  // namespace platform
