#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using tests::NodePtr;
using tests::RootTag;

/// Simple items of one rule that are set.
class ASetItem : public tests::ProfileTest {
 protected:
  void ParseRule(const std::string& parameters) {
    Parse("<tt:rule><tt:Parameters>" + parameters + "</tt:Parameters></tt:rule>");
    m_rule = Node("tt:rule");
  }

  /// The text of all parameters as they stand in the tree.
  std::string Parameters() {
    const std::string dump = Dump("//tt:Parameters");
    return dump.substr(sizeof "<tt:Parameters>" - 1,
                       dump.size() - sizeof "<tt:Parameters></tt:Parameters>" + 1);
  }

  template <typename Value>
  bool Set(const std::string& name, const Value& value) {
    return m_profile.SetSimpleItemValue(name, value, m_rule.get());
  }

  NodePtr m_rule;
};

TEST_F(ASetItem, HasTheNewText) {
  ParseRule("<tt:SimpleItem Name='a' Value='old'/>");
  EXPECT_TRUE(Set("a", std::string("new")));
  EXPECT_EQ("<tt:SimpleItem Name=\"a\" Value=\"new\"/>", Parameters());
}

TEST_F(ASetItem, HasTheNewIntegerInDecimal) {
  ParseRule("<tt:SimpleItem Name='a' Value='old'/>");
  EXPECT_TRUE(Set("a", -42));
  EXPECT_EQ("<tt:SimpleItem Name=\"a\" Value=\"-42\"/>", Parameters());
}

TEST_F(ASetItem, IsTheOnlyThingChanged) {
  ParseRule(
      "<tt:SimpleItem Value='1' Name='a' x='2'>text</tt:SimpleItem> <!-- c -->"
      "<tt:SimpleItem Name='b' Value='3'/><tt:ElementItem Name='a' Value='4'/>");
  EXPECT_TRUE(Set("a", 9));
  EXPECT_EQ(
      "<tt:SimpleItem Value=\"9\" Name=\"a\" x=\"2\">text</tt:SimpleItem> <!-- c -->"
      "<tt:SimpleItem Name=\"b\" Value=\"3\"/><tt:ElementItem Name=\"a\" Value=\"4\"/>",
      Parameters());
}

TEST_F(ASetItem, GainsAValueIfItHadNone) {
  ParseRule("<tt:SimpleItem Name='a'/>");
  EXPECT_TRUE(Set("a", 1));
  EXPECT_EQ("<tt:SimpleItem Name=\"a\" Value=\"1\"/>", Parameters());
}

TEST_F(ASetItem, KeepsAnEmptyValueAsAttribute) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  EXPECT_TRUE(Set("a", std::string()));
  EXPECT_EQ("<tt:SimpleItem Name=\"a\" Value=\"\"/>", Parameters());
  EXPECT_EQ(5, m_profile.GetSimpleItemValue("a", 5, m_rule.get(), true));
}

TEST_F(ASetItem, IsTheFirstOfItsName) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/><tt:SimpleItem Name='a' Value='2'/>");
  EXPECT_TRUE(Set("a", 9));
  EXPECT_EQ("<tt:SimpleItem Name=\"a\" Value=\"9\"/><tt:SimpleItem Name=\"a\" Value=\"2\"/>",
            Parameters());
}

TEST_F(ASetItem, ThatIsMissingIsNotCreated) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  const std::string before = m_profile.DumpToString();
  EXPECT_FALSE(Set("b", 1));
  EXPECT_FALSE(Set("b", std::string("text")));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(ASetItem, WithASingleQuoteInItsNameIsNotFound) {
  ParseRule("<tt:SimpleItem Name='O&apos;Brien' Value='1'/>");
  const std::string before = m_profile.DumpToString();
  EXPECT_FALSE(Set("O'Brien", 2));
  EXPECT_FALSE(Set("O'Brien", std::string("2")));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(ASetItem, WithADoubleQuoteInItsNameIsFound) {
  ParseRule("<tt:SimpleItem Name='12&quot;' Value='1'/>");
  EXPECT_TRUE(Set("12\"", 2));
  EXPECT_EQ(2, m_profile.GetSimpleItemValue("12\"", 5, m_rule.get(), true));
}

TEST_F(ASetItem, IsNotFoundFromItsParameters) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  const NodePtr parameters = Node("//tt:Parameters");
  EXPECT_FALSE(m_profile.SetSimpleItemValue("a", 9, parameters.get()));
  EXPECT_FALSE(m_profile.SetSimpleItemValue("a", "9", parameters.get()));
  EXPECT_EQ("<tt:SimpleItem Name=\"a\" Value=\"1\"/>", Parameters());
}

TEST_F(ASetItem, IsLookedUpFromTheRootUnlessAContextIsGiven) {
  ParseWhole(RootTag("tt:rule") + "<tt:Parameters><tt:SimpleItem Name='a' Value='7'/>" +
             "</tt:Parameters></tt:rule>");
  EXPECT_TRUE(m_profile.SetSimpleItemValue("a", 8));
  EXPECT_EQ(8, m_profile.GetSimpleItemValue("a", 5, nullptr, true));
  EXPECT_TRUE(m_profile.SetSimpleItemValue("a", "nine", nullptr));
  EXPECT_EQ("nine", m_profile.GetSimpleItemValue("a", nullptr));
}

