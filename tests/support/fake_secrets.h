// A secret service without a desktop.
#pragma once

#include <map>
#include <string>

#include "platform/secret_store.h"

namespace support {

/// Keeps secrets, or refuses everything for one reason.
class FakeSecrets : public platform::SecretStore {
 public:
  platform::SecretAnswer refusal = {};  // counts unless it is done
  std::map<platform::SecretKey, std::string> kept = {};

  platform::SecretAnswer lookUp(const platform::SecretKey& key, std::stop_token) override {
    if (!refusal.ok()) return refusal;
    const auto found = kept.find(key);
    if (found == kept.end()) return {.outcome = platform::SecretOutcome::missing};
    return {.secret = found->second};
  }
  platform::SecretAnswer contains(const platform::SecretKey& key, std::stop_token) override {
    if (!refusal.ok()) return refusal;
    return {.outcome = kept.contains(key) ? platform::SecretOutcome::done : platform::SecretOutcome::missing};
  }
  platform::SecretAnswer store(const platform::SecretKey& key, const std::string& secret,
                               std::stop_token) override {
    if (refusal.ok()) kept[key] = secret;
    return refusal;
  }
  platform::SecretAnswer remove(const platform::SecretKey& key, std::stop_token) override {
    if (refusal.ok()) kept.erase(key);
    return refusal;
  }
};

}  // namespace support
