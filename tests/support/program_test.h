// The built program in a home directory of its own for each test.
#pragma once

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "support/data_folder_test.h"
#include "support/run_program.h"

namespace support {

using Arguments = std::vector<std::string>;

/// Arguments that hold no blanks.
inline Arguments words(const std::string& command) {
  std::istringstream stream(command);
  return {std::istream_iterator<std::string>(stream), {}};
}

class ProgramTest : public DataFolderTest {
 protected:
  ProgramOptions options() const {
    return {.environment = {{"HOME", home.path()},
                            {"XDG_STATE_HOME", home.path() / "state"},
                            {"DBUS_SESSION_BUS_ADDRESS", ""}}};  // whoever tests keeps his secrets
  }

  ProgramResult run(const Arguments& arguments, const std::string& input = {},
                    StandardInput inputFrom = StandardInput::file) const {
    return runProgram(VESKEL_CLI, arguments, {options().environment, input, inputFrom});
  }

  /// What has to go well for a test to begin.
  void prepare(const Arguments& arguments, int expectedCode = 0) const {
    const ProgramResult result = run(arguments);
    ASSERT_EQ(result.exitCode, expectedCode) << result.errors;
  }
};

}  // namespace support
