#include <tuple>

#include <gmock/gmock.h>

#include <analytics/ProfileDoc.h>
#include <analytics/Settings.h>

#include "tests/profile/ProfileDescription.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Nodes.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using tests::NodePtr;

std::string DataPath(const std::string& name) {
  return std::string(ANALYTICS_TEST_DATA) + "/onvif/" + name;
}

/// A document, under the settings that name its elements.
void OpenUnder(const std::string& settings, const std::string& document, ProfileDoc& profile) {
  ASSERT_TRUE(Settings::LoadSettings(DataPath(settings + ".ini")));
  ASSERT_TRUE(profile.ParseFile(DataPath(document + ".xml")));
}

std::string Expected(const std::string& document, const std::string& settings) {
  return tests::FileText(DataPath(document + "." + settings + ".expected"));
}

/// A document and the settings file that it is read under.
using Case = std::tuple<const char*, const char*>;

class ARealDocument : public testing::TestWithParam<Case> {
 protected:
  const std::string m_document = std::get<0>(GetParam());
  const std::string m_settings = std::get<1>(GetParam());
};

TEST_P(ARealDocument, IsReadAsAnotherParserReadsIt) {
  tests::InFreshProcess([this] {
    ProfileDoc profile;
    ASSERT_NO_FATAL_FAILURE(OpenUnder(m_settings, m_document, profile));
    EXPECT_EQ(Expected(m_document, m_settings), tests::Describe(profile));
  });
}

TEST_P(ARealDocument, IsReadTheSameAfterItWasDumped) {
  tests::InFreshProcess([this] {
    ProfileDoc profile;
    ASSERT_NO_FATAL_FAILURE(OpenUnder(m_settings, m_document, profile));
    ASSERT_TRUE(profile.ParseString(profile.DumpToString()));
    EXPECT_EQ(Expected(m_document, m_settings), tests::Describe(profile));
  });
}

TEST_P(ARealDocument, IsReadTheSameAfterItWasSaved) {
  const tests::TemporaryDirectory directory;
  tests::InFreshProcess([this, &directory] {
    ProfileDoc profile;
    ASSERT_NO_FATAL_FAILURE(OpenUnder(m_settings, m_document, profile));
    ASSERT_TRUE(profile.SaveToFile(directory.PathOf("saved.xml")));
    ASSERT_TRUE(profile.ParseFile(directory.PathOf("saved.xml")));
    EXPECT_EQ(Expected(m_document, m_settings), tests::Describe(profile));
  });
}

std::string NameOf(const testing::TestParamInfo<Case>& row) {
  return std::string(std::get<0>(row.param)) + "_" + std::get<1>(row.param);
}

INSTANTIATE_TEST_SUITE_P(
    DocumentsAndSettings, ARealDocument,
    testing::Combine(testing::Values("ExtendedProfile", "GetAnalyticsModulesResponse",
                                     "GetProfileResponse", "GetRulesResponse",
                                     "GetVideoAnalyticsConfigurationsResponse"),
                     testing::Values("schema", "service")),
    NameOf);

/// Documents whose rules and parameters are in one namespace, so that their items can be set.
class ARealProfile : public testing::TestWithParam<const char*> {
 protected:
  /// Sets one item of each rule that has parameters, or adds it.
  static void SetInAllRules(ProfileDoc& profile, const std::string& item, int value) {
    for (const NodePtr& rule : tests::Owned(profile.SelectRules(""))) {
      const NodePtr parameters = tests::First(profile, "tt:Parameters", rule.get());
      if (parameters) profile.SetOrAddSimpleItemValue(item, value, parameters.get());
    }
  }

  /// The types of the rules that have parameters, each once.
  static std::vector<std::string> Types(ProfileDoc& profile) {
    return profile.GetMultipleValues(
        "//tt:Rule[tt:Parameters]/@Type[not(. = ../preceding::tt:Rule[tt:Parameters]/@Type)]");
  }
};

TEST_P(ARealProfile, HasAllItsRulesActiveOnceEachIsActivated) {
  tests::InFreshProcess([] {
    ProfileDoc profile;
    ASSERT_NO_FATAL_FAILURE(OpenUnder("schema", GetParam(), profile));
    ASSERT_GE(Types(profile).size(), 2U);
    SetInAllRules(profile, "Active", 1);
    ASSERT_TRUE(profile.ParseString(profile.DumpToString()));
    EXPECT_EQ(Types(profile), profile.ActiveRules());
  });
}

TEST_P(ARealProfile, HasNoRuleActiveOnceNoneIsActivated) {
  tests::InFreshProcess([] {
    ProfileDoc profile;
    ASSERT_NO_FATAL_FAILURE(OpenUnder("schema", GetParam(), profile));
    SetInAllRules(profile, "Active", 1);
    EXPECT_TRUE(profile.RuleIsActive(""));
    SetInAllRules(profile, "Active", 0);
    EXPECT_FALSE(profile.RuleIsActive(""));
  });
}

TEST_P(ARealProfile, LosesItsRulesTypeByTypeAndNothingElse) {
  tests::InFreshProcess([] {
    ProfileDoc profile;
    ASSERT_NO_FATAL_FAILURE(OpenUnder("schema", GetParam(), profile));
    const std::size_t rules = tests::Owned(profile.SelectRules("")).size();
    const std::size_t elements = tests::All(profile, "//*[not(ancestor-or-self::tt:Rule)]").size();
    const std::size_t untyped = tests::All(profile, "//tt:Rule[not(@Type)]").size();
    int deleted = 0;
    for (const std::string& type : Types(profile)) deleted += profile.DeleteRules(type);
    EXPECT_EQ(rules - untyped, static_cast<std::size_t>(deleted));
    EXPECT_EQ(untyped, tests::Owned(profile.SelectRules("")).size());
    EXPECT_EQ(elements, tests::All(profile, "//*[not(ancestor-or-self::tt:Rule)]").size());
  });
}

INSTANTIATE_TEST_SUITE_P(Documents, ARealProfile,
                         testing::Values("ExtendedProfile", "GetProfileResponse",
                                         "GetVideoAnalyticsConfigurationsResponse"),
                         [](const testing::TestParamInfo<const char*>& row) {
                           return std::string(row.param);
                         });

}  // namespace
}  // namespace analytics
