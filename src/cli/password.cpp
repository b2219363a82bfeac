#include "cli/password.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <iostream>

#include <termios.h>
#include <unistd.h>

#include "cli/cli_context.h"
#include "platform/header_line.h"

namespace cli {

namespace {

using platform::SecretAnswer;
using platform::SecretOutcome;

volatile std::sig_atomic_t caughtSignal = 0;

void catchSignal(int number) {
  caughtSignal = number;
}

/// While it lives, what is typed is not shown, and signals wait: they only end a read.
class HiddenInput {
 public:
  HiddenInput() {
    caughtSignal = 0;
    struct sigaction action = {};
    action.sa_handler = catchSignal;  // without SA_RESTART
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
      sigaction(kSignals[i], nullptr, &m_before[i]);
      if (m_before[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
    }
    if (tcgetattr(STDIN_FILENO, &m_shown) != 0) return;
    termios hidden = m_shown;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    m_isHidden = tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden) == 0;
  }

  ~HiddenInput() {
    if (m_isHidden) tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_shown);
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &m_before[i], nullptr);
    if (caughtSignal != 0) raise(caughtSignal);
  }

  HiddenInput(const HiddenInput&) = delete;
  HiddenInput& operator=(const HiddenInput&) = delete;

  /// A line; nothing at the end of the input, or for a signal.
  std::optional<std::string> readLine() const {
    std::string line;
    for (char c = 0; caughtSignal == 0;) {
      const ssize_t got = read(STDIN_FILENO, &c, 1);
      if (got < 0 && errno == EINTR) continue;
      if (got <= 0) return {};
      if (c == '\n') return line;
      line += c;
    }
    return {};
  }

 private:
  static constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

  std::array<struct sigaction, kSignals.size()> m_before = {};
  termios m_shown = {};
  bool m_isHidden = false;
};

bool isUsable(const std::string& password) {
  const std::string problem = platform::headerTextProblem(password);
  if (!problem.empty()) printError("The password cannot be used: " + problem + ".");
  return problem.empty();
}

std::string nameOf(const platform::SecretKey& key) {
  return "\"" + printable(key.user) + "\" at " + printable(key.origin);
}

}  // namespace

std::optional<std::string> readPassword(std::istream& input) {
  std::string password;
  if (!std::getline(input, password)) {
    printError("No password came on standard input.");
    return {};
  }
  if (password.ends_with('\r')) password.pop_back();
  if (!isUsable(password)) return {};
  return password;
}

std::optional<std::string> askPassword(const std::string& question) {
  std::optional<std::string> password;
  {
    const HiddenInput input;  // before the question, which is answered at once where it is pasted
    std::cerr << question << std::flush;
    password = input.readLine();
    std::cerr << '\n';
  }
  if (!password) printError("No password was given.");
  if (password && !isUsable(*password)) return {};
  return password;
}

std::optional<std::string> findPassword(const PasswordSources& sources, const platform::SecretKey& key) {
  if (sources.input != nullptr) return readPassword(*sources.input);
  SecretAnswer stored = sources.secrets.lookUp(key, {});
  if (stored.ok()) return std::move(stored.secret);
  if (sources.ask) return sources.ask("Password of " + nameOf(key) + ": ");
  const bool isMissing = stored.outcome == SecretOutcome::missing;
  printError("The password of " + nameOf(key) +
             " is not known: " + (isMissing ? "the secret service has none" : printable(stored.error)) +
             ". Give it with --password-stdin.");
  return {};
}

bool keepPassword(platform::SecretStore& secrets, const platform::SecretKey& key,
                  const std::string& password) {
  const SecretAnswer kept = password.empty() ? secrets.remove(key, {}) : secrets.store(key, password, {});
  if (kept.ok()) return true;
  printError("The password of " + nameOf(key) + " could not be " + (password.empty() ? "removed" : "kept") +
             ": " + printable(kept.error) + ".");
  return false;
}

}  // namespace cli
