#include "tests/profile/ProfileTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/fakes/CallLog.h"

namespace analytics {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using tests::ProfileText;

std::vector<std::string> Calls() { return fakes::CallLog::Instance().Calls(); }

TEST(TheFirstProfileOfAProcess, LoadsTheSettingsWhenItIsParsed) {
  tests::InFreshProcess([] {
    ProfileDoc profile;
    EXPECT_THAT(Calls(), Not(Contains(HasSubstr("LoadSettings"))));
    ASSERT_TRUE(profile.ParseString(ProfileText("")));
    EXPECT_THAT(
        Calls(),
        Contains("Trace(SettingsImpl::LoadSettings(/nonexistent/analytics.ini)\n)").Times(1));
  });
}

TEST(APlainDocument, DoesNotLoadTheSettings) {
  tests::InFreshProcess([] {
    Document plain;
    ASSERT_TRUE(plain.ParseString(ProfileText("<tt:rule/>")));
    EXPECT_EQ(nullptr, plain.SelectNode("//tt:rule"));
    EXPECT_THAT(Calls(), Not(Contains(HasSubstr("LoadSettings"))));
  });
}

TEST(AProfileThatIsNotWellFormed, DoesNotLoadTheSettings) {
  tests::InFreshProcess([] {
    ProfileDoc profile;
    EXPECT_FALSE(profile.ParseString("<profile>"));
    EXPECT_THAT(Calls(), Not(Contains(HasSubstr("LoadSettings"))));
  });
}

TEST(ASecondProfile, LoadsTheSettingsNoSecondTime) {
  tests::InFreshProcess([] {
    ProfileDoc first;
    ProfileDoc second;
    ASSERT_TRUE(first.ParseString(ProfileText("")));
    fakes::CallLog::Instance().Clear();
    ASSERT_TRUE(second.ParseString(ProfileText("<tt:rule/>")));
    EXPECT_FALSE(second.RuleIsActive(""));
    EXPECT_THAT(Calls(), ElementsAre());
  });
}

}  // namespace
}  // namespace analytics
