#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using tests::NodePtr;
using tests::RootTag;

/// Simple items of one rule, read as text.
class ASimpleItem : public tests::ProfileTest {
 protected:
  /// Opens a profile with one rule that has these parameters.
  void ParseRule(const std::string& parameters) {
    Parse("<tt:rule><tt:Parameters>" + parameters + "</tt:Parameters></tt:rule>");
    m_rule = Node("tt:rule");
    m_parameters = Node("tt:rule/tt:Parameters");
  }

  std::string Read(const std::string& name) {
    return m_profile.GetSimpleItemValue(name, m_rule.get(), true);
  }

  NodePtr m_rule;
  NodePtr m_parameters;
};

TEST_F(ASimpleItem, GivesItsValue) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/><tt:SimpleItem Name='b' Value='two'/>");
  EXPECT_EQ("two", Read("b"));
}

TEST_F(ASimpleItem, IsReadFromItsParametersWithTheShortPath) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  EXPECT_EQ("1", m_profile.GetSimpleItemValue("a", m_parameters.get(), false));
}

TEST_F(ASimpleItem, IsNotFoundFromItsRuleWithTheShortPath) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  EXPECT_EQ("", m_profile.GetSimpleItemValue("a", m_rule.get(), false));
}

TEST_F(ASimpleItem, IsNotFoundFromItsParametersWithTheFullPath) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  EXPECT_EQ("", m_profile.GetSimpleItemValue("a", m_parameters.get(), true));
}

TEST_F(ASimpleItem, TakesTheFullPathUnlessToldOtherwise) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  EXPECT_EQ("1", m_profile.GetSimpleItemValue("a", m_rule.get()));
}

TEST_F(ASimpleItem, IsLookedUpFromTheRootWithoutContext) {
  ParseWhole(RootTag("tt:rule") + "<tt:Parameters><tt:SimpleItem Name='a' Value='7'/>" +
             "</tt:Parameters></tt:rule>");
  EXPECT_EQ("7", m_profile.GetSimpleItemValue("a", nullptr));
  EXPECT_EQ("7", m_profile.GetSimpleItemValue("a", nullptr, true));
  EXPECT_EQ(7, m_profile.GetSimpleItemValue("a", 5, nullptr, true));
}

TEST_F(ASimpleItem, OfARootParametersElementIsReadWithoutContext) {
  ParseWhole(RootTag("tt:Parameters") + "<tt:SimpleItem Name='a' Value='7'/></tt:Parameters>");
  EXPECT_EQ("7", m_profile.GetSimpleItemValue("a", nullptr, false));
  EXPECT_EQ(7, m_profile.GetSimpleItemValue("a", 5, nullptr, false));
}

TEST_F(ASimpleItem, MayHaveANameOfAnyLength) {
  for (std::size_t length = 1; length <= 400; ++length) {
    const std::string name(length, 'n');
    ParseRule("<tt:SimpleItem Name='" + name + "n' Value='1'/><tt:SimpleItem Name='" + name +
              "' Value='2'/>");
    EXPECT_EQ("2", Read(name)) << length;
  }
}

TEST_F(ASimpleItem, IsNotReadThroughAnEmptyContext) {
  ParseWhole(RootTag("tt:rule") + "<tt:Parameters><tt:SimpleItem Name='a' Value='7'/>" +
             "</tt:Parameters></tt:rule>");
  DocumentNode empty;
  EXPECT_EQ("", m_profile.GetSimpleItemValue("a", &empty, true));
  EXPECT_EQ(5, m_profile.GetSimpleItemValue("a", 5, &empty, true));
}

TEST_F(ASimpleItem, OfAnotherRuleIsNotRead) {
  Parse(
      "<tt:rule Type='A'><tt:Parameters/></tt:rule>"
      "<tt:rule Type='B'><tt:Parameters><tt:SimpleItem Name='a' Value='1'/></tt:Parameters>"
      "</tt:rule>");
  const NodePtr ruleA(m_profile.SelectRule("A"));
  const NodePtr ruleB(m_profile.SelectRule("B"));
  EXPECT_EQ("", m_profile.GetSimpleItemValue("a", ruleA.get(), true));
  EXPECT_EQ("1", m_profile.GetSimpleItemValue("a", ruleB.get(), true));
}

