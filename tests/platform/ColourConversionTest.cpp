#include "platform/ColourConversion.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include <gmock/gmock.h>

#include "tests/platform/ReferenceColours.h"

namespace analytics {
namespace {

using tests::ReferenceColour;
using tests::Yuv;

Yuv Converted(std::int32_t r, std::int32_t g, std::int32_t b) {
  const tagWindowBlankingRegion yuv = YuvFromRgb(r, g, b);
  return {yuv.y, yuv.u, yuv.v};
}

class AColour : public testing::TestWithParam<ReferenceColour> {};

TEST_P(AColour, IsConvertedAsInTheTable) {
  EXPECT_EQ(GetParam().expected, Converted(GetParam().r, GetParam().g, GetParam().b));
}

INSTANTIATE_TEST_SUITE_P(Rows, AColour, testing::ValuesIn(tests::kReferenceColours),
                         [](const auto& row) { return std::string(row.param.name); });

/// Calls `visit` with each of the 16,777,216 colours.
template <typename Visit>
void ForEachColour(Visit visit) {
  for (int r = 0; r <= 255; ++r) {
    for (int g = 0; g <= 255; ++g) {
      for (int b = 0; b <= 255; ++b) visit(r, g, b);
    }
  }
}

TEST(EveryColour, IsConvertedAsByFloorDivisionInWideArithmetic) {
  int colours = 0;
  int differences = 0;
  std::string last;
  ForEachColour([&](int r, int g, int b) {
    ++colours;
    const tagWindowBlankingRegion yuv = YuvFromRgb(r, g, b);
    const Yuv expected = tests::ReferenceYuv(r, g, b);
    if (yuv.y == expected[0] && yuv.u == expected[1] && yuv.v == expected[2]) return;
    ++differences;
    last = std::to_string(r) + "," + std::to_string(g) + "," + std::to_string(b);
  });
  EXPECT_EQ(256 * 256 * 256, colours);
  EXPECT_EQ(0, differences) << "such as " << last;
}

TEST(EveryColour, LiesInTheLimitedRange) {
  Yuv least = {255, 255, 255};
  Yuv most = {0, 0, 0};
  ForEachColour([&](int r, int g, int b) {
    const tagWindowBlankingRegion yuv = YuvFromRgb(r, g, b);
    least = {std::min(least[0], yuv.y), std::min(least[1], yuv.u), std::min(least[2], yuv.v)};
    most = {std::max(most[0], yuv.y), std::max(most[1], yuv.u), std::max(most[2], yuv.v)};
  });
  EXPECT_EQ((Yuv{16, 16, 16}), least);
  EXPECT_EQ((Yuv{235, 240, 240}), most);
}

}  // namespace
}  // namespace analytics
