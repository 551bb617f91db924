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

/// A colour and what its conversion is known to give.
struct ReferenceColour {
  const char* name;
  int r, g, b;
  Yuv expected;
};

constexpr ReferenceColour kReferenceColours[] = {
    {"Black", 0, 0, 0, {16, 128, 128}},
    {"White", 255, 255, 255, {235, 128, 128}},
    {"Red", 255, 0, 0, {82, 90, 240}},
    {"Green", 0, 255, 0, {144, 54, 34}},
    {"Blue", 0, 0, 255, {41, 240, 110}},
    {"Grey", 128, 128, 128, {126, 128, 128}},
    {"ChromaThatRoundsDown", 4, 0, 0, {17, 127, 130}},
    // Where one less before the shift would round down.
    {"LumaThatJustRoundsUp", 3, 30, 252, {57, 229, 101}},
    {"BlueDifferenceThatJustRoundsUp", 3, 35, 7, {35, 121, 116}},
    {"RedDifferenceThatJustRoundsUp", 3, 15, 175, {41, 200, 112}},
};

}  // namespace tests
