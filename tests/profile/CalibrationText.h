#pragma once

#include <string>

#include <analytics/Calibration.h>

namespace tests {

/// A point as "(1,2)".
inline std::string PointText(const analytics::types::Point& point) {
  return "(" + std::to_string(point.x) + "," + std::to_string(point.y) + ")";
}

/// Two points as "(1,2)-(3,4)".
inline std::string PairText(const analytics::types::Point (&pair)[2]) {
  return PointText(pair[0]) + "-" + PointText(pair[1]);
}

/// All values of a calibration on one line.
inline std::string CalibrationText(const analytics::Calibration& calibration) {
  return "near left " + PairText(calibration.NearLeftSize()) + ", near width " +
         PairText(calibration.NearWidth()) + ", far width " + PairText(calibration.FarWidth()) +
         ", height " + std::to_string(calibration.PhysicalHeight());
}

/// Gives a calibration thirteen different values, none of which is in a test's profile.
inline void FillCalibration(analytics::Calibration& calibration) {
  calibration.SetNearLeftSize({{101, 102}, {103, 104}});
  calibration.SetNearWidth({{105, 106}, {107, 108}});
  calibration.SetFarWidth({{109, 110}, {111, 112}});
  calibration.SetPhysicalHeight(113);
}

}  // namespace tests
