// A site's folder of its own for each test.
#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "store/global_controls.h"
#include "support/temp_folder.h"

class SiteFolderTest : public testing::Test {
 protected:
  SiteFolderTest() { std::filesystem::create_directories(folder()); }

  std::filesystem::path folder() const { return m_controls.siteFolder("S"); }
  void write(const std::string& name, const std::string& text) const {
    ASSERT_TRUE(platform::replaceFile(folder() / name, text).ok());
  }
  std::string read(const std::string& name) const { return platform::readFile(folder() / name).text; }

  support::TempFolder m_home;
  store::GlobalControls m_controls{m_home.path()};
};
