#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"
#include "tests/profile/Vocabulary.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::InFreshProcess;
using tests::NodePtr;
using tests::Properties;
using tests::Vocabulary;

/// Profiles under a settings file that names everything differently.
class ARenamedVocabulary : public tests::ProfileTest {
 protected:
  ARenamedVocabulary() {
    m_names.rule = "Rule";
    m_names.engine = "AnalyticsModule";
    m_names.eventSink = "Sink";
    m_names.onvifUri = "urn:o";
    m_names.onvifPrefix = "on";
    m_names.kestalUri = "urn:v";
    m_names.kestalPrefix = "ve";
  }

  /// Loads the settings and opens a profile whose prefixes o and v stand for their namespaces.
  void ParseRenamed(const std::string& content) {
    ASSERT_NO_FATAL_FAILURE(tests::Load(m_names));
    ParseWhole("<p xmlns:o='urn:o' xmlns:v='urn:v'>" + content + "</p>");
  }

  Vocabulary m_names;
};

TEST_F(ARenamedVocabulary, NamesTheRules) {
  InFreshProcess([this] {
    ParseRenamed("<o:Rule n='1' Type='A'/><o:rule n='2' Type='A'/><v:Rule n='3' Type='A'/>");
    EXPECT_THAT(Properties(m_profile.SelectRules(""), "n"), ElementsAre("1"));
    EXPECT_TRUE(NodePtr(m_profile.SelectRule("A")));
    EXPECT_EQ(1, m_profile.DeleteRules("A"));
  });
}

TEST_F(ARenamedVocabulary, NamesTheEngines) {
  InFreshProcess([this] {
    ParseRenamed("<o:engine n='1'/><o:AnalyticsModule n='2'/><v:AnalyticsModule n='3'/>");
    EXPECT_THAT(Properties(m_profile.SelectEngines(""), "n"), ElementsAre("2"));
    const NodePtr engine(m_profile.SelectEngine(""));
    ASSERT_TRUE(engine);
    EXPECT_EQ("2", engine->GetProperty("n"));
  });
}

TEST_F(ARenamedVocabulary, NamesTheEventSinks) {
  InFreshProcess([this] {
    ParseRenamed("<v:eventSink n='1'/><o:Sink n='2'/><v:Sink n='3'/>");
    EXPECT_THAT(Properties(m_profile.SelectEventSinks(""), "n"), ElementsAre("3"));
  });
}

TEST_F(ARenamedVocabulary, LeavesNothingToTheBuiltInNames) {
  InFreshProcess([this] {
    ASSERT_NO_FATAL_FAILURE(tests::Load(m_names));
    Parse("<tt:rule/><tt:Rule/><tt:engine/><ka:eventSink/><ka:Sink/>");
    EXPECT_THAT(m_profile.SelectRules(""), IsEmpty());
    EXPECT_THAT(m_profile.SelectEngines(""), IsEmpty());
    EXPECT_THAT(m_profile.SelectEventSinks(""), IsEmpty());
  });
}

TEST_F(ARenamedVocabulary, PutsItsPrefixIntoEachStepOfTheItemQueries) {
  InFreshProcess([this] {
    ASSERT_NO_FATAL_FAILURE(tests::Load(m_names));
    EXPECT_EQ("on:Parameters/on:SimpleItem", ProfileDoc::SimpleItemQry(true));
    EXPECT_EQ("on:SimpleItem", ProfileDoc::SimpleItemQry(false));
    EXPECT_EQ("on:Parameters/on:ElementItem", ProfileDoc::ElementItemQry(true));
    EXPECT_EQ("on:ElementItem", ProfileDoc::ElementItemQry(false));
  });
}

TEST_F(ARenamedVocabulary, ReachesTheSimpleItems) {
  InFreshProcess([this] {
    ParseRenamed(
        "<o:Rule><o:Parameters><o:SimpleItem Name='a' Value='1'/></o:Parameters></o:Rule>");
    const NodePtr rule(m_profile.SelectRule(""));
    EXPECT_EQ(1, m_profile.GetSimpleItemValue("a", 5, rule.get(), true));
    EXPECT_TRUE(m_profile.SetSimpleItemValue("a", 2, rule.get()));
    EXPECT_EQ("2", m_profile.GetSimpleItemValue("a", rule.get(), true));
  });
}

TEST_F(ARenamedVocabulary, GivesAnAddedItemThePrefixOfTheFile) {
  InFreshProcess([this] {
    ParseRenamed("<o:Parameters/>");
    const NodePtr parameters = Node("on:Parameters");
    EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 1, parameters.get()));
    EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 2, parameters.get()));
    EXPECT_EQ("<o:Parameters><o:SimpleItem Name=\"a\" Value=\"2\"/></o:Parameters>",
              parameters->DumpToString());
  });
}

