#include "tests/profile/ProfileTest.h"
#include "tests/profile/Vocabulary.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::InFreshProcess;
using tests::Properties;
using tests::Vocabulary;

/// A profile that is open while the settings change.
class AChangeOfTheSettings : public tests::ProfileTest {
 protected:
  void ParseUnderBuiltInSettings() {
    Parse(
        "<tt:rule n='1'/><tt:Rule n='2'/><ka:eventSink n='3'/>"
        "<tt:Parameters><tt:SimpleItem Name='a' Value='1'/></tt:Parameters>");
  }

  void LoadPrefixes(const std::string& onvif, const std::string& kestal) {
    Vocabulary changed;
    changed.onvifPrefix = onvif;
    changed.kestalPrefix = kestal;
    ASSERT_NO_FATAL_FAILURE(tests::Load(changed));
  }

  std::vector<std::string> Rules() { return Properties(m_profile.SelectRules(""), "n"); }
  std::vector<std::string> EventSinks() { return Properties(m_profile.SelectEventSinks(""), "n"); }
};

TEST_F(AChangeOfTheSettings, PutsANewPrefixIntoQueriesAtOnceButIntoBindingsAtTheNextContext) {
  InFreshProcess([this] {
    ParseUnderBuiltInSettings();
    LoadPrefixes("on", "ve");
    EXPECT_EQ("on:SimpleItem", ProfileDoc::SimpleItemQry(false));
    EXPECT_THAT(Rules(), IsEmpty());
    EXPECT_THAT(EventSinks(), IsEmpty());
    EXPECT_TRUE(m_profile.CreateSearchContext());
    EXPECT_THAT(Rules(), ElementsAre("1"));
    EXPECT_THAT(EventSinks(), ElementsAre("3"));
  });
}

TEST_F(AChangeOfTheSettings, LeavesTheOldPrefixBoundUntilTheNextContext) {
  InFreshProcess([this] {
    ParseUnderBuiltInSettings();
    LoadPrefixes("on", "ve");
    EXPECT_TRUE(Node("//tt:rule"));
    EXPECT_FALSE(Node("//on:rule"));
    EXPECT_TRUE(m_profile.CreateSearchContext());
    EXPECT_FALSE(Node("//tt:rule"));
    EXPECT_TRUE(Node("//on:rule"));
  });
}

TEST_F(AChangeOfTheSettings, ReachesTheBindingsWithTheNextParse) {
  InFreshProcess([this] {
    ParseUnderBuiltInSettings();
    LoadPrefixes("on", "ve");
    ParseUnderBuiltInSettings();
    EXPECT_THAT(Rules(), ElementsAre("1"));
    EXPECT_FALSE(Node("//tt:rule"));
  });
}

TEST_F(AChangeOfTheSettings, BackToTheOldPrefixNeedsNoNewContext) {
  InFreshProcess([this] {
    ParseUnderBuiltInSettings();
    LoadPrefixes("on", "ve");
    EXPECT_THAT(Rules(), IsEmpty());
    LoadPrefixes("tt", "ka");
    EXPECT_THAT(Rules(), ElementsAre("1"));
  });
}

TEST_F(AChangeOfTheSettings, OfAPrefixHidesTheItemsUntilTheNextContext) {
  InFreshProcess([this] {
    ParseUnderBuiltInSettings();
    const tests::NodePtr parameters = Node("tt:Parameters");
    LoadPrefixes("on", "ve");
    EXPECT_EQ("", m_profile.GetSimpleItemValue("a", parameters.get(), false));
    EXPECT_TRUE(m_profile.CreateSearchContext());
    EXPECT_EQ("1", m_profile.GetSimpleItemValue("a", parameters.get(), false));
  });
}

TEST_F(AChangeOfTheSettings, OfAPrefixHasAnItemAddedByEveryCallUntilTheNextContext) {
  InFreshProcess([this] {
    ParseUnderBuiltInSettings();
    const tests::NodePtr parameters = Node("tt:Parameters");
    LoadPrefixes("on", "ve");
    EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 2, parameters.get()));
    EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", "3", parameters.get()));
    EXPECT_EQ(3U, tests::All(m_profile, "tt:SimpleItem", parameters.get()).size());
  });
}

TEST_F(AChangeOfTheSettings, ThatSwapsThePrefixesSelectsInTheOldNamespacesUntilTheNextContext) {
  InFreshProcess([this] {
    Parse("<tt:rule n='1'/><ka:rule n='2'/>");
    LoadPrefixes("ka", "tt");
    EXPECT_THAT(Rules(), ElementsAre("2"));
    EXPECT_TRUE(m_profile.CreateSearchContext());
    EXPECT_THAT(Rules(), ElementsAre("1"));
  });
}

TEST_F(AChangeOfTheSettings, OfATagTakesEffectAtOnce) {
  InFreshProcess([this] {
    ParseUnderBuiltInSettings();
    Vocabulary changed;
    changed.rule = "Rule";
    ASSERT_NO_FATAL_FAILURE(tests::Load(changed));
    EXPECT_THAT(Rules(), ElementsAre("2"));
  });
}

TEST_F(AChangeOfTheSettings, OfAUriTakesEffectAtTheNextContext) {
  InFreshProcess([this] {
    ParseWhole("<p xmlns:o='urn:o'><o:rule n='1'/></p>");
    Vocabulary changed;
    changed.onvifUri = "urn:o";
    ASSERT_NO_FATAL_FAILURE(tests::Load(changed));
    EXPECT_THAT(Rules(), IsEmpty());
    EXPECT_TRUE(m_profile.CreateSearchContext());
    EXPECT_THAT(Rules(), ElementsAre("1"));
  });
}

TEST_F(AChangeOfTheSettings, ThatFailsChangesNothing) {
  InFreshProcess([this] {
    ParseUnderBuiltInSettings();
    EXPECT_FALSE(Settings::LoadSettings("/nonexistent/other.ini"));
    EXPECT_THAT(Rules(), ElementsAre("1"));
    EXPECT_TRUE(m_profile.CreateSearchContext());
    EXPECT_THAT(Rules(), ElementsAre("1"));
  });
}

TEST_F(AChangeOfTheSettings, IsSeenByProfilesParsedAfterwards) {
  InFreshProcess([this] {
    LoadPrefixes("on", "ve");
    ParseUnderBuiltInSettings();
    EXPECT_TRUE(Node("//on:rule"));
    EXPECT_FALSE(Node("//tt:rule"));
    EXPECT_TRUE(Node("//ve:eventSink"));
    EXPECT_FALSE(Node("//ka:eventSink"));
  });
}

}  // namespace
}  // namespace analytics
