#include <analytics/types/Point.h>

#include "tests/document/GlobalLocale.h"
#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::IsPoint;
using types::Point;

class APointList : public tests::ProfileTest {
 protected:
  bool Get(const std::string& path, DocumentNode* context = nullptr) {
    return m_profile.GetPoints(m_points, path, context);
  }

  std::vector<Point> m_points;
};

TEST_F(APointList, HoldsThePointsInDocumentOrder) {
  Parse("<tt:Point x='1' y='2'/><a><tt:Point x='-3' y='4'/></a><tt:Point x='5' y='6'/>");
  EXPECT_TRUE(Get("//tt:Point"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(1, 2), IsPoint(-3, 4), IsPoint(5, 6)));
}

TEST_F(APointList, IsAppendedToAndNeverCleared) {
  Parse("<tt:Point x='1' y='1'/><tt:Point x='2' y='2'/><tt:Point x='3' y='3'/>");
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(1, 1), IsPoint(2, 2), IsPoint(3, 3), IsPoint(1, 1),
                                    IsPoint(2, 2), IsPoint(3, 3)));
}

TEST_F(APointList, ReadsCoordinatesAsTheGlobalLocaleGroupsThem) {
  Parse("<tt:Point x='1,234' y='5'/><tt:Point x='1' y='-2,345'/>");
  const GlobalLocale grouping(new GroupedNumbers);
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(1234, 5), IsPoint(1, -2345)));
}

TEST_F(APointList, KeepsWhatItHeldBefore) {
  Parse("<tt:Point x='1' y='2'/>");
  m_points = {Point{8, 9}};
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(8, 9), IsPoint(1, 2)));
}

TEST_F(APointList, StaysAsItIsWhereNothingIsSelected) {
  Parse("<tt:Point x='1' y='2'/>");
  m_points = {Point{8, 9}};
  EXPECT_FALSE(Get("tt:Corner"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(8, 9)));
}

TEST_F(APointList, HasZeroForAMissingCoordinate) {
  Parse("<tt:Point x='1' y='2'/><tt:Point x='3'/><tt:Point y='4'/><tt:Point/>");
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(1, 2), IsPoint(3, 0), IsPoint(0, 4), IsPoint(0, 0)));
}

TEST_F(APointList, HasZeroWhereThereIsNoNumber) {
  Parse("<tt:Point x='' y=' '/><tt:Point x='abc' y='-'/>");
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(0, 0), IsPoint(0, 0)));
}

TEST_F(APointList, TakesLeadingIntegersAndSaturates) {
  Parse("<tt:Point x=' 7.9' y='-1.5'/><tt:Point x='3000000000' y='-3000000000'/>");
  EXPECT_TRUE(Get("tt:Point"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(7, -1), IsPoint(2147483647, -2147483647 - 1)));
}

TEST_F(APointList, IsReadRelativeToItsContext) {
  Parse("<a><tt:Point x='1' y='1'/></a><b><tt:Point x='2' y='2'/></b>");
  const tests::NodePtr b = Node("b");
  EXPECT_TRUE(Get("tt:Point", b.get()));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(2, 2)));
}

TEST_F(APointList, OfADocumentWidePathIgnoresItsContext) {
  Parse("<a><tt:Point x='1' y='1'/></a><b><tt:Point x='2' y='2'/></b>");
  const tests::NodePtr b = Node("b");
  EXPECT_TRUE(Get("//tt:Point", b.get()));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(1, 1), IsPoint(2, 2)));
}

TEST_F(APointList, IsReadFromTheRootUnlessAContextIsGiven) {
  Parse("<tt:Point x='1' y='2'/>");
  std::vector<Point> points;
  EXPECT_TRUE(m_profile.GetPoints(points, "tt:Point"));
  EXPECT_TRUE(m_profile.GetPoints(points, "/profile/tt:Point", nullptr));
  EXPECT_THAT(points, ElementsAre(IsPoint(1, 2), IsPoint(1, 2)));
}

TEST_F(APointList, MayBeOfElementsOfAnyName) {
  Parse("<ka:Corner x='1' y='2'/><Corner x='3' y='4'/>");
  EXPECT_TRUE(Get("ka:Corner | Corner"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(1, 2), IsPoint(3, 4)));
}