TEST_F(ARenamedVocabulary, DecidesWhichRulesAreActive) {
  InFreshProcess([this] {
    ParseRenamed(
        "<o:rule Type='A'><o:Parameters><o:SimpleItem Name='Active' Value='1'/></o:Parameters>"
        "</o:rule><o:Rule Type='B'><o:Parameters><o:SimpleItem Name='Active' Value='1'/>"
        "</o:Parameters></o:Rule>");
    EXPECT_THAT(m_profile.ActiveRules(), ElementsAre("B"));
    EXPECT_FALSE(m_profile.RuleIsActive("A"));
    EXPECT_TRUE(m_profile.RuleIsActive("B"));
  });
}

TEST_F(ARenamedVocabulary, ReachesTheCalibration) {
  InFreshProcess([this] {
    ParseRenamed(
        "<o:Rule><o:Parameters><o:ElementItem Name='Calibration'><v:Calibration>"
        "<v:ObjectAtNearLeft left='1' top='2' right='3' bottom='4'/>"
        "<v:NearWidth><o:Point x='5' y='6'/><o:Point x='7' y='8'/></v:NearWidth>"
        "<v:FarWidth><o:Point x='9' y='10'/><o:Point x='11' y='12'/></v:FarWidth>"
        "<v:PhysicalHeight>13</v:PhysicalHeight>"
        "</v:Calibration></o:ElementItem></o:Parameters></o:Rule>");
    const NodePtr rule(m_profile.SelectRule(""));
    Calibration calibration;
    EXPECT_TRUE(m_profile.GetCalibration(calibration, rule.get()));
    EXPECT_EQ("near left (1,2)-(3,4), near width (5,6)-(7,8), far width (9,10)-(11,12), height 13",
              tests::CalibrationText(calibration));
  });
}

TEST_F(ARenamedVocabulary, MayUseOneNamespaceForAll) {
  InFreshProcess([this] {
    m_names.kestalUri = m_names.onvifUri;
    ParseRenamed("<o:Rule n='1'/><o:Sink n='2'/>");
    EXPECT_THAT(Properties(m_profile.SelectRules(""), "n"), ElementsAre("1"));
    EXPECT_THAT(Properties(m_profile.SelectEventSinks(""), "n"), ElementsAre("2"));
  });
}

TEST_F(ARenamedVocabulary, BindsThePrefixThatBothNamespacesShareToTheVendor) {
  InFreshProcess([this] {
    m_names.kestalPrefix = m_names.onvifPrefix;
    ParseRenamed("<o:Rule n='1'/><v:Rule n='2'/><v:Sink n='3'/>");
    EXPECT_THAT(Properties(m_profile.SelectRules(""), "n"), ElementsAre("2"));
    EXPECT_THAT(Properties(m_profile.SelectEventSinks(""), "n"), ElementsAre("3"));
  });
}

TEST_F(ARenamedVocabulary, WithAnEmptyOnvifPrefixLosesRulesAndEnginesOnly) {
  InFreshProcess([this] {
    m_names.onvifPrefix = "";
    ParseRenamed("<o:Rule/><o:AnalyticsModule/><v:Sink n='1'/>");
    EXPECT_TRUE(m_profile.CreateSearchContext());
    EXPECT_THAT(m_profile.SelectRules(""), IsEmpty());
    EXPECT_THAT(m_profile.SelectEngines(""), IsEmpty());
    EXPECT_THAT(Properties(m_profile.SelectEventSinks(""), "n"), ElementsAre("1"));
  });
}

TEST_F(ARenamedVocabulary, WithAnEmptyVendorPrefixLosesEventSinksOnly) {
  InFreshProcess([this] {
    m_names.kestalPrefix = "";
    ParseRenamed("<o:Rule n='1'/><v:Sink/>");
    EXPECT_TRUE(m_profile.CreateSearchContext());
    EXPECT_THAT(Properties(m_profile.SelectRules(""), "n"), ElementsAre("1"));
    EXPECT_THAT(m_profile.SelectEventSinks(""), IsEmpty());
  });
}

TEST_F(ARenamedVocabulary, WithAnEmptyPrefixKeepsTheColonInItsQueries) {
  InFreshProcess([this] {
    m_names.onvifPrefix = "";
    ASSERT_NO_FATAL_FAILURE(tests::Load(m_names));
    EXPECT_EQ(":Parameters/:SimpleItem", ProfileDoc::SimpleItemQry(true));
    EXPECT_EQ(":SimpleItem", ProfileDoc::SimpleItemQry(false));
    EXPECT_EQ(":Parameters/:ElementItem", ProfileDoc::ElementItemQry(true));
    EXPECT_EQ(":ElementItem", ProfileDoc::ElementItemQry(false));
  });
}

TEST_F(ARenamedVocabulary, WithAnEmptyRuleTagHasNoRules) {
  InFreshProcess([this] {
    m_names.rule = "";
    ParseRenamed("<o:Rule Type='A'/>");
    EXPECT_THAT(m_profile.SelectRules(""), IsEmpty());
    EXPECT_THAT(m_profile.SelectRules("A"), IsEmpty());
    EXPECT_EQ(0, m_profile.DeleteRules("A"));
  });
}

}  // namespace
}  // namespace analytics
