#include <cstdlib>
#include <ostream>
#include <type_traits>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/LoadMessages.h"
#include "tests/settings/TextSettings.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::Calls;
using tests::CallsSoFar;
using tests::FailedLoad;
using tests::Then;

constexpr char kFirst[] = "/nonexistent/first.ini";
constexpr char kSecond[] = "/nonexistent/second.ini";

static_assert(std::is_empty<Settings>::value, "the operations keep no state of their own");
static_assert(std::is_default_constructible<Settings>::value, "the constructor is public");
static_assert(std::is_destructible<Settings>::value, "the destructor is public");

struct FirstOperation {
  const char* name;
  void (*call)();
  Calls expected;  // what the platform sees of the first call
};

void PrintTo(const FirstOperation& operation, std::ostream* out) { *out << operation.name; }

const FirstOperation kOperations[] = {
    {"MaxResource", [] { Settings::MaxResource(); }, FailedLoad(kFirst)},
    {"UserDataPipes", [] { Settings::UserDataPipes(); }, FailedLoad(kFirst)},
    {"GetValueAsNumber", [] { Settings::GetValue("//a", 1); }, FailedLoad(kFirst)},
    {"GetValue", [] { Settings::GetValue("//a"); }, FailedLoad(kFirst)},
    {"GetValues", [] { Settings::GetValues("//a"); }, FailedLoad(kFirst)},
    {"SubstituteReference", [] { Settings::SubstituteVariables("${a}"); }, FailedLoad(kFirst)},
    {"SubstituteInPlainText", [] { Settings::SubstituteVariables("plain"); }, {}},
    {"SubstituteInEmptyText", [] { Settings::SubstituteVariables(""); }, {}},
    {"SubstituteEmptyName", [] { Settings::SubstituteVariables("${}${a}"); }, {}},
    {"SubstituteUnclosed", [] { Settings::SubstituteVariables("${a"); }, {}},
    {"MakeAnObject", [] { Settings(); }, {}},
    {"LoadSettingsTwice", [] { Settings::LoadSettings(kSecond); },
     Then(FailedLoad(kFirst), FailedLoad(kSecond))},
    {"LoadSettingsOfNoPathTwice", [] { Settings::LoadSettings(""); },
     Then(FailedLoad(kFirst), FailedLoad(kFirst))},
};

class TheFirstUse : public testing::TestWithParam<FirstOperation> {};

TEST_P(TheFirstUse, LoadsTheFileOfTheEnvironmentFirst) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", kFirst, 1);
    GetParam().call();
    EXPECT_EQ(GetParam().expected, CallsSoFar());
  });
}

INSTANTIATE_TEST_SUITE_P(Operations, TheFirstUse, testing::ValuesIn(kOperations),
                         testing::PrintToStringParamName());

class ATextSettingAtFirstUse : public testing::TestWithParam<tests::TextSetting> {};

TEST_P(ATextSettingAtFirstUse, LoadsTheFileOfTheEnvironment) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", kFirst, 1);
    GetParam().operation();
    EXPECT_EQ(FailedLoad(kFirst), CallsSoFar());
  });
}

INSTANTIATE_TEST_SUITE_P(Settings, ATextSettingAtFirstUse, testing::ValuesIn(tests::kTextSettings),
                         testing::PrintToStringParamName());

void CallEveryOperation() {
  for (const FirstOperation& operation : kOperations) operation.call();
  for (const tests::TextSetting& setting : tests::kTextSettings) setting.operation();
}

TEST(ALaterUse, LoadsNothingUnlessItIsALoad) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", kFirst, 1);
    Settings::MaxResource();
    fakes::CallLog::Instance().Clear();
    CallEveryOperation();
    EXPECT_EQ(Then(FailedLoad(kSecond), FailedLoad(kFirst)), CallsSoFar());
  });
}

TEST(ALaterUse, IgnoresAnEnvironmentChangedSinceTheFirst) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", kFirst, 1);
    Settings::MaxResource();
    setenv("ANALYTICS_INI", kSecond, 1);
    Settings::MaxResource();
    EXPECT_EQ(FailedLoad(kFirst), CallsSoFar());
  });
}

TEST(TheFirstUse, IsTheFirstCallAndNotTheLoadingOfTheLibrary) {
  tests::InFreshProcess([] { EXPECT_THAT(CallsSoFar(), testing::IsEmpty()); });
}

}  // namespace
}  // namespace analytics
