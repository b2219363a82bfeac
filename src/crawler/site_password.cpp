#include "crawler/site_password.h"

#include "platform/idna.h"
#include "platform/phrases.h"
#include "platform/uri.h"

namespace crawler {

using platform::SecretAnswer;
using platform::SecretKey;
using platform::SecretOutcome;

std::optional<SecretKey> passwordKey(const std::string& startUrl, const store::SiteSettings& site) {
  SecretKey key = {platform::originOf(platform::withAsciiHost(startUrl)), site.httpUser};
  if (key.origin.empty() || key.user.empty()) return {};
  return key;
}

std::optional<std::string> SitePassword::get(const std::stop_token& stop) {
  const std::lock_guard lock(m_mutex);
  if (!m_answer) m_answer = m_source(stop);
  if (!m_answer->ok()) return {};
  return m_answer->secret;
}

std::string SitePassword::problem() const {
  const std::lock_guard lock(m_mutex);
  if (!m_answer || m_answer->ok()) return {};
  return m_answer->outcome == SecretOutcome::missing ? platform::Phrases::tr("none is kept")
                                                     : m_answer->error;
}

SecretAnswer PasswordKeeper::lookUp(const SecretKey& key, const std::stop_token& stop) {
  {
    const std::lock_guard lock(m_mutex);
    const auto here = m_here.find(key);
    if (here != m_here.end() && !here->second) return {.outcome = SecretOutcome::missing};
    if (here != m_here.end()) return {.secret = *here->second};
  }
  return m_store.lookUp(key, stop);
}

PasswordKeeper::Presence PasswordKeeper::presence(const SecretKey& key, const std::stop_token& stop) {
  Presence presence = {.stored = m_store.contains(key, stop)};
  const std::lock_guard lock(m_mutex);
  const auto here = m_here.find(key);
  if (here == m_here.end()) return presence;
  presence.isHere = here->second.has_value();
  if (!presence.isHere && presence.stored.ok()) presence.stored.outcome = SecretOutcome::missing;
  return presence;
}

void PasswordKeeper::set(const SecretKey& key, const std::optional<std::string>& password) {
  const std::lock_guard lock(m_mutex);
  m_here[key] = password;
}

SecretAnswer PasswordKeeper::save(const SecretKey& key, const std::stop_token& stop) {
  std::optional<std::string> password;
  {
    const std::lock_guard lock(m_mutex);
    password = m_here[key];
  }
  return password ? m_store.store(key, *password, stop) : m_store.remove(key, stop);
}

}  // namespace crawler
