#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/Calibration.h>
#include <analytics/ProfileDoc.h>
#include <analytics/Settings.h>

#include "tests/support/fakes/CallLog.h"

// These take the place of the library's in this program, which the library calls too.
namespace analytics {
namespace {

std::string Noted(const char* setting, const char* value) {
  fakes::CallLog::Instance().Note(setting);
  return value;
}

}  // namespace

std::string Settings::OnvifPrefix() { return Noted("OnvifPrefix", "tt"); }
std::string Settings::OnvifNs() { return Noted("OnvifNs", "urn:onvif"); }
std::string Settings::KestalPrefix() { return Noted("KestalPrefix", "ka"); }
std::string Settings::KestalNs() { return Noted("KestalNs", "urn:kestal"); }
std::string Settings::RuleTag() { return Noted("RuleTag", "rule"); }
std::string Settings::EngineTag() { return Noted("EngineTag", "engine"); }
std::string Settings::EventSinkTag() { return Noted("EventSinkTag", "eventSink"); }

namespace {

using testing::ElementsAre;

/// What is asked for by operations on a closed profile, which asks for it all the same.
class TheSettingsOfAQuery : public testing::Test {
 protected:
  void SetUp() override {
    ProfileDoc::SimpleItemQry(false);
    const std::vector<std::string> calls = Calls();
    if (std::find(calls.begin(), calls.end(), "OnvifPrefix") == calls.end())
      GTEST_SKIP() << "optimised as a whole, the library calls only its own";
    fakes::CallLog::Instance().Clear();
  }

  static std::vector<std::string> Calls() { return fakes::CallLog::Instance().Calls(); }

  ProfileDoc m_profile;
};

TEST_F(TheSettingsOfAQuery, ForOneRuleArePrefixBeforeTag) {
  m_profile.SelectRule("");
  EXPECT_THAT(Calls(), ElementsAre("OnvifPrefix", "RuleTag"));
}

TEST_F(TheSettingsOfAQuery, ForRulesArePrefixBeforeTag) {
  m_profile.SelectRules("A");
  EXPECT_THAT(Calls(), ElementsAre("OnvifPrefix", "RuleTag"));
}

TEST_F(TheSettingsOfAQuery, ForDeletedRulesArePrefixBeforeTag) {
  m_profile.DeleteRules("A");
  EXPECT_THAT(Calls(), ElementsAre("OnvifPrefix", "RuleTag"));
}

TEST_F(TheSettingsOfAQuery, ForRulesOfNoTypeToDeleteAreNone) {
  m_profile.DeleteRules("");
  EXPECT_THAT(Calls(), ElementsAre());
}

TEST_F(TheSettingsOfAQuery, ForOneEngineArePrefixBeforeTag) {
  m_profile.SelectEngine("A");
  EXPECT_THAT(Calls(), ElementsAre("OnvifPrefix", "EngineTag"));
}

TEST_F(TheSettingsOfAQuery, ForEnginesArePrefixBeforeTag) {
  m_profile.SelectEngines("");
  EXPECT_THAT(Calls(), ElementsAre("OnvifPrefix", "EngineTag"));
}

TEST_F(TheSettingsOfAQuery, ForEventSinksArePrefixBeforeTag) {
  m_profile.SelectEventSinks("A");
  EXPECT_THAT(Calls(), ElementsAre("KestalPrefix", "EventSinkTag"));
}

TEST_F(TheSettingsOfAQuery, ForItemsAreOnePrefixForEachElement) {
  EXPECT_EQ("tt:Parameters/tt:SimpleItem", ProfileDoc::SimpleItemQry(true));
  EXPECT_EQ("tt:ElementItem", ProfileDoc::ElementItemQry(false));
  EXPECT_THAT(Calls(), ElementsAre("OnvifPrefix", "OnvifPrefix", "OnvifPrefix"));
}

TEST_F(TheSettingsOfAQuery, ForACalibrationAreAskedForInTheOrderOfTheNamesAndBeforeItsValues) {
  Calibration calibration;
  fakes::CallLog::Instance().Clear();
  m_profile.GetCalibration(calibration);
  std::vector<std::string> calls = Calls();
  calls.resize(13);  // the setters follow
  EXPECT_THAT(calls, ElementsAre("OnvifPrefix", "OnvifPrefix", "KestalPrefix",  // calibration
                                 "KestalPrefix",                                // near left object
                                 "KestalPrefix", "OnvifPrefix",                 // near width
                                 "KestalPrefix", "OnvifPrefix",                 // far width
                                 "KestalPrefix",                                // height
                                 "Calibration::NearLeftSize()", "Calibration::NearWidth()",
                                 "Calibration::FarWidth()", "Calibration::PhysicalHeight()"));
}

TEST_F(TheSettingsOfAQuery, AreBoundPrefixBeforeUri) {
  ASSERT_TRUE(m_profile.ParseString("<a/>"));
  EXPECT_THAT(Calls(), ElementsAre("OnvifPrefix", "OnvifNs", "KestalPrefix", "KestalNs"));
}

}  // namespace
}  // namespace analytics
