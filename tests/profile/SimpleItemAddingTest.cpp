#include "tests/profile/ProfileTest.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using testing::HasSubstr;
using tests::NodePtr;
using tests::RootTag;

/// Simple items that are set or, where there is none, added.
class AnAddedItem : public tests::ProfileTest {
 protected:
  void ParseParameters(const std::string& content) {
    Parse("<tt:Parameters>" + content + "</tt:Parameters>");
    m_parameters = Node("tt:Parameters");
  }

  template <typename Value>
  bool Add(const std::string& name, const Value& value) {
    return m_profile.SetOrAddSimpleItemValue(name, value, m_parameters.get());
  }

  std::string Parameters() { return Dump("tt:Parameters"); }

  NodePtr m_parameters;
};

TEST_F(AnAddedItem, HasItsNameBeforeItsText) {
  ParseParameters("");
  EXPECT_TRUE(Add("a", std::string("text")));
  EXPECT_EQ("<tt:Parameters><tt:SimpleItem Name=\"a\" Value=\"text\"/></tt:Parameters>",
            Parameters());
}

TEST_F(AnAddedItem, HasItsNameBeforeItsInteger) {
  ParseParameters("");
  EXPECT_TRUE(Add("a", -42));
  EXPECT_EQ("<tt:Parameters><tt:SimpleItem Name=\"a\" Value=\"-42\"/></tt:Parameters>",
            Parameters());
}

TEST_F(AnAddedItem, HasItsNameBeforeItsValueInASavedProfile) {
  const tests::TemporaryDirectory directory;
  ParseParameters("");
  EXPECT_TRUE(Add("a", 1));
  ASSERT_TRUE(m_profile.SaveToFile(directory.PathOf("profile.xml")));
  EXPECT_THAT(tests::FileText(directory.PathOf("profile.xml")),
              HasSubstr("<tt:SimpleItem Name=\"a\" Value=\"1\"/>"));
}

TEST_F(AnAddedItem, IsFoundAtOnce) {
  ParseParameters("");
  EXPECT_TRUE(Add("a", 80));
  EXPECT_EQ(80, m_profile.GetSimpleItemValue("a", 5, m_parameters.get(), false));
}

TEST_F(AnAddedItem, StandsBehindAllOtherContent) {
  ParseParameters("<tt:SimpleItem Name='b' Value='1'/>text<x/>");
  EXPECT_TRUE(Add("a", 2));
  EXPECT_EQ(
      "<tt:Parameters><tt:SimpleItem Name=\"b\" Value=\"1\"/>text<x/>"
      "<tt:SimpleItem Name=\"a\" Value=\"2\"/></tt:Parameters>",
      Parameters());
}

TEST_F(AnAddedItem, IsUpdatedByASecondCall) {
  ParseParameters("");
  EXPECT_TRUE(Add("a", 1));
  EXPECT_TRUE(Add("a", 2));
  EXPECT_TRUE(Add("a", std::string("three")));
  EXPECT_EQ("<tt:Parameters><tt:SimpleItem Name=\"a\" Value=\"three\"/></tt:Parameters>",
            Parameters());
}

TEST_F(AnAddedItem, IsNotAddedWhereTheItemExists) {
  ParseParameters("<tt:SimpleItem Value='1' Name='a'/><tt:SimpleItem Value='2' Name='a'/>");
  EXPECT_TRUE(Add("a", 3));
  EXPECT_EQ(
      "<tt:Parameters><tt:SimpleItem Value=\"3\" Name=\"a\"/>"
      "<tt:SimpleItem Value=\"2\" Name=\"a\"/></tt:Parameters>",
      Parameters());
}

TEST_F(AnAddedItem, MayHaveAnEmptyValue) {
  ParseParameters("");
  EXPECT_TRUE(Add("a", std::string()));
  EXPECT_EQ("<tt:Parameters><tt:SimpleItem Name=\"a\" Value=\"\"/></tt:Parameters>", Parameters());
}

TEST_F(AnAddedItem, MayHaveAnEmptyNameAndIsFoundByIt) {
  ParseParameters("");
  EXPECT_TRUE(Add("", 1));
  EXPECT_TRUE(Add("", 2));
  EXPECT_EQ("<tt:Parameters><tt:SimpleItem Name=\"\" Value=\"2\"/></tt:Parameters>", Parameters());
}

TEST_F(AnAddedItem, HasItsTextsEscaped) {
  ParseParameters("");
  EXPECT_TRUE(Add("12\"", std::string("<&\"")));
  EXPECT_EQ(
      "<tt:Parameters><tt:SimpleItem Name=\"12&quot;\" Value=\"&lt;&amp;&quot;\"/>"
      "</tt:Parameters>",
      Parameters());
  EXPECT_EQ("<&\"", m_profile.GetSimpleItemValue("12\"", m_parameters.get(), false));
}

TEST_F(AnAddedItem, WithASingleQuoteInItsNameIsAddedAgainEachTime) {
  ParseParameters("");
  EXPECT_TRUE(Add("O'Brien", 1));
  EXPECT_TRUE(Add("O'Brien", std::string("2")));
  EXPECT_EQ(
      "<tt:Parameters><tt:SimpleItem Name=\"O'Brien\" Value=\"1\"/>"
      "<tt:SimpleItem Name=\"O'Brien\" Value=\"2\"/></tt:Parameters>",
      Parameters());
}

