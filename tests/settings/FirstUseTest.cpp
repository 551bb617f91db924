#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/support/FreshProcess.h"
#include "tests/support/fakes/CallLog.h"

namespace analytics {
namespace {

using testing::Contains;

TEST(TheFirstUse, LoadsTheFileOfTheEnvironment) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", "/nonexistent/first.ini", 1);
    EXPECT_EQ(100000, Settings::MaxResource());
    EXPECT_THAT(fakes::CallLog::Instance().Calls(),
                Contains("Trace(SettingsImpl::LoadSettings(/nonexistent/first.ini)\n)"));
  });
}

}  // namespace
}  // namespace analytics
