#include <libxml/xmlerror.h>

#include <analytics/Calibration.h>
#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "tests/profile/ProfileTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/fakes/CallLog.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

std::vector<std::string> Calls() { return fakes::CallLog::Instance().Calls(); }

/// Opens a rule with these parameters and gives the calls that reading its calibration makes.
std::vector<std::string> CallsOfReading(const std::string& parameters) {
  ProfileDoc profile;
  EXPECT_TRUE(profile.ParseString(tests::RootTag("tt:rule") + parameters + "</tt:rule>"));
  Calibration calibration;
  fakes::CallLog::Instance().Clear();
  EXPECT_TRUE(profile.GetCalibration(calibration));
  return Calls();
}

TEST(ReadingACalibration, AsksForAllValuesAndThenSetsTheFarWidthBeforeTheNearWidth) {
  tests::InFreshProcess([] {
    EXPECT_THAT(CallsOfReading(
                    "<tt:Parameters><tt:ElementItem Name='Calibration'><ka:Calibration>"
                    "<ka:ObjectAtNearLeft left='1' top='2' right='3' bottom='4'/>"
                    "<ka:NearWidth><tt:Point x='5' y='6'/><tt:Point x='7' y='8'/></ka:NearWidth>"
                    "<ka:FarWidth><tt:Point x='9' y='10'/><tt:Point x='11' y='12'/></ka:FarWidth>"
                    "<ka:PhysicalHeight>13</ka:PhysicalHeight>"
                    "</ka:Calibration></tt:ElementItem></tt:Parameters>"),
                ElementsAre("Calibration::NearLeftSize()", "Calibration::NearWidth()",
                            "Calibration::FarWidth()", "Calibration::PhysicalHeight()",
                            "Calibration::SetNearLeftSize((1,2),(3,4))",
                            "Calibration::SetFarWidth((9,10),(11,12))",
                            "Calibration::SetNearWidth((5,6),(7,8))",
                            "Calibration::SetPhysicalHeight(13)"));
  });
}

TEST(ReadingACalibration, CallsAllFourSettersAlsoWhereNothingIsFound) {
  tests::InFreshProcess([] {
    EXPECT_THAT(
        CallsOfReading(""),
        ElementsAre("Calibration::NearLeftSize()", "Calibration::NearWidth()",
                    "Calibration::FarWidth()", "Calibration::PhysicalHeight()",
                    "Calibration::SetNearLeftSize((0,0),(0,0))",
                    "Calibration::SetFarWidth((0,0),(0,0))",
                    "Calibration::SetNearWidth((0,0),(0,0))", "Calibration::SetPhysicalHeight(0)"));
  });
}

TEST(ReadingACalibration, CallsAllFourSettersAlsoForAClosedProfile) {
  tests::InFreshProcess([] {
    ProfileDoc profile;
    Calibration calibration;
    calibration.SetPhysicalHeight(13);
    calibration.SetFarWidth({{1, 2}, {3, 4}});
    EXPECT_TRUE(profile.GetCalibration(calibration));
    const std::vector<std::string> calls = Calls();
    ASSERT_GT(calls.size(), 4U);
    EXPECT_THAT(std::vector<std::string>(calls.end() - 4, calls.end()),
                ElementsAre("Calibration::SetNearLeftSize((0,0),(0,0))",
                            "Calibration::SetFarWidth((1,2),(3,4))",
                            "Calibration::SetNearWidth((0,0),(0,0))",
                            "Calibration::SetPhysicalHeight(13)"));
  });
}

/// Has each query that fails noted in the call log.
void NoteFailingQueries() {
  // Constant from libxml2 2.12 on.
  xmlSetStructuredErrorFunc(nullptr, [](void* /*context*/, auto* error) {
    fakes::CallLog::Instance().Note(error->str1 ? error->str1 : "another error");
  });
}

TEST(ReadingACalibration, LooksForItsPiecesBetweenGettersAndSetters) {
  tests::InFreshProcess([] {
    tests::UnboundProfile profile;
    ASSERT_TRUE(profile.ParseString("<rule/>"));
    Calibration calibration;
    NoteFailingQueries();
    EXPECT_TRUE(profile.GetCalibration(calibration));
    const std::vector<std::string> calls = Calls();
    ASSERT_GE(calls.size(), 12U);
    EXPECT_THAT(std::vector<std::string>(calls.end() - 12, calls.end() - 4),
                ElementsAre("Calibration::NearLeftSize()", "Calibration::NearWidth()",
                            "Calibration::FarWidth()", EndsWith("/ka:ObjectAtNearLeft"),
                            EndsWith("/ka:NearWidth/tt:Point"), EndsWith("/ka:FarWidth/tt:Point"),
                            "Calibration::PhysicalHeight()", EndsWith("/ka:PhysicalHeight")));
  });
}

}  // namespace
}  // namespace analytics
