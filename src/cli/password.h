// Where a command gets a site's password from.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include "platform/secret_store.h"

namespace cli {

inline constexpr const char* kNoUser =
    "There is no name that the password could be of: give --http-user, too.";

/// The first line of `input`, as it stands. Where there is none, or no password can be like that, it says so
/// on stderr.
std::optional<std::string> readPassword(std::istream& input);

/// Asks on the terminal without showing what is typed. Nothing at the end of the input. A signal that would
/// end the program does so, once the terminal shows again what is typed.
std::optional<std::string> askPassword(const std::string& question);

struct PasswordSources {
  std::istream* input = nullptr;  // where it was asked to be taken from there
  platform::SecretStore& secrets;
  std::function<std::optional<std::string>(const std::string& question)> ask = {};  // empty: nobody is there
};

/// The password for a scan, from the first source that has it. Where there is none, says on stderr how to
/// give one.
std::optional<std::string> findPassword(const PasswordSources& sources, const platform::SecretKey& key);

/// Keeps the password in the secret service; an empty one is removed from there. Where that fails it says why
/// on stderr.
bool keepPassword(platform::SecretStore& secrets, const platform::SecretKey& key,
                  const std::string& password);

}  // namespace cli