/// A name with which the query of an item finds nothing.
struct NameRow {
  const char* name;
  std::string asked;
};

const NameRow kUnfoundNames[] = {
    {"SingleQuote", "Driver's side"},
    {"TwoSingleQuotes", "'a'"},
    {"Nul", std::string("a\0b", 3)},
    {"ControlCharacter", "a\x01"},
};

class AnItemThatNoQueryFinds : public AnAddedItem, public testing::WithParamInterface<NameRow> {};

TEST_P(AnItemThatNoQueryFinds, IsAddedByEveryCall) {
  ParseParameters("");
  for (int call = 0; call < 5; ++call) {
    EXPECT_TRUE(Add(GetParam().asked, call));
    EXPECT_TRUE(Add(GetParam().asked, std::string("text")));
  }
  EXPECT_EQ(10U, tests::All(m_profile, "tt:Parameters/tt:SimpleItem").size());
}

INSTANTIATE_TEST_SUITE_P(Names, AnItemThatNoQueryFinds, testing::ValuesIn(kUnfoundNames),
                         [](const testing::TestParamInfo<NameRow>& row) { return row.param.name; });

TEST_F(AnAddedItem, TakesThePrefixOfItsParameters) {
  ParseWhole("<p xmlns:r='http://www.onvif.org/ver10/schema'><r:Parameters/></p>");
  m_parameters = Node("tt:Parameters");
  EXPECT_TRUE(Add("a", 1));
  EXPECT_EQ("<r:Parameters><r:SimpleItem Name=\"a\" Value=\"1\"/></r:Parameters>", Parameters());
}

TEST_F(AnAddedItem, TakesTheDefaultNamespaceOfItsParameters) {
  ParseWhole("<p xmlns='http://www.onvif.org/ver10/schema'><Parameters/></p>");
  m_parameters = Node("tt:Parameters");
  EXPECT_TRUE(Add("a", 1));
  EXPECT_TRUE(Add("a", 2));
  EXPECT_EQ("<Parameters><SimpleItem Name=\"a\" Value=\"2\"/></Parameters>", Parameters());
}

TEST_F(AnAddedItem, UnderParametersInNoNamespaceIsAddedAgainEachTime) {
  Parse("<Parameters/>");
  m_parameters = Node("Parameters");
  EXPECT_TRUE(Add("a", 1));
  EXPECT_TRUE(Add("a", 2));
  EXPECT_EQ(
      "<Parameters><SimpleItem Name=\"a\" Value=\"1\"/><SimpleItem Name=\"a\" Value=\"2\"/>"
      "</Parameters>",
      Dump("Parameters"));
}

TEST_F(AnAddedItem, StandsBesideTheParametersOfARuleGivenInTheirPlace) {
  Parse("<tt:rule><tt:Parameters><tt:SimpleItem Name='a' Value='1'/></tt:Parameters></tt:rule>");
  const NodePtr rule(m_profile.SelectRule(""));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 2, rule.get()));
  EXPECT_EQ(
      "<tt:rule><tt:Parameters><tt:SimpleItem Name=\"a\" Value=\"1\"/></tt:Parameters>"
      "<tt:SimpleItem Name=\"a\" Value=\"2\"/></tt:rule>",
      Dump("tt:rule"));
}

TEST_F(AnAddedItem, IsIndentedInTheDumpOfTheProfile) {
  ParseWhole(RootTag("tt:Parameters") + "</tt:Parameters>");
  const NodePtr root(m_profile.SelectRootNode());
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 1, root.get()));
  EXPECT_THAT(m_profile.DumpToString(),
              HasSubstr(">\n  <tt:SimpleItem Name=\"a\" Value=\"1\"/>\n</tt:Parameters>\n"));
}

TEST_F(AnAddedItem, WithoutParentReportsSuccessThoughNothingIsWritten) {
  ParseParameters("<tt:SimpleItem Name='a' Value='1'/>");
  const std::string before = m_profile.DumpToString();
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 2, nullptr));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", "2", nullptr));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 2));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", "2"));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(AnAddedItem, WithoutParentIsSetWhereTheRootHoldsIt) {
  ParseWhole(RootTag("tt:Parameters") + "<tt:SimpleItem Name='a' Value='1'/></tt:Parameters>");
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 2));
  EXPECT_EQ("2", m_profile.GetSimpleItemValue("a", nullptr, false));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", "three"));
  EXPECT_EQ("three", m_profile.GetSimpleItemValue("a", nullptr, false));
}

TEST_F(AnAddedItem, UnderAnEmptyNodeReportsSuccessThoughNothingIsWritten) {
  ParseWhole(RootTag("tt:Parameters") + "<tt:SimpleItem Name='a' Value='1'/></tt:Parameters>");
  const std::string before = m_profile.DumpToString();
  DocumentNode empty;
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 2, &empty));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", "2", &empty));
  EXPECT_EQ(nullptr, empty.Handle());
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(AnAddedItem, IsLookedForEvenUnderAnEmptyNode) {
  ParseParameters("<tt:SimpleItem Name='a' Value='1'/>");
  DocumentNode empty;
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("'] | //tt:SimpleItem[@Name='a", 2, &empty));
  EXPECT_EQ("<tt:Parameters><tt:SimpleItem Name=\"a\" Value=\"2\"/></tt:Parameters>", Parameters());
}

}  // namespace
}  // namespace analytics
