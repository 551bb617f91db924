#pragma once

#include <analytics/Calibration.h>
#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

namespace settingsctl {

/// A calibration as the library reads it, and which pieces of it the profile gives whole.
struct CalibrationPieces {
  analytics::Calibration values;  ///< with meaningless values where a piece is not whole
  bool hasNearLeft;
  bool hasNearWidth;
  bool hasFarWidth;
  bool hasHeight;
};

/// Reads the calibration of a rule or engine.
CalibrationPieces ReadCalibration(analytics::ProfileDoc& profile, analytics::DocumentNode& owner);

}  // namespace settingsctl
