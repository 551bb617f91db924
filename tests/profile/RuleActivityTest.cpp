#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A rule with these attributes whose item "Active" has this value.
std::string Rule(const std::string& attributes, const std::string& active) {
  return "<tt:rule " + attributes + "><tt:Parameters><tt:SimpleItem Name='Active' Value='" +
         active + "'/></tt:Parameters></tt:rule>";
}

/// What a rule of type A holds, and whether that makes it active.
struct Row {
  const char* name;
  const char* content;
  bool active;
};

const Row kRows[] = {
    {"NoParameters", "", false},
    {"NoItem", "<tt:Parameters/>", false},
    {"NoValue", "<tt:Parameters><tt:SimpleItem Name='Active'/></tt:Parameters>", false},
    {"OtherItem", "<tt:Parameters><tt:SimpleItem Name='Act' Value='1'/></tt:Parameters>", false},
    {"LongerName", "<tt:Parameters><tt:SimpleItem Name='ActiveCells' Value='1'/></tt:Parameters>",
     false},
    {"LowerCaseName", "<tt:Parameters><tt:SimpleItem Name='active' Value='1'/></tt:Parameters>",
     false},
    {"ItemOutsideParameters", "<tt:SimpleItem Name='Active' Value='1'/>", false},
    {"VendorItem", "<tt:Parameters><ka:SimpleItem Name='Active' Value='1'/></tt:Parameters>",
     false},
    {"ElementItem", "<tt:Parameters><tt:ElementItem Name='Active' Value='1'/></tt:Parameters>",
     false},
    {"FirstOfTwoItemsCounts",
     "<tt:Parameters><tt:SimpleItem Name='Active' Value='0'/>"
     "<tt:SimpleItem Name='Active' Value='1'/></tt:Parameters>",
     false},
    {"OneAmongOtherItems",
     "<tt:Parameters><tt:SimpleItem Name='a' Value='0'/>"
     "<tt:SimpleItem Name='Active' Value='1'/></tt:Parameters>",
     true},
};

class ARuleThatHolds : public tests::ProfileTest, public testing::WithParamInterface<Row> {};

TEST_P(ARuleThatHolds, IsActiveAsTheTableSays) {
  Parse("<tt:rule Type='A'>" + std::string(GetParam().content) + "</tt:rule>");
  EXPECT_EQ(GetParam().active, m_profile.RuleIsActive("A"));
  EXPECT_EQ(GetParam().active ? 1U : 0U, m_profile.ActiveRules().size());
}

