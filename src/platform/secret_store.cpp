#include "platform/secret_store.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include <libsecret/secret.h>

#include "platform/phrases.h"

namespace platform {

namespace {

constexpr std::chrono::seconds kLongestCall{60};  // somebody may have to type the password of the store
constexpr std::chrono::seconds kLongestFarewell{2};

// Matched by its attributes alone: a service may know the schema's name of no entry while it is locked.
const SecretSchema kSchema = {"org.quillfern.veskel.Site",
                              SECRET_SCHEMA_DONT_MATCH_NAME,
                              {{"application", SECRET_SCHEMA_ATTRIBUTE_STRING},
                               {"origin", SECRET_SCHEMA_ATTRIBUTE_STRING},
                               {"user", SECRET_SCHEMA_ATTRIBUTE_STRING},
                               {nullptr, {}}},
                              0,
                              nullptr,
                              nullptr,
                              nullptr,
                              nullptr,
                              nullptr,
                              nullptr,
                              nullptr};

struct FreeError {
  void operator()(GError* error) const { g_error_free(error); }
};
using Error = std::unique_ptr<GError, FreeError>;

struct FreeTable {
  void operator()(GHashTable* table) const { g_hash_table_unref(table); }
};
using Attributes = std::unique_ptr<GHashTable, FreeTable>;

Attributes attributesOf(const SecretKey& key) {
  return Attributes(secret_attributes_build(&kSchema, "application", "veskel", "origin", key.origin.c_str(),
                                            "user", key.user.c_str(), nullptr));
}

/// What a call on its way and whoever waits for it both know.
struct Call {
  Call() : cancellable(g_cancellable_new()) {}
  ~Call() { g_object_unref(cancellable); }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  GCancellable* cancellable;
  std::mutex mutex;
  std::condition_variable_any ended;
  std::optional<SecretAnswer> answer;  // guarded by mutex
};

/// Without one the library would try to start a bus for itself.
bool hasSessionBus() {
  if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS")) return *address != '\0';
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  std::error_code error;
  return folder != nullptr && std::filesystem::exists(std::filesystem::path(folder) / "bus", error);
}

SecretAnswer unavailable() {
  return {SecretOutcome::unavailable, {}, Phrases::tr("there is no secret service")};
}

SecretAnswer locked() {
  return {SecretOutcome::locked, {}, Phrases::tr("the secret service is locked")};
}

SecretAnswer answerFor(const Error& error) {
  const auto is = [&](GQuark domain, int code) { return g_error_matches(error.get(), domain, code) != 0; };
  if (!error) return {};
  if (is(SECRET_ERROR, SECRET_ERROR_IS_LOCKED)) return locked();
  for (const int code : {G_DBUS_ERROR_SERVICE_UNKNOWN, G_DBUS_ERROR_NAME_HAS_NO_OWNER,
                         G_DBUS_ERROR_SPAWN_SERVICE_NOT_FOUND, G_DBUS_ERROR_NO_SERVER}) {
    if (is(G_DBUS_ERROR, code)) return unavailable();
  }
  const bool isSilent = is(G_IO_ERROR, G_IO_ERROR_TIMED_OUT) || is(G_IO_ERROR, G_IO_ERROR_CANCELLED);
  if (error->domain == G_IO_ERROR && !isSilent) return unavailable();  // the bus is out of reach
  return {SecretOutcome::failed, {}, error->message};
}

using Work = std::function<SecretAnswer(GCancellable*)>;

/// The library's calls last as long as the service likes, so each has a thread of its own. One that does not
/// even heed being cancelled is left behind with it.
SecretAnswer bounded(Work work, const std::stop_token& stop) {
  if (!hasSessionBus()) return unavailable();
  const auto call = std::make_shared<Call>();
  std::thread([call, work = std::move(work)] {
    SecretAnswer answer = work(call->cancellable);
    const std::lock_guard lock(call->mutex);
    call->answer = std::move(answer);
    call->ended.notify_all();
  }).detach();
  const auto hasEnded = [&] { return call->answer.has_value(); };
  std::unique_lock lock(call->mutex);
  if (call->ended.wait_for(lock, stop, kLongestCall, hasEnded)) return *std::move(call->answer);
  lock.unlock();
  g_cancellable_cancel(call->cancellable);
  lock.lock();
  call->ended.wait_for(lock, kLongestFarewell, hasEnded);
  if (stop.stop_requested()) return {SecretOutcome::stopped, {}, "stopped"};
  return {SecretOutcome::failed, {}, Phrases::tr("the secret service did not answer in time")};
}

/// Whether there is an entry, locked or not.
SecretAnswer search(const SecretKey& key, GCancellable* cancellable) {
  GError* error = nullptr;
  GList* found = secret_password_searchv_sync(&kSchema, attributesOf(key).get(), SECRET_SEARCH_NONE,
                                              cancellable, &error);
  SecretAnswer answer = answerFor(Error(error));
  if (answer.ok() && found == nullptr) answer.outcome = SecretOutcome::missing;
  g_list_free_full(found, g_object_unref);
  return answer;
}

}  // namespace

SecretAnswer DesktopSecretStore::lookUp(const SecretKey& key, std::stop_token stop) {
  const auto work = [key](GCancellable* cancellable) {
    GError* error = nullptr;
    gchar* secret = secret_password_lookupv_sync(&kSchema, attributesOf(key).get(), cancellable, &error);
    SecretAnswer answer = answerFor(Error(error));
    if (secret != nullptr) {
      answer.secret = secret;
      secret_password_free(secret);
    } else if (answer.ok()) {
      // Either there is none, or nobody unlocked it.
      answer = search(key, cancellable);
      if (answer.ok()) answer = locked();
    }
    return answer;
  };
  return bounded(work, stop);
}

SecretAnswer DesktopSecretStore::contains(const SecretKey& key, std::stop_token stop) {
  return bounded([key](GCancellable* cancellable) { return search(key, cancellable); }, stop);
}

SecretAnswer DesktopSecretStore::store(const SecretKey& key, const std::string& secret,
                                       std::stop_token stop) {
  const auto work = [key, secret](GCancellable* cancellable) {
    GError* error = nullptr;
    const std::string label = "Veskel: " + key.user + " at " + key.origin;
    const bool isStored =
        secret_password_storev_sync(&kSchema, attributesOf(key).get(), SECRET_COLLECTION_DEFAULT,
                                    label.c_str(), secret.c_str(), cancellable, &error);
    SecretAnswer answer = answerFor(Error(error));
    if (answer.ok() && !isStored) answer = locked();
    return answer;
  };
  return bounded(work, stop);
}

SecretAnswer DesktopSecretStore::remove(const SecretKey& key, std::stop_token stop) {
  const auto work = [key](GCancellable* cancellable) {
    GError* error = nullptr;
    secret_password_clearv_sync(&kSchema, attributesOf(key).get(), cancellable, &error);
    SecretAnswer answer = answerFor(Error(error));
    // What nobody unlocked is still there, and that is no error.
    if (answer.ok() && search(key, cancellable).ok()) answer = locked();
    return answer;
  };
  return bounded(work, stop);
}

}  // namespace platform
