#include "input/CalibrationContents.h"

#include <iterator>
#include <numeric>

#include <analytics/Calibration.h>

namespace settingsctl {
namespace {

using Pair = analytics::types::Point[2];

/// Has the library read the calibration over one whose values are all the same.
analytics::Calibration ReadOver(int value, analytics::ProfileDoc& profile,
                                analytics::DocumentNode* owner) {
  const Pair former = {{value, value}, {value, value}};
  analytics::Calibration calibration;
  calibration.SetNearLeftSize(former);
  calibration.SetNearWidth(former);
  calibration.SetFarWidth(former);
  calibration.SetPhysicalHeight(value);
  profile.GetCalibration(calibration, owner);
  return calibration;
}

std::optional<int> Given(int first, int second) {
  return first == second ? std::optional<int>(first) : std::nullopt;
}

GivenPair Given(const Pair& first, const Pair& second) {
  return {{{Given(first[0].x, second[0].x), Given(first[0].y, second[0].y)},
           {Given(first[1].x, second[1].x), Given(first[1].y, second[1].y)}}};
}

int Count(const GivenPair& pair) {
  return std::accumulate(std::begin(pair), std::end(pair), 0,
                         [](int count, const GivenPoint& point) {
                           return count + (point.x ? 1 : 0) + (point.y ? 1 : 0);
                         });
}

}  // namespace

bool IsWhole(const GivenPair& pair) { return Count(pair) == 4; }

bool IsMissing(const GivenPair& pair) { return Count(pair) == 0; }

CalibrationContents ReadCalibrationContents(analytics::ProfileDoc& profile,
                                            analytics::DocumentNode* owner) {
  // The library answers true in any case and leaves alone what the profile lacks: that is what
  // differs after readings over different values.
  const analytics::Calibration first = ReadOver(0, profile, owner);
  const analytics::Calibration second = ReadOver(1, profile, owner);
  return {Given(first.NearLeftSize(), second.NearLeftSize()),
          Given(first.NearWidth(), second.NearWidth()), Given(first.FarWidth(), second.FarWidth()),
          Given(first.PhysicalHeight(), second.PhysicalHeight())};
}

}  // namespace settingsctl
