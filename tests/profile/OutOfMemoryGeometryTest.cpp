#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using tests::IsPoint;
using tests::NodePtr;
using tests::ProfileText;
using tests::WithEachAllocationFailing;
using types::Point;

// Paths and numbers beyond what a string holds without an allocation of its own.
const std::string kPointQry = "descendant-or-self::tt:Point";
constexpr char kContent[] =
    "<tt:Point x='00000000000000000001' y='00000000000000000002'/>"
    "<tt:Point x='00000000000000000003' y='00000000000000000004'/>"
    "<tt:Point left='00000000000000000001' top='2' right='3' bottom='00000000000000000004'/>"
    "<tt:rule><tt:Parameters><tt:ElementItem Name='Calibration'><ka:Calibration>"
    "<ka:ObjectAtNearLeft left='1' top='2' right='3' bottom='00000000000000000004'/>"
    "<ka:NearWidth><tt:Point x='5' y='6'/><tt:Point x='7' y='8'/></ka:NearWidth>"
    "<ka:FarWidth><tt:Point x='9' y='10'/><tt:Point x='11' y='12'/></ka:FarWidth>"
    "<ka:PhysicalHeight>00000000000000000013</ka:PhysicalHeight>"
    "</ka:Calibration></tt:ElementItem></tt:Parameters></tt:rule>";

/// A profile that is short of memory in each reading of its geometry.
class AGeometryWithoutMemory : public tests::ProfileTest {
 protected:
  AGeometryWithoutMemory() { Parse(kContent); }
};

TEST_F(AGeometryWithoutMemory, GivesAPoint) {
  const NodePtr node = Node("tt:Point");
  Point point{7, 8};
  WithEachAllocationFailing([&] { m_profile.PointFromNode(node.get(), point); });
  EXPECT_THAT(point, IsPoint(1, 2));
}

TEST_F(AGeometryWithoutMemory, GivesPoints) {
  std::vector<Point> points;
  WithEachAllocationFailing([&] {
    std::vector<Point> gathered;
    EXPECT_TRUE(m_profile.GetPoints(gathered, kPointQry, nullptr));
    points.swap(gathered);
  });
  EXPECT_THAT(points, SizeIs(7));
}

TEST_F(AGeometryWithoutMemory, GivesALineWholeOrNotAtAll) {
  Point line[2] = {{5, 6}, {7, 8}};
  WithEachAllocationFailing([&] {
    EXPECT_EQ(5, line[0].x);
    EXPECT_EQ(8, line[1].y);
    m_profile.GetLine(line, kPointQry);
  });
  EXPECT_THAT(line, ElementsAre(IsPoint(1, 2), IsPoint(3, 4)));
}

TEST_F(AGeometryWithoutMemory, GivesARectangle) {
  const std::string path = "tt:Point[@left and @bottom]";
  Point rectangle[2] = {{5, 6}, {7, 8}};
  WithEachAllocationFailing([&] { m_profile.GetRectangle(rectangle, path); });
  EXPECT_THAT(rectangle, ElementsAre(IsPoint(1, 2), IsPoint(3, 4)));
}

TEST_F(AGeometryWithoutMemory, GivesACalibrationWholeOrNotAtAll) {
  const NodePtr rule(m_profile.SelectRule(""));
  Calibration calibration;
  tests::FillCalibration(calibration);
  WithEachAllocationFailing([&] {
    EXPECT_EQ(101, calibration.NearLeftSize()[0].x);
    EXPECT_EQ(113, calibration.PhysicalHeight());
    m_profile.GetCalibration(calibration, rule.get());
  });
  EXPECT_EQ("near left (1,2)-(3,4), near width (5,6)-(7,8), far width (9,10)-(11,12), height 13",
            tests::CalibrationText(calibration));
}

using AParseWithoutMemory = tests::ProfileTest;

TEST_F(AParseWithoutMemory, OfATextCanBeRepeated) {
  const std::string text = ProfileText(kContent);
  bool parsed = false;
  WithEachAllocationFailing([&] { parsed = m_profile.ParseString(text); });
  EXPECT_TRUE(parsed);
  EXPECT_TRUE(NodePtr(m_profile.SelectRule("")));
}

TEST_F(AParseWithoutMemory, OfAFileCanBeRepeated) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.Write("profile.xml", ProfileText(kContent));
  bool parsed = false;
  WithEachAllocationFailing([&] { parsed = m_profile.ParseFile(path); });
  EXPECT_TRUE(parsed);
  EXPECT_TRUE(NodePtr(m_profile.SelectRule("")));
}

TEST_F(AParseWithoutMemory, CanHaveItsSearchContextMadeAgain) {
  Parse(kContent);
  bool made = false;
  WithEachAllocationFailing([&] { made = m_profile.CreateSearchContext(); });
  EXPECT_TRUE(made);
  EXPECT_TRUE(NodePtr(m_profile.SelectRule("")));
}

TEST(AProfileForWhichThereIsNoMemory, IsNotMade) {
  std::unique_ptr<ProfileDoc> profile;
  WithEachAllocationFailing([&] { profile = std::make_unique<ProfileDoc>(); });
  ASSERT_TRUE(profile);
  EXPECT_TRUE(profile->ParseString(ProfileText(kContent)));
}

}  // namespace
}  // namespace analytics