TEST_F(ASimpleItem, OfAnEngineIsReadAlike) {
  Parse(
      "<tt:engine><tt:Parameters><tt:SimpleItem Name='a' Value='1'/></tt:Parameters>"
      "</tt:engine>");
  const NodePtr engine(m_profile.SelectEngine(""));
  EXPECT_EQ("1", m_profile.GetSimpleItemValue("a", engine.get(), true));
}

TEST_F(ASimpleItem, ThatIsMissingGivesEmptyText) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  EXPECT_EQ("", Read("b"));
}

TEST_F(ASimpleItem, WithoutValueGivesEmptyText) {
  ParseRule("<tt:SimpleItem Name='a' value='1'>1</tt:SimpleItem>");
  EXPECT_EQ("", Read("a"));
}

// The query compares "Name" in no namespace; what is then read has its local name alone.
TEST_F(ASimpleItem, HasTheFirstValueOfAnyNamespace) {
  ParseRule("<tt:SimpleItem Name='a' tt:Value='1' Value='2'/>");
  EXPECT_EQ("1", Read("a"));
}

TEST_F(ASimpleItem, WithAnEmptyValueGivesEmptyText) {
  ParseRule("<tt:SimpleItem Name='a' Value=''/>");
  EXPECT_EQ("", Read("a"));
}

TEST_F(ASimpleItem, KeepsBlanksOfItsValue) {
  ParseRule("<tt:SimpleItem Name='a' Value=' 1 2 '/>");
  EXPECT_EQ(" 1 2 ", Read("a"));
}

TEST_F(ASimpleItem, HasItsEntitiesReplaced) {
  ParseRule("<tt:SimpleItem Name='a' Value='&lt;&amp;&quot;&apos;&#xe4;&#10;'/>");
  EXPECT_EQ("<&\"'\xc3\xa4\n", Read("a"));
}

TEST_F(ASimpleItem, OfANameThatOccursTwiceIsTheFirst) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/><tt:SimpleItem Name='a' Value='2'/>");
  EXPECT_EQ("1", Read("a"));
}

TEST_F(ASimpleItem, OfANameThatOccursTwiceIsTheFirstEvenWithoutValue) {
  ParseRule("<tt:SimpleItem Name='a'/><tt:SimpleItem Name='a' Value='2'/>");
  EXPECT_EQ("", Read("a"));
}

TEST_F(ASimpleItem, IsFoundInASecondParametersElement) {
  Parse(
      "<tt:rule><tt:Parameters/><x/><tt:Parameters><tt:SimpleItem Name='a' Value='1'/>"
      "</tt:Parameters></tt:rule>");
  const NodePtr rule(m_profile.SelectRule(""));
  EXPECT_EQ("1", m_profile.GetSimpleItemValue("a", rule.get(), true));
}

TEST_F(ASimpleItem, WithoutNameHasNotTheEmptyName) {
  ParseRule("<tt:SimpleItem Value='1'/><tt:SimpleItem Name='' Value='2'/>");
  EXPECT_EQ("2", Read(""));
}

/// How an item that is named in one way, as an attribute's text, is found by a name.
struct NameRow {
  const char* name;
  const char* written;
  const char* asked;
  bool found;
};

const NameRow kNames[] = {
    {"SameText", "Sensitivity", "Sensitivity", true},
    {"OtherCase", "Sensitivity", "sensitivity", false},
    {"AskedIsAPrefix", "Sensitivity", "Sens", false},
    {"AskedIsLonger", "Sens", "Sensitivity", false},
    {"BlankBehind", "Sens", "Sens ", false},
    {"DoubleQuote", "12&quot;", "12\"", true},
    {"TwoDoubleQuotes", "&quot;a&quot;", "\"a\"", true},
    {"SingleQuote", "O&apos;Brien", "O'Brien", false},
    {"TwoSingleQuotes", "&apos;a&apos;", "'a'", false},
    {"Ampersand", "a&amp;b", "a&b", true},
    {"NotAscii", "L\xc3\xa4nge", "L\xc3\xa4nge", true},
    {"Empty", "", "", true},
    {"AnyName", "a", "*", false},
};

