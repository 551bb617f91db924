#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::NodePtr;
using tests::Owned;
using tests::Properties;

/// What is true of rules, engines and event sinks alike.
struct Kind {
  const char* name;
  const char* tag;      // as a profile with the usual prefixes writes it
  const char* strange;  // the same local name in the other of both namespaces
  const char* uri;      // of the namespace that it belongs to
  std::vector<DocumentNode*> (ProfileDoc::*select)(const std::string&);
};

constexpr char kOnvif[] = "http://www.onvif.org/ver10/schema";
constexpr char kKestal[] = "urn:kestal-com:schema:onvif:analytics:1";

const Kind kKinds[] = {
    {"Rules", "tt:rule", "ka:rule", kOnvif, &ProfileDoc::SelectRules},
    {"Engines", "tt:engine", "ka:engine", kOnvif, &ProfileDoc::SelectEngines},
    {"EventSinks", "ka:eventSink", "tt:eventSink", kKestal, &ProfileDoc::SelectEventSinks},
};

class AnElementSelection : public tests::ProfileTest, public testing::WithParamInterface<Kind> {
 protected:
  std::vector<DocumentNode*> Select(const std::string& type) {
    return (m_profile.*GetParam().select)(type);
  }

  /// Selects and gives the attribute "n", by which the tests tell elements apart.
  std::vector<std::string> Selected(const std::string& type) {
    return Properties(Select(type), "n");
  }

  /// An empty element of the kind.
  static std::string Element(const std::string& attributes) { return Start(attributes) + End(); }

  static std::string Start(const std::string& attributes) {
    return std::string("<") + GetParam().tag + " " + attributes + ">";
  }

  static std::string End() { return std::string("</") + GetParam().tag + ">"; }

  static std::string LocalName() {
    const std::string tag = GetParam().tag;
    return tag.substr(tag.find(':') + 1);
  }
};

TEST_P(AnElementSelection, GivesAllOfATypeInDocumentOrder) {
  Parse(Element("n='1' Type='A'") + Element("n='2' Type='B'") + Element("n='3' Type='A'"));
  EXPECT_THAT(Selected("A"), ElementsAre("1", "3"));
}

TEST_P(AnElementSelection, GivesAllOfAnyTypeForAnEmptyType) {
  Parse(Element("n='1' Type='B'") + Element("n='2'") + Element("n='3' Type=''") +
        Element("n='4' Type='A'"));
  EXPECT_THAT(Selected(""), ElementsAre("1", "2", "3", "4"));
}

TEST_P(AnElementSelection, LeavesOutElementsWithoutTypeWhereATypeIsAskedFor) {
  Parse(Element("n='1'") + Element("n='2' Type=''") + Element("n='3' Type='A'"));
  EXPECT_THAT(Selected("A"), ElementsAre("3"));
}

TEST_P(AnElementSelection, ReadsTheTypeOfNoOtherAttribute) {
  Parse(Element("n='1' type='A'") + Element("n='2' Name='A'") + Element("n='3' tt:Type='A'"));
  EXPECT_THAT(Selected("A"), IsEmpty());
}

TEST_P(AnElementSelection, FindsElementsAtAnyDepth) {
  Parse("<a><b>" + Element("n='1'") + "</b><tt:c>" + Start("n='2'") + "<d>" + Element("n='3'") +
        "</d>" + End() + "</tt:c></a>" + Element("n='4'"));
  EXPECT_THAT(Selected(""), ElementsAre("1", "2", "3", "4"));
}

TEST_P(AnElementSelection, FindsTheRootElementItself) {
  ParseWhole(tests::RootTag(std::string(GetParam().tag) + " n='1' Type='A'") + End());
  EXPECT_THAT(Selected("A"), ElementsAre("1"));
}

TEST_P(AnElementSelection, LeavesOutTheSameLocalNameInTheOtherNamespace) {
  Parse(std::string("<") + GetParam().strange + " Type='A'/>");
  EXPECT_THAT(Selected(""), IsEmpty());
}

