#include <functional>

#include <analytics/Calibration.h>

#include "tests/profile/ProfileTest.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using tests::UnboundProfile;

TEST(ASimpleItemQuery, LeadsFromARuleThroughItsParameters) {
  EXPECT_EQ("tt:Parameters/tt:SimpleItem", ProfileDoc::SimpleItemQry(true));
}

TEST(ASimpleItemQuery, NamesTheItemsAloneForParametersAsContext) {
  EXPECT_EQ("tt:SimpleItem", ProfileDoc::SimpleItemQry(false));
}

TEST(AnElementItemQuery, LeadsFromARuleThroughItsParameters) {
  EXPECT_EQ("tt:Parameters/tt:ElementItem", ProfileDoc::ElementItemQry(true));
}

TEST(AnElementItemQuery, NamesTheItemsAloneForParametersAsContext) {
  EXPECT_EQ("tt:ElementItem", ProfileDoc::ElementItemQry(false));
}

/// An operation and the queries that it makes, in order.
struct Row {
  const char* name;
  std::function<void(ProfileDoc&)> operation;
  std::vector<std::string> queries;
};

Calibration& AnyCalibration() {
  static Calibration calibration;
  return calibration;
}

const Row kRows[] = {
    {"SelectRule",
     [](ProfileDoc& profile) { profile.SelectRule("A'B"); },
     {"//tt:rule[@Type=\"A'B\"]"}},
    {"SelectRuleOfAnyType", [](ProfileDoc& profile) { profile.SelectRule(""); }, {"//tt:rule"}},
    {"SelectRules",
     [](ProfileDoc& profile) { profile.SelectRules("A"); },
     {"//tt:rule[@Type=\"A\"]"}},
    {"SelectRulesOfAnyType", [](ProfileDoc& profile) { profile.SelectRules(""); }, {"//tt:rule"}},
    {"DeleteRules",
     [](ProfileDoc& profile) { profile.DeleteRules("A"); },
     {"//tt:rule[@Type=\"A\"]"}},
    {"DeleteRulesOfNoTypeAsksNothing", [](ProfileDoc& profile) { profile.DeleteRules(""); }, {}},
    {"SelectEngine",
     [](ProfileDoc& profile) { profile.SelectEngine("A"); },
     {"//tt:engine[@Type=\"A\"]"}},
    {"SelectEngines", [](ProfileDoc& profile) { profile.SelectEngines(""); }, {"//tt:engine"}},
    {"SelectEventSinks",
     [](ProfileDoc& profile) { profile.SelectEventSinks("A"); },
     {"//ka:eventSink[@Type=\"A\"]"}},
    {"SelectEventSinksOfAnyType",
     [](ProfileDoc& profile) { profile.SelectEventSinks(""); },
     {"//ka:eventSink"}},
    {"TextOfAnItem",
     [](ProfileDoc& profile) { profile.GetSimpleItemValue("a\"b", nullptr); },
     {"tt:Parameters/tt:SimpleItem[@Name='a\"b']"}},
    {"TextOfAnItemWithinParameters",
     [](ProfileDoc& profile) { profile.GetSimpleItemValue("a", nullptr, false); },
     {"tt:SimpleItem[@Name='a']"}},
    {"IntegerOfAnItem",
     [](ProfileDoc& profile) { profile.GetSimpleItemValue("a", 5, nullptr, true); },
     {"tt:Parameters/tt:SimpleItem[@Name='a']"}},
    {"IntegerOfAnItemWithinParameters",
     [](ProfileDoc& profile) { profile.GetSimpleItemValue("a", 5, nullptr, false); },
     {"tt:SimpleItem[@Name='a']"}},
    {"SetText",
     [](ProfileDoc& profile) { profile.SetSimpleItemValue("a", "b"); },
     {"tt:Parameters/tt:SimpleItem[@Name='a']"}},
    {"SetInteger",
     [](ProfileDoc& profile) { profile.SetSimpleItemValue("a", 5); },
     {"tt:Parameters/tt:SimpleItem[@Name='a']"}},
    {"SetOrAddText",
     [](ProfileDoc& profile) { profile.SetOrAddSimpleItemValue("a", "b"); },
     {"tt:SimpleItem[@Name='a']"}},
    {"SetOrAddInteger",
     [](ProfileDoc& profile) { profile.SetOrAddSimpleItemValue("a", 5); },
     {"tt:SimpleItem[@Name='a']"}},
    {"RuleIsActive",
     [](ProfileDoc& profile) { profile.RuleIsActive("A"); },
     {"//tt:rule[@Type=\"A\"]"}},
    {"ActiveRules", [](ProfileDoc& profile) { profile.ActiveRules(); }, {"//tt:rule"}},
    {"GetCalibrationPutsTheNameInDoubleQuotes",
     [](ProfileDoc& profile) { profile.GetCalibration(AnyCalibration()); },
     {"tt:Parameters/tt:ElementItem[@Name=\"Calibration\"]/ka:Calibration/ka:ObjectAtNearLeft",
      "tt:Parameters/tt:ElementItem[@Name=\"Calibration\"]/ka:Calibration/ka:NearWidth/tt:Point",
      "tt:Parameters/tt:ElementItem[@Name=\"Calibration\"]/ka:Calibration/ka:FarWidth/tt:Point",
      "tt:Parameters/tt:ElementItem[@Name=\"Calibration\"]/ka:Calibration/ka:PhysicalHeight"}},
};

class TheQueriesOf : public testing::TestWithParam<Row> {};

TEST_P(TheQueriesOf, HaveExactlyTheseTexts) {
  UnboundProfile profile;
  ASSERT_TRUE(profile.ParseString("<profile/>"));
  const tests::XmlErrors errors;
  GetParam().operation(profile);
  EXPECT_THAT(errors.Queries(), ElementsAreArray(GetParam().queries));
}

INSTANTIATE_TEST_SUITE_P(Operations, TheQueriesOf, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST(TheQueryOfARule, HasItsWholeTextHoweverLong) {
  UnboundProfile profile;
  ASSERT_TRUE(profile.ParseString("<profile/>"));
  for (std::string type = "A"; type.size() < 300; type += "A") {
    const tests::XmlErrors errors;
    profile.DeleteRules(type);
    EXPECT_THAT(errors.Queries(), ElementsAre("//tt:rule[@Type=\"" + type + "\"]"));
  }
}

}  // namespace
}  // namespace analytics
