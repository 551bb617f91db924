#include <climits>
#include <ostream>

#include <gmock/gmock.h>

#include <analytics/Calibration.h>

namespace analytics {
namespace types {

// Beside the type, where the test library looks for them.
static bool operator==(const Point& left, const Point& right) {
  return left.x == right.x && left.y == right.y;
}

static std::ostream& operator<<(std::ostream& out, const Point& point) {
  return out << "(" << point.x << ", " << point.y << ")";
}

}  // namespace types

namespace {

using testing::Each;
using testing::ElementsAreArray;
using types::Point;

constexpr Point kZero{0, 0};
const Point kSample[2] = {{1, -2}, {INT_MAX, INT_MIN}};
const Point kOther[2] = {{5, 6}, {7, 8}};

struct Pair {
  const char* name;
  const Point (&(Calibration::*get)() const)[2];
  void (Calibration::*set)(const Point (&)[2]);
};

void PrintTo(const Pair& pair, std::ostream* out) { *out << pair.name; }

const Pair kPairs[] = {
    {"NearLeftSize", &Calibration::NearLeftSize, &Calibration::SetNearLeftSize},
    {"NearWidth", &Calibration::NearWidth, &Calibration::SetNearWidth},
    {"FarWidth", &Calibration::FarWidth, &Calibration::SetFarWidth},
};

/// One of the quantities that are two points.
class APairOfACalibration : public testing::TestWithParam<Pair> {
 protected:
  const Point (&Value() const)[2] { return (m_calibration.*GetParam().get)(); }
  void Set(const Point (&points)[2]) { (m_calibration.*GetParam().set)(points); }

  Calibration m_calibration;
};

TEST_P(APairOfACalibration, IsZeroAtFirst) { EXPECT_THAT(Value(), Each(kZero)); }

TEST_P(APairOfACalibration, IsWhatWasSet) {
  Set(kSample);
  EXPECT_THAT(Value(), ElementsAreArray(kSample));
}

TEST_P(APairOfACalibration, IsWhatWasSetLast) {
  Set(kSample);
  Set(kOther);
  EXPECT_THAT(Value(), ElementsAreArray(kOther));
}

TEST_P(APairOfACalibration, IsACopyOfThePointsGiven) {
  Point points[2] = {kOther[0], kOther[1]};
  Set(points);
  points[0] = points[1] = kZero;
  EXPECT_THAT(Value(), ElementsAreArray(kOther));
}

TEST_P(APairOfACalibration, IsSeenToChangeByWhoAskedBefore) {
  const Point(&before)[2] = Value();
  Set(kSample);
  EXPECT_THAT(before, ElementsAreArray(kSample));
}

TEST_P(APairOfACalibration, LeavesTheOthersAsTheyAre) {
  Set(kSample);
  EXPECT_EQ(0, m_calibration.PhysicalHeight());
  for (const Pair& other : kPairs) {
    if (other.get == GetParam().get) continue;
    EXPECT_THAT((m_calibration.*other.get)(), Each(kZero)) << other.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Pairs, APairOfACalibration, testing::ValuesIn(kPairs),
                         testing::PrintToStringParamName());

TEST(ThePhysicalHeight, IsZeroAtFirst) { EXPECT_EQ(0, Calibration().PhysicalHeight()); }

TEST(ThePhysicalHeight, IsWhatWasSetLast) {
  Calibration calibration;
  calibration.SetPhysicalHeight(180);
  EXPECT_EQ(180, calibration.PhysicalHeight());
  calibration.SetPhysicalHeight(-1);
  EXPECT_EQ(-1, calibration.PhysicalHeight());
}

TEST(ThePhysicalHeight, LeavesThePointsAsTheyAre) {
  Calibration calibration;
  for (const Pair& pair : kPairs) (calibration.*pair.set)(kSample);
  calibration.SetPhysicalHeight(180);
  for (const Pair& pair : kPairs) {
    EXPECT_THAT((calibration.*pair.get)(), ElementsAreArray(kSample)) << pair.name;
  }
}

}  // namespace
}  // namespace analytics