TEST_P(AnElementSelection, LeavesOutTheSameLocalNameInNoNamespace) {
  Parse("<" + LocalName() + " Type='A'/>");
  EXPECT_THAT(Selected(""), IsEmpty());
}

TEST_P(AnElementSelection, LeavesOutOtherLocalNames) {
  Parse(std::string("<") + GetParam().tag + "s/><tt:other/><ka:other/>");
  EXPECT_THAT(Selected(""), IsEmpty());
}

TEST_P(AnElementSelection, FindsElementsWrittenWithAnyPrefix) {
  ParseWhole("<p xmlns:r='" + std::string(GetParam().uri) + "'><r:" + LocalName() + " n='1'/></p>");
  EXPECT_THAT(Selected(""), ElementsAre("1"));
}

TEST_P(AnElementSelection, FindsElementsInADefaultNamespace) {
  ParseWhole("<p xmlns='" + std::string(GetParam().uri) + "'><" + LocalName() + " n='1'/></p>");
  EXPECT_THAT(Selected(""), ElementsAre("1"));
}

TEST_P(AnElementSelection, IsNotMisledByTheUsualPrefixOfAnotherNamespace) {
  ParseWhole("<p xmlns:tt='urn:other' xmlns:ka='urn:another'>" + Element("n='1'") + "</p>");
  EXPECT_THAT(Selected(""), IsEmpty());
}

TEST_P(AnElementSelection, GivesNothingWhereNothingMatches) {
  Parse(Element("Type='A'"));
  EXPECT_THAT(Selected("B"), IsEmpty());
}

TEST_P(AnElementSelection, SeesTheTreeUnchangedAfterItsNodesAreDeleted) {
  Parse(Element("n='1' Type='A'"));
  const std::string before = m_profile.DumpToString();
  EXPECT_THAT(Selected("A"), ElementsAre("1"));
  EXPECT_THAT(Selected("A"), ElementsAre("1"));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_P(AnElementSelection, GivesNewNodesForTheSameElements) {
  Parse(Element("Type='A'"));
  const std::vector<NodePtr> first = Owned(Select(""));
  const std::vector<NodePtr> second = Owned(Select(""));
  ASSERT_EQ(1U, first.size());
  ASSERT_EQ(1U, second.size());
  EXPECT_NE(first[0], second[0]);
  EXPECT_EQ(first[0]->Handle(), second[0]->Handle());
}

TEST_P(AnElementSelection, GivesNodesThroughWhichTheProfileIsEdited) {
  Parse(Element("n='1' Type='A'"));
  for (const NodePtr& node : Owned(Select("A"))) node->SetProperty("Type", "B");
  EXPECT_THAT(Selected("A"), IsEmpty());
  EXPECT_THAT(Selected("B"), ElementsAre("1"));
}

TEST_P(AnElementSelection, ReadsTheProfileOfTheLastParse) {
  Parse(Element("n='1'"));
  Parse(Element("n='2'"));
  EXPECT_THAT(Selected(""), ElementsAre("2"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, AnElementSelection, testing::ValuesIn(kKinds),
                         [](const testing::TestParamInfo<Kind>& kind) { return kind.param.name; });

using AnEventSink = tests::ProfileTest;

TEST_F(AnEventSink, IsAnElementOfTheVendorUnlikeRulesAndEngines) {
  Parse("<ka:eventSink n='1'/><ka:rule n='2'/><ka:engine n='3'/>");
  EXPECT_THAT(Properties(m_profile.SelectEventSinks(""), "n"), ElementsAre("1"));
  EXPECT_THAT(Properties(m_profile.SelectRules(""), "n"), IsEmpty());
  EXPECT_THAT(Properties(m_profile.SelectEngines(""), "n"), IsEmpty());
}

TEST_F(AnEventSink, IsNotFoundInTheOnvifNamespace) {
  Parse("<tt:eventSink n='1'/>");
  EXPECT_THAT(Properties(m_profile.SelectEventSinks(""), "n"), IsEmpty());
}

}  // namespace
}  // namespace analytics
