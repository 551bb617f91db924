#include <climits>
#include <string>

#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/ReferenceColours.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::IniFile;
using tests::ReferenceColour;
using tests::ReferenceYuv;
using tests::Region;
using tests::Yuv;

/// The record's only colour where one region with these keys is active.
Yuv ColourOf(const IniFile::Keys& keys) {
  tests::Started(tests::SwitchedOn({keys}));
  const std::vector<Yuv> colours = tests::ColoursOf(tests::NewListener().record);
  return colours.size() == 1 ? colours.front() : tests::kNothing;
}

struct Row {
  const char* name;
  int stored;
  int used;
};

const Row kRows[] = {
    {"Zero", 0, 0},         {"Middle", 128, 128},     {"Largest", 255, 255},
    {"JustAbove", 256, 0},  {"Above", 300, 44},       {"TwiceAround", 513, 1},
    {"MinusOne", -1, 255},  {"MinusTwo", -2, 254},    {"MinusOneRound", -256, 0},
    {"IntMin", INT_MIN, 0}, {"IntMax", INT_MAX, 255}, {"IntMinPlus", INT_MIN + 7, 7},
};

class AStoredColour : public testing::TestWithParam<Row> {};

TEST_P(AStoredColour, IsCutToItsLowEightBitsAsRed) {
  tests::InFreshProcess([] {
    EXPECT_EQ(ReferenceYuv(GetParam().used, 20, 30),
              ColourOf(Region("A", GetParam().stored, 20, 30)));
  });
}

TEST_P(AStoredColour, IsCutToItsLowEightBitsAsGreen) {
  tests::InFreshProcess([] {
    EXPECT_EQ(ReferenceYuv(20, GetParam().used, 30),
              ColourOf(Region("A", 20, GetParam().stored, 30)));
  });
}

TEST_P(AStoredColour, IsCutToItsLowEightBitsAsBlue) {
  tests::InFreshProcess([] {
    EXPECT_EQ(ReferenceYuv(20, 30, GetParam().used),
              ColourOf(Region("A", 20, 30, GetParam().stored)));
  });
}

TEST_P(AStoredColour, HasNoEffectAsAlpha) {
  tests::InFreshProcess([] {
    IniFile::Keys keys = Region("A", 10, 20, 30);
    keys["ColorA"] = std::to_string(GetParam().stored);
    EXPECT_EQ(ReferenceYuv(10, 20, 30), ColourOf(keys));
  });
}

INSTANTIATE_TEST_SUITE_P(Rows, AStoredColour, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

class AReferenceColour : public testing::TestWithParam<ReferenceColour> {};

TEST_P(AReferenceColour, ReachesSubscribersConverted) {
  tests::InFreshProcess([] {
    const ReferenceColour& row = GetParam();
    EXPECT_EQ(row.expected, ColourOf(Region("A", row.r, row.g, row.b)));
  });
}

INSTANTIATE_TEST_SUITE_P(Rows, AReferenceColour, testing::ValuesIn(tests::kReferenceColours),
                         [](const auto& row) { return std::string(row.param.name); });

struct MissingKey {
  const char* key;
  Yuv expected;  // of the colour 200, 100, 50 without that key
};

const MissingKey kMissingKeys[] = {
    {"ColorR", ReferenceYuv(0, 100, 50)},
    {"ColorG", ReferenceYuv(200, 0, 50)},
    {"ColorB", ReferenceYuv(200, 100, 0)},
    {"ColorA", ReferenceYuv(200, 100, 50)},
};

class AMissingColour : public testing::TestWithParam<MissingKey> {};

TEST_P(AMissingColour, CountsAsZeroAndAlphaForNothing) {
  tests::InFreshProcess([] {
    IniFile::Keys keys = Region("A", 200, 100, 50);
    keys["ColorA"] = "3";
    keys.erase(GetParam().key);
    EXPECT_EQ(GetParam().expected, ColourOf(keys));
  });
}

INSTANTIATE_TEST_SUITE_P(Keys, AMissingColour, testing::ValuesIn(kMissingKeys),
                         [](const auto& row) { return std::string(row.param.key); });

TEST(ARegionWithNothingButAName, IsBlack) {
  tests::InFreshProcess([] { EXPECT_EQ((Yuv{16, 128, 128}), ColourOf({{"Name", "A"}})); });
}

}  // namespace
}  // namespace analytics
