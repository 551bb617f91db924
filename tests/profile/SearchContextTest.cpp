#include "tests/profile/ProfileTest.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using tests::ProfileText;

using TheSearchContextOfAProfile = tests::ProfileTest;

TEST_F(TheSearchContextOfAProfile, BindsTheOnvifPrefix) {
  Parse("<tt:rule/>");
  EXPECT_TRUE(Node("//tt:rule"));
  EXPECT_FALSE(Node("//ka:rule"));
}

TEST_F(TheSearchContextOfAProfile, BindsTheVendorPrefix) {
  Parse("<ka:rule/>");
  EXPECT_TRUE(Node("//ka:rule"));
  EXPECT_FALSE(Node("//tt:rule"));
}

TEST_F(TheSearchContextOfAProfile, BindsNoPrefixOfTheFile) {
  ParseWhole("<p xmlns:r='http://www.onvif.org/ver10/schema'><r:rule/></p>");
  EXPECT_FALSE(Node("//r:rule"));
  EXPECT_TRUE(Node("//tt:rule"));
}

TEST_F(TheSearchContextOfAProfile, IsMadeForAParsedFile) {
  const tests::TemporaryDirectory directory;
  ASSERT_TRUE(m_profile.ParseFile(directory.Write("profile.xml", ProfileText("<tt:rule/>"))));
  EXPECT_TRUE(Node("//tt:rule"));
}

TEST_F(TheSearchContextOfAProfile, IsMadeForAParsedBuffer) {
  const std::string text = ProfileText("<tt:rule/>");
  ASSERT_TRUE(m_profile.ParseString(text.data(), text.size()));
  EXPECT_TRUE(Node("//tt:rule"));
}

TEST_F(TheSearchContextOfAProfile, MayBeMadeAgainAtAnyTime) {
  Parse("<tt:rule/><ka:eventSink/>");
  EXPECT_TRUE(m_profile.CreateSearchContext());
  EXPECT_TRUE(m_profile.CreateSearchContext());
  EXPECT_TRUE(Node("//tt:rule"));
  EXPECT_TRUE(Node("//ka:eventSink"));
}

TEST_F(TheSearchContextOfAProfile, IsNotMadeForAClosedProfile) {
  EXPECT_FALSE(m_profile.CreateSearchContext());
  Parse("<tt:rule/>");
  m_profile.Close();
  EXPECT_FALSE(m_profile.CreateSearchContext());
}

TEST_F(TheSearchContextOfAProfile, IsGoneAfterAFailedParse) {
  Parse("<tt:rule/>");
  EXPECT_FALSE(m_profile.ParseString("<profile>"));
  EXPECT_FALSE(m_profile.CreateSearchContext());
}

TEST_F(TheSearchContextOfAProfile, MakesNoDifferenceToUnprefixedPaths) {
  Parse("<a/><tt:a/>");
  EXPECT_TRUE(Node("/profile/a"));
  EXPECT_EQ(1U, tests::All(m_profile, "//a").size());
}

/// A profile that counts how often it is asked for its search context.
class CountingProfile : public ProfileDoc {
 public:
  bool CreateSearchContext() override {
    ++m_made;
    return ProfileDoc::CreateSearchContext();
  }

  int m_made = 0;
};

TEST(AProfile, MakesItsSearchContextOncePerGoodParse) {
  CountingProfile profile;
  EXPECT_EQ(0, profile.m_made);
  EXPECT_TRUE(profile.ParseString(ProfileText("")));
  EXPECT_EQ(1, profile.m_made);
  EXPECT_FALSE(profile.ParseString("<profile>"));
  EXPECT_EQ(1, profile.m_made);
}

TEST(TwoProfiles, AreIndependent) {
  ProfileDoc first;
  ProfileDoc second;
  ASSERT_TRUE(first.ParseString(ProfileText("<tt:rule Type='A'/>")));
  ASSERT_TRUE(second.ParseString(ProfileText("<tt:rule Type='A'/>")));
  EXPECT_EQ(1, first.DeleteRules("A"));
  first.Close();
  EXPECT_EQ(1U, tests::Owned(second.SelectRules("A")).size());
}

}  // namespace
}  // namespace analytics
