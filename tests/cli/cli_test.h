// The built program in a home directory of its own for each test.
#pragma once

#include <filesystem>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/files.h"
#include "store/broken_reasons.h"
#include "store/global_controls.h"
#include "store/site_record.h"
#include "support/run_program.h"
#include "support/temp_folder.h"

using Arguments = std::vector<std::string>;

/// Arguments that hold no blanks.
inline Arguments words(const std::string& command) {
  std::istringstream stream(command);
  return {std::istream_iterator<std::string>(stream), {}};
}

class CliTest : public testing::Test {
 protected:
  support::ProgramResult run(const Arguments& arguments, const std::string& input = "",
                             support::StandardInput inputFrom = support::StandardInput::file) const {
    const std::map<std::string, std::string> environment = {{"HOME", home.path()}, {"XDG_STATE_HOME", state}};
    return support::runProgram(VESKEL_CLI, arguments, {environment, input, inputFrom});
  }

  /// What has to go well for a test to begin.
  void prepare(const Arguments& arguments) const {
    const auto result = run(arguments);
    ASSERT_EQ(result.exitCode, 0) << result.errors;
  }

  std::filesystem::path data() const { return controls.homeFolderLocation(); }

  /// A file in the data folder, with the folder that it is in.
  void write(const std::string& file, const std::string& text) const {
    std::filesystem::create_directories((data() / file).parent_path());
    ASSERT_TRUE(platform::replaceFile(data() / file, text).ok());
  }

  std::string read(const std::filesystem::path& file) const { return platform::readFile(data() / file).text; }

  support::TempFolder home;
  std::string state = home.path() / "state";
  store::GlobalControls controls{home.path()};
  store::BrokenReasons reasons{store::StateFolder(state)};
};
