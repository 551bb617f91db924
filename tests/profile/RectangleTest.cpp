#include <analytics/types/Point.h>

#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using tests::IsPoint;
using tests::NodePtr;
using types::Point;

class ARectangle : public tests::ProfileTest {
 protected:
  bool Get(const std::string& path, DocumentNode* context = nullptr) {
    return m_profile.GetRectangle(m_rectangle, path, context);
  }

  Point m_rectangle[2] = {{5, 6}, {7, 8}};
};

TEST_F(ARectangle, IsLeftTopAndRightBottom) {
  Parse("<a bottom='4' right='3' top='2' left='-1'/>");
  EXPECT_TRUE(Get("a"));
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(-1, 2), IsPoint(3, 4)));
}

TEST_F(ARectangle, IsTheFirstOfSeveralElements) {
  Parse("<a left='1' top='2' right='3' bottom='4'/><a left='9' top='9' right='9' bottom='9'/>");
  EXPECT_TRUE(Get("a"));
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(1, 2), IsPoint(3, 4)));
}

TEST_F(ARectangle, IsNotFilledUpFromASecondElement) {
  Parse("<a left='1'/><a left='9' top='9' right='9' bottom='9'/>");
  EXPECT_TRUE(Get("a"));
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(1, 6), IsPoint(7, 8)));
}

TEST_F(ARectangle, StaysAsItIsWhereNothingIsSelected) {
  Parse("<a left='1' top='2' right='3' bottom='4'/>");
  EXPECT_FALSE(Get("b"));
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

TEST_F(ARectangle, IsReadRelativeToItsContext) {
  Parse("<c left='9'/><a><c left='1' top='2' right='3' bottom='4'/></a>");
  const NodePtr a = Node("a");
  EXPECT_TRUE(Get("c", a.get()));
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(1, 2), IsPoint(3, 4)));
}

TEST_F(ARectangle, IsReadFromTheRootUnlessAContextIsGiven) {
  Parse("<a left='1' top='2' right='3' bottom='4'/>");
  EXPECT_TRUE(m_profile.GetRectangle(m_rectangle, "a"));
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(1, 2), IsPoint(3, 4)));
}

TEST_F(ARectangle, MayBeTheContextItself) {
  Parse("<a left='1' top='2' right='3' bottom='4'/>");
  const NodePtr a = Node("a");
  EXPECT_TRUE(Get(".", a.get()));
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(1, 2), IsPoint(3, 4)));
}

TEST_F(ARectangle, IsNotReadThroughAnEmptyContext) {
  Parse("<tt:a left='1'/>");
  DocumentNode empty;
  EXPECT_FALSE(Get("tt:a", &empty));
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
}

/// The attributes of an element, and the rectangle read from it where ((5, 6), (7, 8)) was before.
struct Row {
  const char* name;
  const char* attributes;
  Point expected[2];
};

constexpr int kLargest = 2147483647;

const Row kRows[] = {
    {"NoAttribute", "", {{5, 6}, {7, 8}}},
    {"LeftOnly", "left='1'", {{1, 6}, {7, 8}}},
    {"TopOnly", "top='1'", {{5, 1}, {7, 8}}},
    {"RightOnly", "right='1'", {{5, 6}, {1, 8}}},
    {"BottomOnly", "bottom='1'", {{5, 6}, {7, 1}}},
    {"LeftAndTop", "left='1' top='2'", {{1, 2}, {7, 8}}},
    {"OtherCase", "Left='1' Top='2' Right='3' Bottom='4'", {{5, 6}, {7, 8}}},
    {"PointAttributes", "x='1' y='2'", {{5, 6}, {7, 8}}},
    {"Empty", "left='' top='' right='' bottom=''", {{5, 6}, {7, 8}}},
    {"Blank", "left=' ' top='  ' right='&#9;' bottom='&#10;'", {{5, 6}, {7, 8}}},
    {"NoNumber", "left='a' top='-' right='true' bottom='.5'", {{0, 0}, {0, 0}}},
    {"LeadingNumber", "left=' 1' top='2.9' right='3px' bottom='+4'", {{1, 2}, {3, 4}}},
    {"OutOfRange", "left='3000000000' top='-3000000000'", {{kLargest, -kLargest - 1}, {7, 8}}},
    {"TurnedRound", "left='9' top='8' right='1' bottom='0'", {{9, 8}, {1, 0}}},
};

class ARectangleOfAttributes : public ARectangle, public testing::WithParamInterface<Row> {};

TEST_P(ARectangleOfAttributes, FollowsTheTable) {
  Parse("<a " + std::string(GetParam().attributes) + "/>");
  EXPECT_TRUE(Get("a"));
  const Point(&expected)[2] = GetParam().expected;
  EXPECT_THAT(m_rectangle, ElementsAre(IsPoint(expected[0].x, expected[0].y),
                                       IsPoint(expected[1].x, expected[1].y)));
}

INSTANTIATE_TEST_SUITE_P(Rows, ARectangleOfAttributes, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

}  // namespace
}  // namespace analytics
