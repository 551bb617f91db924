#pragma once

#include <cstdint>

#include <analytics/WindowBlankingChanges.h>

namespace analytics {

/// Converts a colour to luma and chroma: BT.601 in its integer form, limited range.
///
/// Deliberate: a shift, which takes negative sums down where a division would take them up. Kept
/// for compatibility: installed runtimes see it.
///
/// @param r  red, 0 to 255; green and blue likewise
inline tagWindowBlankingRegion YuvFromRgb(std::int32_t r, std::int32_t g, std::int32_t b) {
  tagWindowBlankingRegion yuv;
  yuv.y = ((66 * r + 129 * g + 25 * b + 128) >> 8) + 16;
  yuv.u = ((112 * b - 38 * r - 74 * g + 128) >> 8) + 128;
  yuv.v = ((112 * r - 94 * g - 18 * b + 128) >> 8) + 128;
  return yuv;
}

}  // namespace analytics
