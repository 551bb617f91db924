#include <functional>
#include <memory>

#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::IsPoint;
using tests::NodePtr;
using tests::ProfileText;
using tests::UnboundProfile;
using types::Point;

/// A profile on which the making of the search context fails.
class ProfileWithoutSearchContext : public ProfileDoc {
 public:
  bool CreateSearchContext() override { return false; }
};

std::string ActiveRule() {
  return ProfileText(
      "<tt:rule Type='A'><tt:Parameters><tt:SimpleItem Name='Active' Value='1'/></tt:Parameters>"
      "</tt:rule><tt:engine/><ka:eventSink/><tt:Point x='1' left='1'/><tt:Point x='2'/>");
}

std::unique_ptr<ProfileDoc> Closed() {
  auto profile = std::make_unique<ProfileDoc>();
  EXPECT_TRUE(profile->ParseString(ActiveRule()));
  profile->Close();
  return profile;
}

std::unique_ptr<ProfileDoc> FailedToParse() {
  auto profile = std::make_unique<ProfileDoc>();
  EXPECT_TRUE(profile->ParseString(ActiveRule()));
  EXPECT_FALSE(profile->ParseString("<profile>"));
  return profile;
}

std::unique_ptr<ProfileDoc> FailedToOpen() {
  auto profile = std::make_unique<ProfileDoc>();
  EXPECT_TRUE(profile->ParseString(ActiveRule()));
  EXPECT_FALSE(profile->ParseFile("/nonexistent/profile.xml"));
  return profile;
}

template <typename Profile>
std::unique_ptr<ProfileDoc> Parsed() {
  auto profile = std::make_unique<Profile>();
  EXPECT_TRUE(profile->ParseString(ActiveRule()));
  return profile;
}

/// A state in which no query of a profile finds anything.
struct State {
  const char* name;
  std::function<std::unique_ptr<ProfileDoc>()> make;
};

const State kStates[] = {
    {"NeverParsed", [] { return std::make_unique<ProfileDoc>(); }},
    {"Closed", Closed},
    {"FailedToParse", FailedToParse},
    {"FailedToOpen", FailedToOpen},
    {"WithoutSearchContext", Parsed<ProfileWithoutSearchContext>},
    {"WithoutPrefixes", Parsed<UnboundProfile>},
};

class AnUnusableProfile : public testing::TestWithParam<State> {
 protected:
  const std::unique_ptr<ProfileDoc> m_profile = GetParam().make();
};

TEST_P(AnUnusableProfile, GivesNoSingleElement) {
  EXPECT_EQ(nullptr, m_profile->SelectRule(""));
  EXPECT_EQ(nullptr, m_profile->SelectRule("A"));
  EXPECT_EQ(nullptr, m_profile->SelectEngine(""));
}

TEST_P(AnUnusableProfile, GivesNoElements) {
  EXPECT_THAT(m_profile->SelectRules(""), IsEmpty());
  EXPECT_THAT(m_profile->SelectRules("A"), IsEmpty());
  EXPECT_THAT(m_profile->SelectEngines(""), IsEmpty());
  EXPECT_THAT(m_profile->SelectEventSinks(""), IsEmpty());
}

TEST_P(AnUnusableProfile, DeletesNoRules) {
  const std::string before = m_profile->DumpToString();
  EXPECT_EQ(0, m_profile->DeleteRules("A"));
  EXPECT_EQ(0, m_profile->DeleteRules(""));
  EXPECT_EQ(before, m_profile->DumpToString());
}

TEST_P(AnUnusableProfile, HasNoSimpleItems) {
  EXPECT_EQ("", m_profile->GetSimpleItemValue("Active", nullptr));
  EXPECT_EQ("", m_profile->GetSimpleItemValue("Active", nullptr, false));
  EXPECT_EQ(5, m_profile->GetSimpleItemValue("Active", 5, nullptr, true));
  EXPECT_EQ(5, m_profile->GetSimpleItemValue("Active", 5, nullptr, false));
}

TEST_P(AnUnusableProfile, SetsNoSimpleItems) {
  EXPECT_FALSE(m_profile->SetSimpleItemValue("Active", 5));
  EXPECT_FALSE(m_profile->SetSimpleItemValue("Active", "5"));
}

