#pragma once

#include <cstdint>

#include "tests/platform/Regions.h"

namespace tests {

/// Division that rounds towards minus infinity.
constexpr std::int64_t FloorQuotient(std::int64_t dividend, std::int64_t divisor) {
  return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

/// One part of a converted colour, with no shift and in wide arithmetic.
constexpr std::int32_t ReferencePart(std::int64_t weighted, std::int64_t offset) {
  return static_cast<std::int32_t>(FloorQuotient(weighted + 128, 256) + offset);
}

/// What the conversion of a colour is to give.
constexpr Yuv ReferenceYuv(std::int64_t r, std::int64_t g, std::int64_t b) {
  return {ReferencePart(66 * r + 129 * g + 25 * b, 16),
          ReferencePart(112 * b - 38 * r - 74 * g, 128),
          ReferencePart(112 * r - 94 * g - 18 * b, 128)};
}

}  // namespace tests
