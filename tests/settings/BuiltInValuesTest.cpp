#include <cstdint>
#include <cstdlib>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/TextSettings.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::IsEmpty;

static_assert(std::is_same<std::int64_t, decltype(Settings::MaxResource())>::value,
              "the resource is a 64-bit number on every machine");

class ATextSetting : public testing::TestWithParam<tests::TextSetting> {};

TEST_P(ATextSetting, HasItsBuiltInValueUntilAFileIsParsed) {
  tests::InFreshProcess([] {
    EXPECT_EQ(GetParam().builtIn, GetParam().operation());
    EXPECT_EQ("", Settings::GetValue(std::string("//") + GetParam().key));
  });
}

INSTANTIATE_TEST_SUITE_P(Settings, ATextSetting, testing::ValuesIn(tests::kTextSettings),
                         testing::PrintToStringParamName());

TEST(TheResource, IsHundredThousandUntilAFileIsParsed) {
  tests::InFreshProcess([] {
    EXPECT_EQ(100000, Settings::MaxResource());
    EXPECT_EQ(7, Settings::GetValue("//maxResource", 7));
  });
}

TEST(TheUserDataPipes, AreNoneUntilAFileIsParsed) {
  tests::InFreshProcess([] {
    EXPECT_THAT(Settings::UserDataPipes(), IsEmpty());
    EXPECT_THAT(Settings::GetValues("//userdataPipe"), IsEmpty());
  });
}

TEST(AVariable, IsUndefinedUntilAFileIsParsed) {
  tests::InFreshProcess([] { EXPECT_EQ("/a", Settings::SubstituteVariables("${dir}/a")); });
}

}  // namespace
}  // namespace analytics