TEST_F(APointList, HasThePointZeroForANodeThatIsNoElement) {
  Parse("<tt:Point x='1' y='2'>text</tt:Point>");
  EXPECT_TRUE(Get("tt:Point/@x | tt:Point/text()"));
  EXPECT_THAT(m_points, ElementsAre(IsPoint(0, 0), IsPoint(0, 0)));
}

TEST_F(APointList, IsNotReadThroughAnEmptyContext) {
  Parse("<tt:Point x='1' y='2'/><Point x='1' y='2'/>");
  DocumentNode empty;
  EXPECT_FALSE(Get("tt:Point", &empty));
  EXPECT_FALSE(Get("Point", &empty));
  EXPECT_THAT(m_points, IsEmpty());
}

/// Paths that give no nodes at all.
struct PathRow {
  const char* name;
  const char* path;
};

const PathRow kPaths[] = {
    {"Empty", ""},
    {"NotWellFormed", "tt:Point["},
    {"UnboundPrefix", "no:Point"},
    {"Number", "count(//tt:Point)"},
    {"Text", "string(//tt:Point/@x)"},
    {"TruthValue", "true()"},
    {"OtherCase", "tt:point"},
    {"NoNamespace", "Point"},
    {"OtherNamespace", "ka:Point"},
};

class APathWithoutPoints : public APointList, public testing::WithParamInterface<PathRow> {};

TEST_P(APathWithoutPoints, LeavesTheListAsItWas) {
  Parse("<tt:Point x='1' y='2'/><tt:Point x='3' y='4'/>");
  EXPECT_FALSE(Get(GetParam().path));
  EXPECT_THAT(m_points, IsEmpty());
}

TEST_P(APathWithoutPoints, LeavesALineAsItWas) {
  Parse("<tt:Point x='1' y='2'/><tt:Point x='3' y='4'/>");
  Point line[2] = {{5, 6}, {7, 8}};
  EXPECT_FALSE(m_profile.GetLine(line, GetParam().path, nullptr));
  EXPECT_THAT(line, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

TEST_P(APathWithoutPoints, LeavesARectangleAsItWas) {
  Parse("<tt:Point left='1' top='2' right='3' bottom='4'/>");
  Point rectangle[2] = {{5, 6}, {7, 8}};
  EXPECT_FALSE(m_profile.GetRectangle(rectangle, GetParam().path, nullptr));
  EXPECT_THAT(rectangle, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

INSTANTIATE_TEST_SUITE_P(Paths, APathWithoutPoints, testing::ValuesIn(kPaths),
                         [](const testing::TestParamInfo<PathRow>& row) { return row.param.name; });

/// A profile whose points of nodes are all the same, and which counts who asks for them.
class StubbornProfile : public ProfileDoc {
 public:
  bool PointFromNode(DocumentNode* /*node*/, Point& point) override {
    ++m_asked;
    point = Point{99, 99};
    return true;
  }

  int m_asked = 0;
};

TEST(APointListOfADerivedProfile, IgnoresItsPointFromNode) {
  StubbornProfile profile;
  ASSERT_TRUE(profile.ParseString(tests::ProfileText("<tt:Point x='1' y='2'/><tt:Point x='3'/>")));
  std::vector<Point> points;
  EXPECT_TRUE(profile.GetPoints(points, "tt:Point"));
  EXPECT_THAT(points, ElementsAre(IsPoint(1, 2), IsPoint(3, 0)));
  EXPECT_EQ(0, profile.m_asked);
}

TEST(ALineOfADerivedProfile, IgnoresItsPointFromNode) {
  StubbornProfile profile;
  ASSERT_TRUE(profile.ParseString(tests::ProfileText("<tt:Point x='1' y='2'/><tt:Point x='3'/>")));
  Point line[2] = {{5, 6}, {7, 8}};
  EXPECT_TRUE(profile.GetLine(line, "tt:Point"));
  EXPECT_THAT(line, ElementsAre(IsPoint(1, 2), IsPoint(3, 0)));
  EXPECT_EQ(0, profile.m_asked);
}

}  // namespace
}  // namespace analytics
