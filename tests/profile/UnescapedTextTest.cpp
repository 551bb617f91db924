#include "tests/profile/ProfileTest.h"
#include "tests/profile/Vocabulary.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::NodePtr;
using tests::Properties;

constexpr char kProfile[] =
    "<tt:rule n='1' Type='A'><tt:Parameters><tt:SimpleItem n='2' Name='a' Value='1'/>"
    "</tt:Parameters></tt:rule>"
    "<tt:rule n='3' Type='B'><tt:Parameters><tt:SimpleItem n='4' Name='b' Value='2'/>"
    "<tt:SimpleItem Name='Active' Value='1'/></tt:Parameters></tt:rule>"
    "<tt:rule n='5'/><tt:engine n='6'/><other n='7'/>";

/// A profile that is asked with texts which complete the expression that they are put into.
class ATextThatCompletesItsQuery : public tests::ProfileTest {
 protected:
  ATextThatCompletesItsQuery() {
    Parse(kProfile);
    m_rule.reset(m_profile.SelectRule("A"));
  }

  std::string ValueOf(const std::string& path) {
    const NodePtr node = Node(path);
    return node ? node->GetProperty("Value") : "nothing at " + path;
  }

  std::vector<std::string> All(const std::string& path) {
    return Properties(m_profile.SelectNodes(path), "n");
  }

  NodePtr m_rule;  // of type A
};

TEST_F(ATextThatCompletesItsQuery, DeletesEveryRule) {
  EXPECT_EQ(3, m_profile.DeleteRules("x\" or \"1\"=\"1"));
  EXPECT_THAT(All("//tt:rule"), IsEmpty());
  EXPECT_THAT(All("//tt:engine"), ElementsAre("6"));
}

TEST_F(ATextThatCompletesItsQuery, DeletesWhatIsNoRule) {
  EXPECT_EQ(2, m_profile.DeleteRules("x\"] | //tt:engine | //*[@n=\"7"));
  EXPECT_THAT(All("/profile/*"), ElementsAre("1", "3", "5"));
}

TEST_F(ATextThatCompletesItsQuery, SelectsWhatIsOfNoSuchKind) {
  const char type[] = "x\"] | //tt:SimpleItem[@Name=\"a";
  EXPECT_THAT(Properties(m_profile.SelectRules(type), "n"), ElementsAre("2"));
  EXPECT_THAT(Properties(m_profile.SelectEngines(type), "n"), ElementsAre("2"));
  EXPECT_THAT(Properties(m_profile.SelectEventSinks(type), "n"), ElementsAre("2"));
}

TEST_F(ATextThatCompletesItsQuery, SelectsAnotherFirstElement) {
  const NodePtr rule(m_profile.SelectRule("x\"] | //*[@n=\"7"));
  const NodePtr engine(m_profile.SelectEngine("x\"] | //*[@n=\"7"));
  EXPECT_EQ("7", rule->GetProperty("n"));
  EXPECT_EQ("7", engine->GetProperty("n"));
}

TEST_F(ATextThatCompletesItsQuery, HasATypeCountAsActive) {
  EXPECT_FALSE(m_profile.RuleIsActive("A"));
  EXPECT_TRUE(m_profile.RuleIsActive("A\" or @Type=\"B"));
}

TEST_F(ATextThatCompletesItsQuery, ReadsAnItemOfAnotherRule) {
  const char name[] = "x'] | //tt:SimpleItem[@Name='b";
  EXPECT_EQ("2", m_profile.GetSimpleItemValue(name, m_rule.get(), true));
  EXPECT_EQ(2, m_profile.GetSimpleItemValue(name, 5, m_rule.get(), true));
}

TEST_F(ATextThatCompletesItsQuery, WritesToAnotherElement) {
  const char name[] = "x'] | //*[@Type='B";
  EXPECT_TRUE(m_profile.SetSimpleItemValue(name, 99, m_rule.get()));
  EXPECT_EQ("99", ValueOf("//tt:rule[@Type='B']"));
  EXPECT_TRUE(m_profile.SetSimpleItemValue(name, "text", m_rule.get()));
  EXPECT_EQ("text", ValueOf("//tt:rule[@Type='B']"));
}

TEST_F(ATextThatCompletesItsQuery, WritesToAnotherElementInsteadOfAddingAnItem) {
  const NodePtr parameters = Node("tt:rule/tt:Parameters");
  const std::string before = parameters->DumpToString();
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("x'] | //*[@n='7", 99, parameters.get()));
  EXPECT_EQ("99", ValueOf("other"));
  EXPECT_EQ(before, parameters->DumpToString());
}

TEST_F(ATextThatCompletesItsQuery, MayBeATagOfTheSettings) {
  tests::InFreshProcess([this] {
    tests::Vocabulary vocabulary;
    vocabulary.rule = "rule | //tt:engine";
    ASSERT_NO_FATAL_FAILURE(tests::Load(vocabulary));
    EXPECT_THAT(Properties(m_profile.SelectRules(""), "n"), ElementsAre("1", "3", "5", "6"));
    // A type is compared in the second half of this expression alone.
    EXPECT_EQ(3, m_profile.DeleteRules("none"));
  });
}

TEST_F(ATextThatCompletesItsQuery, MayBeAPrefixOfTheSettings) {
  tests::InFreshProcess([this] {
    tests::Vocabulary vocabulary;
    vocabulary.onvifPrefix = "other | //tt";
    ASSERT_NO_FATAL_FAILURE(tests::Load(vocabulary));
    EXPECT_THAT(Properties(m_profile.SelectRules(""), "n"), ElementsAre("1", "3", "5", "7"));
  });
}

}  // namespace
}  // namespace analytics