INSTANTIATE_TEST_SUITE_P(Rows, ARuleThatHolds, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

/// A value of the item "Active", and whether that makes the rule active.
struct ValueRow {
  const char* name;
  const char* value;
  bool active;
};

const ValueRow kValues[] = {
    {"One", "1", true},
    {"Two", "2", true},
    {"MinusOne", "-1", true},
    {"PlusOne", "+1", true},
    {"LeadingBlank", " 7", true},
    {"TrailingText", "1abc", true},
    {"OutOfRange", "99999999999", true},
    {"OutOfRangeBelow", "-99999999999", true},
    {"TwoTo32", "4294967296", true},
    {"Zero", "0", false},
    {"MinusZero", "-0", false},
    {"ZeroWithFraction", "0.9", false},
    {"Hexadecimal", "0x1", false},
    {"Empty", "", false},
    {"Blanks", "  ", false},
    {"TextTrueIsNotActive", "true", false},
    {"TextYesIsNotActive", "yes", false},
    {"NumberBehindText", "is 1", false},
};

class TheActiveItem : public tests::ProfileTest, public testing::WithParamInterface<ValueRow> {};

TEST_P(TheActiveItem, DecidesByItsLeadingInteger) {
  Parse(Rule("Type='A'", GetParam().value));
  EXPECT_EQ(GetParam().active, m_profile.RuleIsActive("A"));
}

TEST_P(TheActiveItem, DecidesByItsLeadingIntegerForTheListToo) {
  Parse(Rule("Type='A'", GetParam().value));
  EXPECT_EQ(GetParam().active ? 1U : 0U, m_profile.ActiveRules().size());
}

INSTANTIATE_TEST_SUITE_P(Values, TheActiveItem, testing::ValuesIn(kValues),
                         [](const testing::TestParamInfo<ValueRow>& row) {
                           return row.param.name;
                         });

using ARuleType = tests::ProfileTest;

TEST_F(ARuleType, IsActiveIfItsFirstRuleIs) {
  Parse(Rule("Type='A'", "1") + Rule("Type='A'", "0"));
  EXPECT_TRUE(m_profile.RuleIsActive("A"));
}

TEST_F(ARuleType, IsActiveIfItsLastRuleIs) {
  Parse(Rule("Type='A'", "0") + Rule("Type='A'", "0") + Rule("Type='A'", "1"));
  EXPECT_TRUE(m_profile.RuleIsActive("A"));
}

TEST_F(ARuleType, StaysActiveWhereValuesWouldCancelOut) {
  Parse(Rule("Type='A'", "1") + Rule("Type='A'", "-1"));
  EXPECT_TRUE(m_profile.RuleIsActive("A"));
}

TEST_F(ARuleType, IsNotActiveIfNoneOfItsRulesIs) {
  Parse(Rule("Type='A'", "0") + Rule("Type='A'", "0"));
  EXPECT_FALSE(m_profile.RuleIsActive("A"));
}

TEST_F(ARuleType, IsNotActiveThroughRulesOfOtherTypes) {
  Parse(Rule("Type='A'", "0") + Rule("Type='B'", "1") + Rule("", "1"));
  EXPECT_FALSE(m_profile.RuleIsActive("A"));
}

TEST_F(ARuleType, WithoutRulesIsNotActive) {
  Parse(Rule("Type='A'", "1"));
  EXPECT_FALSE(m_profile.RuleIsActive("B"));
}

TEST_F(ARuleType, WithADoubleQuoteIsNotActive) {
  Parse(Rule("Type='A&quot;'", "1"));
  EXPECT_FALSE(m_profile.RuleIsActive("A\""));
}

TEST_F(ARuleType, ThatIsEmptyIsActiveAsSoonAsAnyRuleIs) {
  Parse(Rule("Type='A'", "0") + Rule("Type='B'", "1"));
  EXPECT_TRUE(m_profile.RuleIsActive(""));
}

TEST_F(ARuleType, ThatIsEmptyIsActiveThroughARuleWithoutType) {
  Parse(Rule("Type='A'", "0") + Rule("", "1"));
  EXPECT_TRUE(m_profile.RuleIsActive(""));
}

TEST_F(ARuleType, ThatIsEmptyIsNotActiveIfNoRuleIs) {
  Parse(Rule("Type='A'", "0") + Rule("", "0"));
  EXPECT_FALSE(m_profile.RuleIsActive(""));
}

TEST_F(ARuleType, IsNotActiveThroughEnginesOrRulesOfTheVendor) {
  Parse(
      "<tt:engine Type='A'><tt:Parameters><tt:SimpleItem Name='Active' Value='1'/>"
      "</tt:Parameters></tt:engine><ka:rule Type='A'><tt:Parameters>"
      "<tt:SimpleItem Name='Active' Value='1'/></tt:Parameters></ka:rule>");
  EXPECT_FALSE(m_profile.RuleIsActive("A"));
  EXPECT_FALSE(m_profile.RuleIsActive(""));
}

TEST_F(ARuleType, BecomesActiveWhenItsItemIsSet) {
  Parse(Rule("Type='A'", "0"));
  const tests::NodePtr rule(m_profile.SelectRule("A"));
  EXPECT_TRUE(m_profile.SetSimpleItemValue("Active", 1, rule.get()));
  EXPECT_TRUE(m_profile.RuleIsActive("A"));
}

using TheActiveRules = tests::ProfileTest;

TEST_F(TheActiveRules, AreTheirTypesEachOnce) {
  Parse(Rule("Type='A'", "1") + Rule("Type='B'", "1") + Rule("Type='A'", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("A", "B"));
}

TEST_F(TheActiveRules, ComeInTheOrderOfTheirFirstActiveRule) {
  Parse(Rule("Type='A'", "0") + Rule("Type='B'", "1") + Rule("Type='A'", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("B", "A"));
}

TEST_F(TheActiveRules, AreNotSorted) {
  Parse(Rule("Type='C'", "1") + Rule("Type='A'", "1") + Rule("Type='B'", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("C", "A", "B"));
}

TEST_F(TheActiveRules, LeaveOutTypesOfInactiveRules) {
  Parse(Rule("Type='A'", "0") + Rule("Type='B'", "true") + Rule("Type='C'", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("C"));
}

TEST_F(TheActiveRules, LeaveOutRulesWithoutType) {
  Parse(Rule("", "1") + Rule("Type=''", "1") + Rule("Type='A'", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("A"));
}

TEST_F(TheActiveRules, AreTypesAndNotNames) {
  Parse(Rule("Name='first' Type='A'", "1") + Rule("Name='second'", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("A"));
}

TEST_F(TheActiveRules, TellTypesApartByCaseAndBlanks) {
  Parse(Rule("Type='a'", "1") + Rule("Type='A'", "1") + Rule("Type='a '", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("a", "A", "a "));
}

TEST_F(TheActiveRules, KeepTypesThatNoFilterCouldFind) {
  Parse(Rule("Type='A&quot;'", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("A\""));
}

TEST_F(TheActiveRules, HaveTypesOfAnyNamespaceThatNoFilterCompares) {
  Parse(Rule("tt:Type='A'", "1"));
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("A"));
  EXPECT_FALSE(m_profile.RuleIsActive("A"));
}

TEST_F(TheActiveRules, AreFoundAtAnyDepth) {
  Parse("<a>" + Rule("Type='A'", "1") + "</a><tt:rule Type='C'>" + Rule("Type='B'", "1") +
        "</tt:rule>");
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("A", "B"));
}

TEST_F(TheActiveRules, AreNoneInAProfileWithoutRules) {
  Parse(
      "<tt:engine Type='A'><tt:Parameters><tt:SimpleItem Name='Active' Value='1'/>"
      "</tt:Parameters></tt:engine>");
  EXPECT_THAT(m_profile.ActiveRules(), IsEmpty());
}

}  // namespace
}  // namespace analytics
