#include <string>
#include <thread>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"

namespace analytics {
namespace {

/// Asks for stored settings of each kind; gives how many answers were wrong.
int WrongAnswers() {
  int wrong = 0;
  for (int round = 0; round < 1000; ++round) {
    wrong += Settings::MaxResource() == 50 ? 0 : 1;
    wrong += Settings::PluginRepository() == "/opt/plugins/" ? 0 : 1;
    wrong += Settings::UserDataPipes().size() == 1 ? 0 : 1;
  }
  return wrong;
}

TEST(StoredSettings, AreReadByManyThreadsOnceTheyAreLoaded) {
  ASSERT_TRUE(tests::LoadContent(
      "<maxResource>50</maxResource><pluginRepository>/opt/plugins</pluginRepository>"));
  int wrong = -1;
  std::thread other([&wrong] { wrong = WrongAnswers(); });
  EXPECT_EQ(0, WrongAnswers());
  other.join();
  EXPECT_EQ(0, wrong);
}

}  // namespace
}  // namespace analytics
