#include <cstdlib>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/LoadMessages.h"
#include "tests/settings/ServedFile.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

constexpr char kServed[] = "<settings><maxResource>4711</maxResource></settings>";

/// An ANALYTICS_INI whose first word is empty, as the parameter is.
class AnEmptyFirstWord : public testing::TestWithParam<const char*> {};

TEST_P(AnEmptyFirstWord, ReadsTheBuiltInFileUnderAnEmptyName) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", GetParam(), 1);
    tests::ServeFile(tests::kBuiltInPath, kServed);
    EXPECT_EQ(4711, Settings::MaxResource());
    EXPECT_EQ(tests::GoodLoad(""), tests::CallsSoFar());
  });
}

TEST_P(AnEmptyFirstWord, ReadsTheBuiltInFileAgainForALoadOfNoPath) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", GetParam(), 1);
    tests::ServeFile(tests::kBuiltInPath, kServed);
    EXPECT_TRUE(Settings::LoadSettings(""));
    EXPECT_EQ(4711, Settings::MaxResource());
    EXPECT_EQ(tests::Then(tests::GoodLoad(""), tests::GoodLoad("")), tests::CallsSoFar());
  });
}

TEST_P(AnEmptyFirstWord, ReportsAFailureUnderAnEmptyName) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", GetParam(), 1);
    tests::ServeFile(tests::kBuiltInPath, "<settings>");
    EXPECT_EQ(100000, Settings::MaxResource());
    EXPECT_EQ(tests::FailedLoad(""), tests::CallsSoFar());
  });
}

INSTANTIATE_TEST_SUITE_P(Values, AnEmptyFirstWord,
                         testing::Values("\"\"", "''", "\"\" /b.ini", "\"$UNDEFINED\""));

}  // namespace
}  // namespace analytics
