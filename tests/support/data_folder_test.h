// A home directory of its own for each test, with an empty data folder.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "store/broken_reasons.h"
#include "store/global_controls.h"
#include "support/temp_folder.h"

namespace support {

class DataFolderTest : public testing::Test {
 protected:
  DataFolderTest() { std::filesystem::create_directories(data()); }

  std::filesystem::path data() const { return controls.homeFolderLocation(); }

  /// Writes a file below the data folder and makes the folders on the way.
  void write(const std::string& file, std::string_view text) const {
    std::filesystem::create_directories((data() / file).parent_path());
    ASSERT_TRUE(platform::replaceFile(data() / file, text).ok());
  }

  /// The text of a file below the data folder; "(missing)" when there is none.
  std::string read(const std::filesystem::path& file) const {
    const auto content = platform::readFile(data() / file);
    return content.result.ok() ? content.text : "(missing)";
  }

  /// Every file below the data folder with its text.
  std::map<std::string, std::string> snapshot() const {
    std::map<std::string, std::string> files;
    for (const std::string& file : platform::filesBelow(data())) files[file] = read(file);
    return files;
  }

  TempFolder home;
  store::GlobalControls controls{home.path()};
  store::StateFolder state{home.path() / "state"};
  store::BrokenReasons reasons{state};
};

}  // namespace support
