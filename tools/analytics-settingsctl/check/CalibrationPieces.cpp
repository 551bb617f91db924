#include "check/CalibrationPieces.h"

namespace settingsctl {
namespace {

/// A value that no profile gives, to see which values the library leaves as they are.
constexpr int kUnread = -2147483647;

using Corners = analytics::types::Point[2];

bool IsWhole(const Corners& corners) {
  return corners[0].x != kUnread && corners[0].y != kUnread && corners[1].x != kUnread &&
         corners[1].y != kUnread;
}

}  // namespace

CalibrationPieces ReadCalibration(analytics::ProfileDoc& profile, analytics::DocumentNode& owner) {
  const Corners unread = {{kUnread, kUnread}, {kUnread, kUnread}};
  analytics::Calibration values;
  values.SetNearLeftSize(unread);
  values.SetNearWidth(unread);
  values.SetFarWidth(unread);
  values.SetPhysicalHeight(kUnread);
  profile.GetCalibration(values, &owner);
  return {values, IsWhole(values.NearLeftSize()), IsWhole(values.NearWidth()),
          IsWhole(values.FarWidth()), values.PhysicalHeight() != kUnread};
}

}  // namespace settingsctl
