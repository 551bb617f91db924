#include <string>

#include <gtest/gtest.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"
#include "tests/support/FailingAllocation.h"

namespace analytics {
namespace {

class ThePluginRepositoryWithoutMemory : public testing::TestWithParam<tests::Shortage> {
 protected:
  // Texts are too long for the buffer within a string object, so that each needs memory.
  const std::string m_long = "/a/directory/whose/name/is/rather/long";
  const tests::TemporaryDirectory m_directory;
  const std::string m_file = m_directory.Write(
      "analytics.ini",
      tests::ElementOf("settings", tests::ElementOf("pluginRepository", m_long) +
                                       tests::ElementOf("videoInputFile", m_long) +
                                       tests::ElementOf("quadOutputFile", m_long)));
};

TEST_P(ThePluginRepositoryWithoutMemory, NeverLacksItsSlash) {
  ASSERT_TRUE(tests::LoadContent(tests::ElementOf("pluginRepository", "/former")));
  tests::WithEachAllocationFailing(GetParam(), [this] {
    EXPECT_EQ('/', Settings::PluginRepository().back());  // what the last run left
    Settings::LoadSettings(m_file);
  });
  EXPECT_EQ(m_long + "/", Settings::PluginRepository());
}

INSTANTIATE_TEST_SUITE_P(Shortages, ThePluginRepositoryWithoutMemory,
                         testing::ValuesIn(tests::kShortages), tests::ShortageName);

}  // namespace
}  // namespace analytics
