#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::Properties;

class ARuleDeletion : public tests::ProfileTest {
 protected:
  /// Which rules the profile still has, told by their attribute "n".
  std::vector<std::string> Rules() { return Properties(m_profile.SelectRules(""), "n"); }
};

TEST_F(ARuleDeletion, TakesAllRulesOfTheTypeAndCountsThem) {
  Parse(
      "<tt:rule n='1' Type='A'/><tt:rule n='2' Type='B'/><tt:rule n='3' Type='A'/>"
      "<tt:rule n='4' Type='A'/>");
  EXPECT_EQ(3, m_profile.DeleteRules("A"));
  EXPECT_THAT(Properties(m_profile.SelectRules("A"), "n"), IsEmpty());
  EXPECT_THAT(Rules(), ElementsAre("2"));
}

TEST_F(ARuleDeletion, OfAnEmptyTypeDeletesNothing) {
  Parse("<tt:rule n='1' Type='A'/><tt:rule n='2'/><tt:rule n='3' Type=''/>");
  const std::string before = m_profile.DumpToString();
  EXPECT_EQ(0, m_profile.DeleteRules(""));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(ARuleDeletion, OfATypeThatNoRuleHasChangesNothing) {
  Parse("<tt:rule Type='A'/>");
  const std::string before = m_profile.DumpToString();
  EXPECT_EQ(0, m_profile.DeleteRules("B"));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(ARuleDeletion, OfATypeWithADoubleQuoteChangesNothing) {
  Parse("<tt:rule Type='A&quot;'/>");
  const std::string before = m_profile.DumpToString();
  EXPECT_EQ(0, m_profile.DeleteRules("A\""));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(ARuleDeletion, OfATypeWithASingleQuoteWorks) {
  Parse("<tt:rule Type='O&apos;Brien'/>");
  EXPECT_EQ(1, m_profile.DeleteRules("O'Brien"));
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(ARuleDeletion, TakesTheParametersOfTheRuleAlong) {
  Parse(
      "<a/><tt:rule Type='A'><tt:Parameters><tt:SimpleItem Name='x'/></tt:Parameters></tt:rule>"
      "<b/>");
  EXPECT_EQ(1, m_profile.DeleteRules("A"));
  EXPECT_FALSE(Node("//tt:SimpleItem"));
  EXPECT_TRUE(Node("a[following-sibling::*[1][self::b]]"));
}

TEST_F(ARuleDeletion, FindsRulesAtAnyDepth) {
  Parse("<a><b><tt:rule Type='A'/></b></a><tt:rule Type='A'/>");
  EXPECT_EQ(2, m_profile.DeleteRules("A"));
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(ARuleDeletion, CountsARuleWithinARuleOfTheSameType) {
  Parse("<tt:rule Type='A'><tt:rule Type='A'><tt:rule Type='A'/></tt:rule></tt:rule>");
  EXPECT_EQ(3, m_profile.DeleteRules("A"));
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(ARuleDeletion, LeavesEnginesAndEventSinksOfTheTypeAlone) {
  Parse("<tt:engine Type='A'/><ka:eventSink Type='A'/><ka:rule Type='A'/><rule Type='A'/>");
  const std::string before = m_profile.DumpToString();
  EXPECT_EQ(0, m_profile.DeleteRules("A"));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(ARuleDeletion, IsDoneOnce) {
  Parse("<tt:rule Type='A'/>");
  EXPECT_EQ(1, m_profile.DeleteRules("A"));
  EXPECT_EQ(0, m_profile.DeleteRules("A"));
}

TEST_F(ARuleDeletion, LeavesTheNodesOfOtherRulesUsable) {
  Parse("<tt:rule n='1' Type='A'/><tt:rule n='2' Type='B'/>");
  const tests::NodePtr other(m_profile.SelectRule("B"));
  EXPECT_EQ(1, m_profile.DeleteRules("A"));
  EXPECT_EQ("2", other->GetProperty("n"));
}

TEST_F(ARuleDeletion, OfARuleThatIsTheRootLeavesAProfileWithoutRoot) {
  ParseWhole(tests::RootTag("tt:rule Type='A'") + "</tt:rule>");
  EXPECT_EQ(1, m_profile.DeleteRules("A"));
  EXPECT_THAT(Rules(), IsEmpty());
  EXPECT_FALSE(m_profile.RuleIsActive(""));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("x", 1));
}

}  // namespace
}  // namespace analytics
