#include <analytics/types/Point.h>

#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using tests::IsPoint;
using types::Point;

class ALine : public tests::ProfileTest {
 protected:
  bool Get(const std::string& path, DocumentNode* context = nullptr) {
    return m_profile.GetLine(m_line, path, context);
  }

  Point m_line[2] = {{5, 6}, {7, 8}};
};

TEST_F(ALine, IsTheTwoPointsSelected) {
  Parse("<tt:Point x='1' y='2'/><tt:Point x='-3' y='4'/>");
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(1, 2), IsPoint(-3, 4)));
}

TEST_F(ALine, IsTheFirstTwoOfMorePoints) {
  Parse("<a><tt:Point x='1' y='1'/></a><tt:Point x='2' y='2'/><tt:Point x='3' y='3'/>");
  EXPECT_TRUE(Get("//tt:Point"));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(1, 1), IsPoint(2, 2)));
}

TEST_F(ALine, StaysAsItIsForASinglePoint) {
  Parse("<tt:Point x='1' y='1'/>");
  EXPECT_FALSE(Get("tt:Point"));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

TEST_F(ALine, StaysAsItIsWhereNothingIsSelected) {
  Parse("<tt:Point x='1' y='1'/><tt:Point x='2' y='2'/>");
  EXPECT_FALSE(Get("tt:Corner"));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

TEST_F(ALine, DoesNotGatherPointsOverTwoCalls) {
  Parse("<tt:Point x='1' y='1'/>");
  EXPECT_FALSE(Get("tt:Point"));
  EXPECT_FALSE(Get("tt:Point"));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

TEST_F(ALine, HasZeroForAMissingCoordinateAndNotItsOldValue) {
  Parse("<tt:Point x='1'/><tt:Point y='2'/>");
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(1, 0), IsPoint(0, 2)));
}

TEST_F(ALine, TakesLeadingIntegers) {
  Parse("<tt:Point x='0.5' y='12px'/><tt:Point x='abc' y=' -3'/>");
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(0, 12), IsPoint(0, -3)));
}

TEST_F(ALine, IsReadRelativeToItsContext) {
  Parse("<tt:Point x='1' y='1'/><a><tt:Point x='2' y='2'/><tt:Point x='3' y='3'/></a>");
  const tests::NodePtr a = Node("a");
  EXPECT_TRUE(Get("tt:Point", a.get()));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(2, 2), IsPoint(3, 3)));
}

TEST_F(ALine, IsReadFromTheRootUnlessAContextIsGiven) {
  Parse("<tt:Point x='1' y='1'/><tt:Point x='2' y='2'/>");
  EXPECT_TRUE(m_profile.GetLine(m_line, "tt:Point"));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(1, 1), IsPoint(2, 2)));
}

TEST_F(ALine, IsNotReadThroughAnEmptyContext) {
  Parse("<tt:Point x='1' y='1'/><tt:Point x='2' y='2'/>");
  DocumentNode empty;
  EXPECT_FALSE(Get("tt:Point", &empty));
  EXPECT_THAT(m_line, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

}  // namespace
}  // namespace analytics