class TheNameOfAnItem : public ASimpleItem, public testing::WithParamInterface<NameRow> {};

TEST_P(TheNameOfAnItem, IsComparedExactly) {
  ParseRule("<tt:SimpleItem Name='" + std::string(GetParam().written) + "' Value='here'/>");
  EXPECT_EQ(GetParam().found ? "here" : "", Read(GetParam().asked));
}

TEST_P(TheNameOfAnItem, IsComparedExactlyForIntegersToo) {
  ParseRule("<tt:SimpleItem Name='" + std::string(GetParam().written) + "' Value='12'/>");
  EXPECT_EQ(GetParam().found ? 12 : 5,
            m_profile.GetSimpleItemValue(GetParam().asked, 5, m_rule.get(), true));
}

INSTANTIATE_TEST_SUITE_P(Names, TheNameOfAnItem, testing::ValuesIn(kNames),
                         [](const testing::TestParamInfo<NameRow>& row) { return row.param.name; });

TEST_F(ASimpleItem, NameIsPutInWithoutEscapingBetweenSingleQuotes) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/><tt:SimpleItem Name='b' Value='2'/>");
  EXPECT_EQ("2", Read("x' or @Name='b"));
  EXPECT_EQ("", Read("x\" or @Name=\"b"));
}

/// Parameters that hold something like the item "a" without holding it.
struct LookalikeRow {
  const char* name;
  const char* content;  // of the rule
};

const LookalikeRow kLookalikes[] = {
    {"VendorItem", "<tt:Parameters><ka:SimpleItem Name='a' Value='1'/></tt:Parameters>"},
    {"ItemInNoNamespace", "<tt:Parameters><SimpleItem Name='a' Value='1'/></tt:Parameters>"},
    {"VendorParameters", "<ka:Parameters><tt:SimpleItem Name='a' Value='1'/></ka:Parameters>"},
    {"WithoutParameters", "<tt:SimpleItem Name='a' Value='1'/>"},
    {"DeeperItem", "<tt:Parameters><x><tt:SimpleItem Name='a' Value='1'/></x></tt:Parameters>"},
    {"DeeperParameters",
     "<x><tt:Parameters><tt:SimpleItem Name='a' Value='1'/></tt:Parameters></x>"},
    {"ElementItem", "<tt:Parameters><tt:ElementItem Name='a' Value='1'/></tt:Parameters>"},
    {"LowerCaseTag", "<tt:Parameters><tt:simpleItem Name='a' Value='1'/></tt:Parameters>"},
    {"NameOfTheNamespace", "<tt:Parameters><tt:SimpleItem tt:Name='a' Value='1'/></tt:Parameters>"},
};

class ALookalike : public ASimpleItem, public testing::WithParamInterface<LookalikeRow> {};

TEST_P(ALookalike, OfASimpleItemIsNotRead) {
  Parse("<tt:rule>" + std::string(GetParam().content) + "</tt:rule>");
  const NodePtr rule(m_profile.SelectRule(""));
  ASSERT_TRUE(rule);
  EXPECT_EQ("", m_profile.GetSimpleItemValue("a", rule.get(), true));
  EXPECT_EQ(5, m_profile.GetSimpleItemValue("a", 5, rule.get(), true));
}

INSTANTIATE_TEST_SUITE_P(Rows, ALookalike, testing::ValuesIn(kLookalikes),
                         [](const testing::TestParamInfo<LookalikeRow>& row) {
                           return row.param.name;
                         });

}  // namespace
}  // namespace analytics
