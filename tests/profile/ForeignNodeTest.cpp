#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using tests::IsPoint;
using tests::NodePtr;
using tests::RootTag;

/// A profile that is asked about the nodes of another, plain document.
class ANodeOfAPlainDocument : public tests::ProfileTest {
 protected:
  ANodeOfAPlainDocument() { Parse("<tt:rule/>"); }

  /// Gives the root element of a plain document with this text.
  NodePtr Root(const std::string& text) {
    EXPECT_TRUE(m_plain.ParseString(text));
    return NodePtr(m_plain.SelectRootNode());
  }

  Document m_plain;
};

TEST_F(ANodeOfAPlainDocument, HasItsItemsReadThroughTheProfile) {
  const NodePtr rule = Root(RootTag("tt:rule") + "<tt:Parameters>" +
                            "<tt:SimpleItem Name='a' Value='80'/></tt:Parameters></tt:rule>");
  EXPECT_EQ("80", m_profile.GetSimpleItemValue("a", rule.get(), true));
  EXPECT_EQ(80, m_profile.GetSimpleItemValue("a", 5, rule.get(), true));
}

TEST_F(ANodeOfAPlainDocument, HasItsItemsSetInItsOwnDocument) {
  const std::string before = m_profile.DumpToString();
  const NodePtr rule = Root(RootTag("tt:rule") + "<tt:Parameters>" +
                            "<tt:SimpleItem Name='a' Value='1'/></tt:Parameters></tt:rule>");
  EXPECT_TRUE(m_profile.SetSimpleItemValue("a", 2, rule.get()));
  EXPECT_EQ("2", m_profile.GetSimpleItemValue("a", rule.get(), true));
  EXPECT_EQ(before, m_profile.DumpToString());
}

TEST_F(ANodeOfAPlainDocument, HasItsItemsAddedInItsOwnDocument) {
  const NodePtr parameters = Root(RootTag("tt:Parameters") + "</tt:Parameters>");
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 1, parameters.get()));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 2, parameters.get()));
  EXPECT_THAT(m_plain.DumpToString(),
              testing::HasSubstr(">\n  <tt:SimpleItem Name=\"a\" Value=\"2\"/>\n</"));
}

TEST_F(ANodeOfAPlainDocument, HasItsGeometryReadThroughTheProfile) {
  const NodePtr root = Root(RootTag("a") + "<tt:Point x='1' y='2' left='3'/><tt:Point x='4'/></a>");
  std::vector<types::Point> points;
  EXPECT_TRUE(m_profile.GetPoints(points, "tt:Point", root.get()));
  EXPECT_THAT(points, ElementsAre(IsPoint(1, 2), IsPoint(4, 0)));
  types::Point rectangle[2] = {{5, 6}, {7, 8}};
  EXPECT_TRUE(m_profile.GetRectangle(rectangle, "tt:Point", root.get()));
  EXPECT_THAT(rectangle, ElementsAre(IsPoint(3, 6), IsPoint(7, 8)));
}

TEST_F(ANodeOfAPlainDocument, HasItsCalibrationReadThroughTheProfile) {
  const NodePtr rule =
      Root(RootTag("tt:rule") + "<tt:Parameters><tt:ElementItem Name='Calibration'>" +
           "<ka:Calibration><ka:PhysicalHeight>13</ka:PhysicalHeight></ka:Calibration>" +
           "</tt:ElementItem></tt:Parameters></tt:rule>");
  Calibration calibration;
  EXPECT_TRUE(m_profile.GetCalibration(calibration, rule.get()));
  EXPECT_EQ(13, calibration.PhysicalHeight());
}

TEST_F(ANodeOfAPlainDocument, IsNotAmongTheRulesOfTheProfile) {
  const NodePtr rule = Root(RootTag("tt:rule Type='A'") + "</tt:rule>");
  EXPECT_FALSE(NodePtr(m_profile.SelectRule("A")));
  EXPECT_EQ(0, m_profile.DeleteRules("A"));
}

TEST_F(ANodeOfAPlainDocument, GainsAnItemEvenThroughAClosedProfile) {
  const NodePtr parameters = Root(RootTag("tt:Parameters") + "</tt:Parameters>");
  m_profile.Close();
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", 1, parameters.get()));
  EXPECT_TRUE(m_profile.SetOrAddSimpleItemValue("a", "2", parameters.get()));
  EXPECT_THAT(m_plain.DumpToString(),
              testing::HasSubstr("<tt:SimpleItem Name=\"a\" Value=\"1\"/>\n"
                                 "  <tt:SimpleItem Name=\"a\" Value=\"2\"/>"));
}

TEST(APlainDocumentOfAProfile, AnswersNoPrefixedQuery) {
  Document plain;
  ASSERT_TRUE(plain.ParseString(tests::ProfileText("<tt:rule/><rule/>")));
  EXPECT_FALSE(tests::First(plain, "//tt:rule"));
  EXPECT_TRUE(tests::First(plain, "//rule"));
}

}  // namespace
}  // namespace analytics
