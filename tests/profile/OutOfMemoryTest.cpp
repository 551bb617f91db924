#include "tests/profile/ProfileTest.h"
#include "tests/support/FailingAllocation.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using tests::NodePtr;
using tests::Owned;
using tests::WithEachAllocationFailing;

// Names beyond what a string holds without an allocation of its own.
const std::string kType = "a type that is rather long: FieldDetector";
const std::string kOtherType = "another type that is rather long: LineDetector";
const std::string kItem = "an item whose name is rather long";
const std::string kNewItem = "a new item whose name is rather long";
const std::string kValue = "80 and a text that is rather long";

std::string Rule(const std::string& type) {
  return "<tt:rule Type='" + type + "'><tt:Parameters><tt:SimpleItem Name='" + kItem + "' Value='" +
         kValue + "'/><tt:SimpleItem Name='Active' Value='1'/></tt:Parameters>" + "</tt:rule>";
}

/// A profile that is short of memory in each of its operations.
class AProfileWithoutMemory : public tests::ProfileTest {
 protected:
  AProfileWithoutMemory() {
    Parse(Rule(kType) + Rule(kOtherType) + Rule(kType) + "<tt:engine Type='" + kType +
          "'/><ka:eventSink Type='" + kType + "'/>");
    m_rule = Node("tt:rule");
    m_parameters = Node("tt:rule/tt:Parameters");
    m_text = m_profile.DumpToString();
  }

  /// What the profile holds has not changed, and it is still answering.
  void ExpectUnharmed() {
    EXPECT_EQ(m_text, m_profile.DumpToString());
    EXPECT_THAT(m_profile.ActiveRules(), ElementsAre(kType, kOtherType));
  }

  NodePtr m_rule;
  NodePtr m_parameters;
  std::string m_text;
};

TEST_F(AProfileWithoutMemory, SelectsARule) {
  NodePtr rule;
  WithEachAllocationFailing([&] { rule.reset(m_profile.SelectRule(kType)); });
  ASSERT_TRUE(rule);
  EXPECT_EQ(kType, rule->GetProperty("Type"));
  ExpectUnharmed();
}

TEST_F(AProfileWithoutMemory, SelectsAnEngine) {
  NodePtr engine;
  WithEachAllocationFailing([&] { engine.reset(m_profile.SelectEngine(kType)); });
  ASSERT_TRUE(engine);
  EXPECT_EQ(kType, engine->GetProperty("Type"));
  ExpectUnharmed();
}

/// A selection of several elements and how many there are.
struct Selection {
  const char* name;
  std::vector<DocumentNode*> (ProfileDoc::*select)(const std::string&);
  std::size_t count;
};

const Selection kSelections[] = {
    {"Rules", &ProfileDoc::SelectRules, 2},
    {"Engines", &ProfileDoc::SelectEngines, 1},
    {"EventSinks", &ProfileDoc::SelectEventSinks, 1},
};

class ASelectionWithoutMemory : public AProfileWithoutMemory,
                                public testing::WithParamInterface<Selection> {};

TEST_P(ASelectionWithoutMemory, LosesNoNode) {
  std::vector<DocumentNode*> nodes;
  WithEachAllocationFailing([&] { nodes = (m_profile.*GetParam().select)(kType); });
  EXPECT_THAT(Owned(nodes), SizeIs(GetParam().count));
  ExpectUnharmed();
}

INSTANTIATE_TEST_SUITE_P(Selections, ASelectionWithoutMemory, testing::ValuesIn(kSelections),
                         [](const testing::TestParamInfo<Selection>& row) {
                           return row.param.name;
                         });

TEST_F(AProfileWithoutMemory, DeletesRulesAllAtOnceOrNotAtAll) {
  int deleted = 0;
  WithEachAllocationFailing([&] { deleted += m_profile.DeleteRules(kType); });
  EXPECT_EQ(2, deleted);
  EXPECT_THAT(m_profile.ActiveRules(), ElementsAre(kOtherType));
}

TEST_F(AProfileWithoutMemory, BuildsItsQueries) {
  std::string simpleItems, elementItems;
  WithEachAllocationFailing([&] { simpleItems = ProfileDoc::SimpleItemQry(true); });
  WithEachAllocationFailing([&] { elementItems = ProfileDoc::ElementItemQry(true); });
  EXPECT_EQ("tt:Parameters/tt:SimpleItem", simpleItems);
  EXPECT_EQ("tt:Parameters/tt:ElementItem", elementItems);
}

TEST_F(AProfileWithoutMemory, ReadsAnItemAsText) {
  std::string value;
  WithEachAllocationFailing(
      [&] { value = m_profile.GetSimpleItemValue(kItem, m_rule.get(), true); });
  EXPECT_EQ(kValue, value);
  ExpectUnharmed();
}

TEST_F(AProfileWithoutMemory, ReadsAnItemAsInteger) {
  int value = 0;
  WithEachAllocationFailing(
      [&] { value = m_profile.GetSimpleItemValue(kItem, 5, m_rule.get(), true); });
  EXPECT_EQ(80, value);
  ExpectUnharmed();
}

TEST_F(AProfileWithoutMemory, SetsAnItemToAnInteger) {
  bool set = false;
  WithEachAllocationFailing([&] { set = m_profile.SetSimpleItemValue(kItem, 7, m_rule.get()); });
  EXPECT_TRUE(set);
  EXPECT_EQ("7", m_profile.GetSimpleItemValue(kItem, m_rule.get(), true));
}

TEST_F(AProfileWithoutMemory, SetsAnItemToAText) {
  bool set = false;
  WithEachAllocationFailing(
      [&] { set = m_profile.SetSimpleItemValue(kItem, kNewItem, m_rule.get()); });
  EXPECT_TRUE(set);
  EXPECT_EQ(kNewItem, m_profile.GetSimpleItemValue(kItem, m_rule.get(), true));
}

TEST_F(AProfileWithoutMemory, AddsAnIntegerItemOnce) {
  WithEachAllocationFailing(
      [&] { m_profile.SetOrAddSimpleItemValue(kNewItem, 7, m_parameters.get()); });
  EXPECT_EQ("7", m_profile.GetSimpleItemValue(kNewItem, m_rule.get(), true));
  EXPECT_THAT(tests::All(m_profile, "tt:rule[1]/tt:Parameters/tt:SimpleItem"), SizeIs(3));
}

TEST_F(AProfileWithoutMemory, AddsATextItemOnce) {
  WithEachAllocationFailing(
      [&] { m_profile.SetOrAddSimpleItemValue(kNewItem, kValue, m_parameters.get()); });
  EXPECT_EQ(kValue, m_profile.GetSimpleItemValue(kNewItem, m_rule.get(), true));
  EXPECT_THAT(tests::All(m_profile, "tt:rule[1]/tt:Parameters/tt:SimpleItem"), SizeIs(3));
}

TEST_F(AProfileWithoutMemory, TellsWhetherARuleIsActive) {
  bool active = false;
  WithEachAllocationFailing([&] { active = m_profile.RuleIsActive(kType); });
  EXPECT_TRUE(active);
  ExpectUnharmed();
}

TEST_F(AProfileWithoutMemory, ListsTheActiveRules) {
  std::vector<std::string> types;
  WithEachAllocationFailing([&] { types = m_profile.ActiveRules(); });
  EXPECT_THAT(types, ElementsAre(kType, kOtherType));
  ExpectUnharmed();
}

}  // namespace
}  // namespace analytics
