#pragma once

#include <array>
#include <optional>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

namespace settingsctl {

/// A point as far as the profile gives it; for what it lacks, a caller's own value stays.
struct GivenPoint {
  std::optional<int> x;
  std::optional<int> y;
};

/// A rectangle as (left, top) and (right, bottom), or the ends of a line.
using GivenPair = std::array<GivenPoint, 2>;

/// A calibration as the library reads it, without what the profile lacks.
struct CalibrationContents {
  GivenPair nearLeft;
  GivenPair nearWidth;
  GivenPair farWidth;
  std::optional<int> physicalHeight;
};

/// Whether both points are given, with both coordinates.
bool IsWhole(const GivenPair& pair);

/// Whether no coordinate is given.
bool IsMissing(const GivenPair& pair);

/// Reads the calibration of a rule or engine.
CalibrationContents ReadCalibrationContents(analytics::ProfileDoc& profile,
                                            analytics::DocumentNode* owner);

}  // namespace settingsctl
