#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/TemporaryDirectory.h"

namespace tests {

/// A store for processes that load the library over the host platform. It does not exist until it
/// is written. Other than `StoreTest` it needs no library of the platform, so that these are
/// unloaded with ours.
class LeavingTest : public testing::Test {
 protected:
  LeavingTest() { setenv("TAVREL_SETTINGS", m_directory.PathOf("store.ini").c_str(), 1); }
  ~LeavingTest() override { unsetenv("TAVREL_SETTINGS"); }

  /// Replaces the store by one of 31 masks, all of this shade of red. It is large, so that merging
  /// it takes a while.
  void ReplaceStore(int shade) const {
    std::filesystem::rename(m_directory.Write("next.ini", MasksOfShade(shade)),
                            m_directory.PathOf("store.ini"));
  }

 private:
  static std::string MasksOfShade(int shade) {
    std::string text = "[Imaging/WindowBlanking]\nEnabled=true\n";
    for (int number = 1; number <= 31; ++number) {
      text += "[Imaging/WindowBlanking/Region#" + std::to_string(number) +
              "]\nName=Mask\nColorR=" + std::to_string(shade) + "\n";
    }
    return text;
  }

  const TemporaryDirectory m_directory;
};

}  // namespace tests