TEST_F(ASetItem, IsNotFoundThroughAnEmptyContext) {
  ParseWhole(RootTag("tt:rule") + "<tt:Parameters><tt:SimpleItem Name='a' Value='7'/>" +
             "</tt:Parameters></tt:rule>");
  DocumentNode empty;
  EXPECT_FALSE(m_profile.SetSimpleItemValue("a", 8, &empty));
  EXPECT_FALSE(m_profile.SetSimpleItemValue("a", "8", &empty));
  EXPECT_EQ("7", m_profile.GetSimpleItemValue("a", nullptr, true));
}

TEST_F(ASetItem, GainsAValueBesideThatOfANamespaceWhichIsStillRead) {
  ParseRule("<tt:SimpleItem Name='a' tt:Value='1'/>");
  EXPECT_TRUE(Set("a", 2));
  EXPECT_EQ("<tt:SimpleItem Name=\"a\" tt:Value=\"1\" Value=\"2\"/>", Parameters());
  EXPECT_EQ("1", m_profile.GetSimpleItemValue("a", m_rule.get(), true));
}

TEST_F(ASetItem, MayBelongToAnEngine) {
  Parse(
      "<tt:engine><tt:Parameters><tt:SimpleItem Name='a' Value='1'/></tt:Parameters>"
      "</tt:engine>");
  const NodePtr engine(m_profile.SelectEngine(""));
  EXPECT_TRUE(m_profile.SetSimpleItemValue("a", 2, engine.get()));
  EXPECT_EQ(2, m_profile.GetSimpleItemValue("a", 5, engine.get(), true));
}

TEST_F(ASetItem, OfAnotherRuleIsNotTouched) {
  Parse(
      "<tt:rule Type='A'><tt:Parameters/></tt:rule>"
      "<tt:rule Type='B'><tt:Parameters><tt:SimpleItem Name='a' Value='1'/></tt:Parameters>"
      "</tt:rule>");
  const NodePtr ruleA(m_profile.SelectRule("A"));
  EXPECT_FALSE(m_profile.SetSimpleItemValue("a", 9, ruleA.get()));
}

/// A text and how the tree writes it.
struct TextRow {
  const char* name;
  const char* text;
  const char* written;
};

const TextRow kTexts[] = {
    {"Plain", "abc", "abc"},
    {"Blanks", "  ", "  "},
    {"AngleBrackets", "<a>", "&lt;a&gt;"},
    {"Ampersand", "a&b", "a&amp;b"},
    {"EntityIsNotDecoded", "&lt;", "&amp;lt;"},
    {"DoubleQuote", "12\"", "12&quot;"},
    {"SingleQuote", "O'Brien", "O'Brien"},
    {"LineBreakAndTab", "a\n\tb", "a&#10;&#9;b"},
    {"NotAscii", "\xc3\xa4", "\xc3\xa4"},
};

class TheTextOfASetItem : public ASetItem, public testing::WithParamInterface<TextRow> {};

TEST_P(TheTextOfASetItem, IsWrittenSoThatItIsReadBack) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  EXPECT_TRUE(Set("a", std::string(GetParam().text)));
  ASSERT_TRUE(m_profile.ParseString(m_profile.DumpToString()));
  const NodePtr rule(m_profile.SelectRule(""));
  EXPECT_EQ(GetParam().text, m_profile.GetSimpleItemValue("a", rule.get(), true));
}

TEST_P(TheTextOfASetItem, IsEscapedInTheTree) {
  ParseWhole("<?xml version='1.0' encoding='UTF-8'?>" + RootTag("tt:rule") +
             "<tt:Parameters><tt:SimpleItem Name='a' Value='1'/></tt:Parameters></tt:rule>");
  EXPECT_TRUE(m_profile.SetSimpleItemValue("a", std::string(GetParam().text)));
  EXPECT_THAT(m_profile.DumpToString(),
              testing::HasSubstr("Value=\"" + std::string(GetParam().written) + "\""));
}

INSTANTIATE_TEST_SUITE_P(Texts, TheTextOfASetItem, testing::ValuesIn(kTexts),
                         [](const testing::TestParamInfo<TextRow>& row) { return row.param.name; });

/// An integer and its text.
struct IntegerRow {
  const char* name;
  int value;
  const char* text;
};

const IntegerRow kIntegers[] = {
    {"Zero", 0, "0"},
    {"Positive", 1234567, "1234567"},
    {"Negative", -42, "-42"},
    {"Largest", 2147483647, "2147483647"},
    {"Smallest", -2147483647 - 1, "-2147483648"},
};

class TheIntegerOfASetItem : public ASetItem, public testing::WithParamInterface<IntegerRow> {};

TEST_P(TheIntegerOfASetItem, IsWrittenInPlainDecimal) {
  ParseRule("<tt:SimpleItem Name='a' Value='1'/>");
  EXPECT_TRUE(Set("a", GetParam().value));
  EXPECT_EQ(GetParam().text, m_profile.GetSimpleItemValue("a", m_rule.get(), true));
  EXPECT_EQ(GetParam().value, m_profile.GetSimpleItemValue("a", 5, m_rule.get(), true));
}

INSTANTIATE_TEST_SUITE_P(Integers, TheIntegerOfASetItem, testing::ValuesIn(kIntegers),
                         [](const testing::TestParamInfo<IntegerRow>& row) {
                           return row.param.name;
                         });

}  // namespace
}  // namespace analytics
