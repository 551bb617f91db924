#include <algorithm>
#include <cstddef>
#include <iterator>

#include <gmock/gmock.h>

#include <analytics/Calibration.h>
#include <analytics/ProfileDoc.h>

#include "tests/profile/ProfileSubject.h"
#include "tests/support/MemoryTable.h"

namespace analytics {
namespace {

using tests::Answer;
using S = ProfileSubject;

/// Whether each coordinate is as wanted or as `other`.
bool IsEither(const Point& point, const Point& wanted, const Point& other) {
  return (point.x == wanted.x || point.x == other.x) && (point.y == wanted.y || point.y == other.y);
}

// A coordinate that cannot be read is 0 in a list of points, as one that is absent.
bool HasPartsOfPoints(const S& s) {
  const Point wanted[] = {{5, 6}, {7, 8}, {9, 10}, {11, 12}};
  return s.points.size() == std::size(wanted) &&
         std::equal(s.points.begin(), s.points.end(), wanted, [](const Point& a, const Point& b) {
           return IsEither(a, b, {0, 0});
         });
}

bool HasPartsOfALine(const S& s) {
  return IsEither(s.pair[0], {5, 6}, {0, 0}) && IsEither(s.pair[1], {7, 8}, {0, 0});
}

// Elsewhere it keeps its value.
bool HasPartsOfAPoint(const S& s) { return IsEither(s.pair[0], {5, 6}, {100, 101}); }

bool HasPartsOfARectangle(const S& s) {
  return IsEither(s.pair[0], {1, 2}, {100, 101}) && IsEither(s.pair[1], {3, 4}, {100, 101});
}

template <std::size_t kPoints>
bool IsPart(const Point (&pair)[kPoints], const Point& first, const Point& second) {
  return IsEither(pair[0], first, {0, 0}) && IsEither(pair[1], second, {0, 0});
}

bool HasPartsOfACalibration(const S& s) {
  const Point(&left)[2] = s.calibration.NearLeftSize();
  const Point(&near)[2] = s.calibration.NearWidth();
  const Point(&far)[2] = s.calibration.FarWidth();
  const int height = s.calibration.PhysicalHeight();
  return IsEither(left[0], {1, 2}, {101, 102}) && IsEither(left[1], {3, 4}, {103, 104}) &&
         (near[0].x == 105 || IsPart(near, {5, 6}, {7, 8})) &&
         (far[0].x == 109 || IsPart(far, {9, 10}, {11, 12})) && (height == 13 || height == 113);
}

const tests::MemoryRow<ProfileSubject> kRows[] = {
    {"PointFromNode",
     [](S& s) -> Answer { return s.profile.PointFromNode(&s.pointNode, s.pair[0]); },
     "true",
     {},
     Holds(kText, "(5,6)-(100,101)"),
     {},
     HasPartsOfAPoint},
    {"GetPoints",
     [](S& s) -> Answer { return s.profile.GetPoints(s.points, kPointQry, nullptr); },
     "true",
     {"false"},
     Holds(kText, kUnfilledPair, "(5,6)(7,8)(9,10)(11,12)"),
     // The points gathered so far stay with the caller.
     {Holds(kText, kUnfilledPair, "(5,6)"), Holds(kText, kUnfilledPair, "(5,6)(7,8)"),
      Holds(kText, kUnfilledPair, "(5,6)(7,8)(9,10)")},
     HasPartsOfPoints},
    {"GetLine",
     [](S& s) -> Answer { return s.profile.GetLine(s.pair, kPointQry); },
     "true",
     {"false"},
     Holds(kText, "(5,6)-(7,8)"),
     {},
     HasPartsOfALine},
    {"GetRectangle",
     [](S& s) -> Answer { return s.profile.GetRectangle(s.pair, kRectangleQry); },
     "true",
     {"false"},
     Holds(kText, "(1,2)-(3,4)"),
     {},
     HasPartsOfARectangle},
    {"GetCalibration",
     [](S& s) -> Answer { return s.profile.GetCalibration(s.calibration, &s.rule); },
     "true",
     {},
     Holds(kText, kUnfilledPair, "",
           "near left (1,2)-(3,4), near width (5,6)-(7,8), far width (9,10)-(11,12), height 13"),
     {},
     HasPartsOfACalibration},
};

using GeometryMemoryTest = tests::MemoryTableTest<ProfileSubject>;

TEST_P(GeometryMemoryTest, GivesBadAllocAndLosesNothing) { RunOutOfCppMemory(); }

TEST_P(GeometryMemoryTest, GivesWhatItHasOrNothing) { RunOutOfXmlMemory(); }

INSTANTIATE_TEST_SUITE_P(Rows, GeometryMemoryTest, testing::ValuesIn(kRows),
                         tests::MemoryRowName<ProfileSubject>);

}  // namespace
}  // namespace analytics
