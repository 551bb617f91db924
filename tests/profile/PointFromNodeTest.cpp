#include <analytics/types/Point.h>

#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using tests::IsPoint;
using types::Point;

class APointOfANode : public tests::ProfileTest {
 protected:
  /// Reads the element `text` into a point that starts at (1, 2).
  Point Read(const std::string& text) {
    Parse(text);
    const tests::NodePtr node = Node("*");
    Point point{1, 2};
    EXPECT_TRUE(m_profile.PointFromNode(node.get(), point));
    return point;
  }
};

TEST_F(APointOfANode, IsReadFromItsAttributes) {
  EXPECT_THAT(Read("<tt:Point x='5' y='-9'/>"), IsPoint(5, -9));
}

TEST_F(APointOfANode, KeepsYIfTheNodeHasNone) {
  EXPECT_THAT(Read("<tt:Point x='5'/>"), IsPoint(5, 2));
}

TEST_F(APointOfANode, KeepsXIfTheNodeHasNone) {
  EXPECT_THAT(Read("<tt:Point y='9'/>"), IsPoint(1, 9));
}

TEST_F(APointOfANode, KeepsBothIfTheNodeHasNone) {
  EXPECT_THAT(Read("<tt:Point X='5' Y='9'/>"), IsPoint(1, 2));
}

TEST_F(APointOfANode, IsNotReadFromChildElements) {
  EXPECT_THAT(Read("<Point><x>5</x><y>9</y></Point>"), IsPoint(1, 2));
}

TEST_F(APointOfANode, MayComeFromAnyElement) {
  EXPECT_THAT(Read("<ka:Corner x='5' y='9'/>"), IsPoint(5, 9));
}

TEST_F(APointOfANode, IsReadFromAttributesOfAnyNamespace) {
  EXPECT_THAT(Read("<tt:Point tt:x='5' ka:y='9'/>"), IsPoint(5, 9));
}

TEST_F(APointOfANode, KeepsItsValuesForANodeThatIsNoElement) {
  Parse("<tt:Point x='5' y='9'>text</tt:Point>");
  for (const char* path : {"tt:Point/@x", "tt:Point/text()", "/"}) {
    const tests::NodePtr node = Node(path);
    Point point{1, 2};
    EXPECT_TRUE(m_profile.PointFromNode(node.get(), point)) << path;
    EXPECT_THAT(point, IsPoint(1, 2)) << path;
  }
}

TEST_F(APointOfANode, KeepsCoordinatesThatAreEmptyOrBlank) {
  EXPECT_THAT(Read("<tt:Point x='' y='  '/>"), IsPoint(1, 2));
}

TEST_F(APointOfANode, IsZeroWhereThereIsNoNumber) {
  EXPECT_THAT(Read("<tt:Point x='abc' y='true'/>"), IsPoint(0, 0));
}

TEST_F(APointOfANode, TakesTheLeadingInteger) {
  EXPECT_THAT(Read("<tt:Point x=' 12px' y='-1.9'/>"), IsPoint(12, -1));
}

TEST_F(APointOfANode, SaturatesOutOfRange) {
  EXPECT_THAT(Read("<tt:Point x='3000000000' y='-3000000000'/>"),
              IsPoint(2147483647, -2147483647 - 1));
}

TEST_F(APointOfANode, IsNotTouchedForANullNode) {
  Parse("<tt:Point x='5' y='9'/>");
  Point point{1, 2};
  EXPECT_FALSE(m_profile.PointFromNode(nullptr, point));
  EXPECT_THAT(point, IsPoint(1, 2));
}

TEST_F(APointOfANode, KeepsItsValuesForAnEmptyNode) {
  Parse("<tt:Point x='5' y='9'/>");
  DocumentNode empty;
  Point point{1, 2};
  EXPECT_TRUE(m_profile.PointFromNode(&empty, point));
  EXPECT_THAT(point, IsPoint(1, 2));
}

TEST_F(APointOfANode, IsReadWhateverTheStateOfTheProfile) {
  Document plain;
  ASSERT_TRUE(plain.ParseString("<Point x='5' y='9'/>"));
  const tests::NodePtr node(plain.SelectRootNode());
  Point point{1, 2};
  EXPECT_TRUE(m_profile.PointFromNode(node.get(), point));
  EXPECT_THAT(point, IsPoint(5, 9));
}

}  // namespace
}  // namespace analytics
