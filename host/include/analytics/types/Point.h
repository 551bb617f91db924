// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace analytics {
namespace types {

/// A point in image coordinates.
struct Point {
  std::int32_t x;  ///< horizontal
  std::int32_t y;  ///< vertical
};

}  // namespace types
}  // namespace analytics
