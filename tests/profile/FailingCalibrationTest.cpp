#include <optional>
#include <ostream>
#include <string>
#include <tuple>

#include <gmock/gmock.h>

#include <analytics/Calibration.h>
#include <analytics/ProfileDoc.h>

#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"
#include "tests/support/Figures.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/fakes/EachCallFailing.h"

namespace analytics {
namespace {

using fakes::Fault;
using fakes::Thrown;

/// A profile whose calibration is read.
struct CalibrationRow {
  const char* name;
  const char* content;  // null for a closed profile
  bool isFound;
};

void PrintTo(const CalibrationRow& row, std::ostream* out) { *out << row.name; }

const CalibrationRow kCalibrations[] = {
    {"Whole",
     "<tt:Parameters><tt:ElementItem Name='Calibration'><ka:Calibration>"
     "<ka:ObjectAtNearLeft left='1' top='2' right='3' bottom='4'/>"
     "<ka:NearWidth><tt:Point x='5' y='6'/><tt:Point x='7' y='8'/></ka:NearWidth>"
     "<ka:FarWidth><tt:Point x='9' y='10'/><tt:Point x='11' y='12'/></ka:FarWidth>"
     "<ka:PhysicalHeight>13</ka:PhysicalHeight>"
     "</ka:Calibration></tt:ElementItem></tt:Parameters>",
     true},
    {"Missing", "<tt:Parameters/>", false},
    {"OfAClosedProfile", nullptr, false},
};

/// The setters in their order, with what the whole profile gives.
struct Setter {
  const char* start;  // of its call
  void (*set)(Calibration& calibration);
};

const Setter kSetters[] = {
    {"Calibration::SetNearLeftSize(",
     [](Calibration& calibration) {
       calibration.SetNearLeftSize({{1, 2}, {3, 4}});
     }},
    {"Calibration::SetFarWidth(",
     [](Calibration& calibration) {
       calibration.SetFarWidth({{9, 10}, {11, 12}});
     }},
    {"Calibration::SetNearWidth(",
     [](Calibration& calibration) {
       calibration.SetNearWidth({{5, 6}, {7, 8}});
     }},
    {"Calibration::SetPhysicalHeight(",
     [](Calibration& calibration) { calibration.SetPhysicalHeight(13); }},
};

class ACalibrationThatFails : public testing::TestWithParam<std::tuple<CalibrationRow, Thrown>> {
 protected:
  static const CalibrationRow& Row() { return std::get<0>(GetParam()); }
  static Thrown What() { return std::get<1>(GetParam()); }

  void Prepare() {
    const std::string content = Row().content ? Row().content : "";
    const std::string text = tests::RootTag("tt:rule") + content + "</tt:rule>";
    EXPECT_TRUE(m_profile.ParseString(text));
    if (!Row().content) m_profile.Close();
    m_text = m_profile.DumpToString();
    tests::FillCalibration(m_calibration.emplace());
  }

  void Read() { EXPECT_TRUE(m_profile.GetCalibration(*m_calibration)); }

  /// The calibration where a call has failed: what comes before it in the order of the setters has
  /// been set, and nothing where a getter has failed.
  static std::string Expected(const std::string& failed) {
    Calibration expected;
    tests::FillCalibration(expected);
    const bool isSet = failed.empty() || failed.rfind("Calibration::Set", 0) == 0;
    for (const Setter& setter : kSetters) {
      if (!isSet || !Row().isFound || failed.rfind(setter.start, 0) == 0) break;
      setter.set(expected);
    }
    return tests::CalibrationText(expected);
  }

  void Check(const Fault& fault) {
    SCOPED_TRACE("failing: " + (fault.call.empty() ? "nothing" : fault.call));
    EXPECT_EQ(!fault.call.empty(), fault.gotOut);
    EXPECT_TRUE(fault.call.empty() || fault.call == fault.calls.back()) << fault.calls.back();
    EXPECT_EQ(Expected(fault.call), tests::CalibrationText(*m_calibration));
    EXPECT_EQ(m_text, m_profile.DumpToString());
    Read();
    EXPECT_EQ(Expected(""), tests::CalibrationText(*m_calibration));
  }

 private:
  ProfileDoc m_profile;
  std::string m_text;
  std::optional<Calibration> m_calibration;
};

TEST_P(ACalibrationThatFails, HasWhatWasSetBeforeAndIsReadWholeByTheNextCall) {
  tests::InFreshProcess([this] {
    const int failed = fakes::WithEachPlatformCallFailing(
        What(), [this] { Prepare(); }, [this] { Read(); },
        [this](const Fault& fault) { Check(fault); });
    EXPECT_EQ(8, failed);
    tests::Count("platform_calls_failed", failed);
    if (What() == Thrown::kFailure) tests::Count("operations");
  });
}

std::string NameOf(const testing::TestParamInfo<ACalibrationThatFails::ParamType>& info) {
  const auto& [row, thrown] = info.param;
  return row.name + fakes::NameOf(thrown);
}

INSTANTIATE_TEST_SUITE_P(During, ACalibrationThatFails,
                         testing::Combine(testing::ValuesIn(kCalibrations),
                                          testing::ValuesIn(fakes::kAllThrown)),
                         NameOf);

}  // namespace
}  // namespace analytics