TEST_P(AnUnusableProfile, ReportsSuccessForAnItemThatItCannotAdd) {
  const std::string before = m_profile->DumpToString();
  EXPECT_TRUE(m_profile->SetOrAddSimpleItemValue("Active", 5));
  EXPECT_TRUE(m_profile->SetOrAddSimpleItemValue("Active", "5"));
  EXPECT_EQ(before, m_profile->DumpToString());
}

TEST_P(AnUnusableProfile, HasNoActiveRules) {
  EXPECT_FALSE(m_profile->RuleIsActive("A"));
  EXPECT_FALSE(m_profile->RuleIsActive(""));
  EXPECT_THAT(m_profile->ActiveRules(), IsEmpty());
}

TEST_P(AnUnusableProfile, HasNoPoints) {
  std::vector<Point> points = {Point{8, 9}};
  EXPECT_FALSE(m_profile->GetPoints(points, "//tt:Point"));
  EXPECT_THAT(points, ElementsAre(IsPoint(8, 9)));
}

TEST_P(AnUnusableProfile, HasNoLinesOrRectangles) {
  Point pair[2] = {{5, 6}, {7, 8}};
  EXPECT_FALSE(m_profile->GetLine(pair, "//tt:Point"));
  EXPECT_FALSE(m_profile->GetRectangle(pair, "//tt:Point"));
  EXPECT_THAT(pair, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

TEST_P(AnUnusableProfile, LeavesACalibrationAsItWasAndReportsSuccess) {
  Calibration calibration;
  tests::FillCalibration(calibration);
  const std::string before = tests::CalibrationText(calibration);
  EXPECT_TRUE(m_profile->GetCalibration(calibration));
  EXPECT_EQ(before, tests::CalibrationText(calibration));
}

INSTANTIATE_TEST_SUITE_P(States, AnUnusableProfile, testing::ValuesIn(kStates),
                         [](const testing::TestParamInfo<State>& state) {
                           return state.param.name;
                         });

TEST(AnUnboundProfile, AddsAnItemItCannotFindAgainAndAgain) {
  UnboundProfile profile;
  ASSERT_TRUE(profile.ParseString(ProfileText("<tt:Parameters/>")));
  const NodePtr parameters = tests::First(profile, "*");
  EXPECT_TRUE(profile.SetOrAddSimpleItemValue("a", 1, parameters.get()));
  EXPECT_TRUE(profile.SetOrAddSimpleItemValue("a", "2", parameters.get()));
  EXPECT_EQ(
      "<tt:Parameters><tt:SimpleItem Name=\"a\" Value=\"1\"/>"
      "<tt:SimpleItem Name=\"a\" Value=\"2\"/></tt:Parameters>",
      parameters->DumpToString());
}

TEST(AProfileWithoutContext, IsOpenAllTheSame) {
  ProfileWithoutSearchContext profile;
  ASSERT_TRUE(profile.ParseString(ProfileText("<tt:rule/>")));
  EXPECT_TRUE(NodePtr(profile.SelectRootNode()));
  EXPECT_THAT(profile.DumpToString(), testing::HasSubstr("<tt:rule/>"));
}

TEST(AProfileWithoutContext, AddsAnItemByEveryCall) {
  ProfileWithoutSearchContext profile;
  ASSERT_TRUE(profile.ParseString(tests::RootTag("tt:Parameters") + "</tt:Parameters>"));
  const NodePtr parameters(profile.SelectRootNode());
  EXPECT_TRUE(profile.SetOrAddSimpleItemValue("a", 1, parameters.get()));
  EXPECT_TRUE(profile.SetOrAddSimpleItemValue("a", "2", parameters.get()));
  EXPECT_THAT(profile.DumpToString(),
              testing::HasSubstr("<tt:SimpleItem Name=\"a\" Value=\"1\"/>\n"
                                 "  <tt:SimpleItem Name=\"a\" Value=\"2\"/>"));
}

TEST(AProfileThatFailedToParse, WorksAgainAfterAGoodParse) {
  ProfileDoc profile;
  EXPECT_FALSE(profile.ParseString("<profile>"));
  ASSERT_TRUE(profile.ParseString(ActiveRule()));
  EXPECT_THAT(profile.ActiveRules(), ElementsAre("A"));
}

}  // namespace
}  // namespace analytics
