// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <analytics/types/Point.h>

namespace analytics {

/// What a camera sees of objects of a known height: their size near and far.
///
/// A plain record behind accessors; on the camera further quantities are derived from it. All
/// points are in image coordinates, the height is in the unit that the profile uses. What a getter
/// gives refers to the object: setters change it.
///
/// Threads: one object is used by one thread at a time.
class Calibration {
 public:
  /// All points (0, 0), height 0.
  Calibration();
  ~Calibration();

  /// Rectangle of an object at the near left, as (left, top) and (right, bottom).
  const types::Point (&NearLeftSize() const)[2];
  /// Line across an object near the camera.
  const types::Point (&NearWidth() const)[2];
  /// Line across an object far from the camera.
  const types::Point (&FarWidth() const)[2];
  /// Real height of the object.
  int PhysicalHeight() const;

  /// Sets the rectangle of an object at the near left.
  void SetNearLeftSize(const types::Point (&corners)[2]);
  /// Sets the line across an object near the camera.
  void SetNearWidth(const types::Point (&line)[2]);
  /// Sets the line across an object far from the camera.
  void SetFarWidth(const types::Point (&line)[2]);
  /// Sets the real height of the object.
  void SetPhysicalHeight(int height);

 private:
  types::Point m_nearLeftSize[2] = {};
  types::Point m_nearWidth[2] = {};
  types::Point m_farWidth[2] = {};
  int m_physicalHeight = 0;
};

}  // namespace analytics
