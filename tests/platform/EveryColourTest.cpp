#include <cstdint>
#include <string>

#include <gmock/gmock.h>

#include "tests/platform/ManyRecords.h"
#include "tests/platform/ReferenceColours.h"

namespace {

using tests::IniFile;
using tests::ManyRecords;

constexpr std::uint32_t kColours = 256 * 256 * 256;
constexpr std::uint32_t kRegionsInARecord = 31;

std::uint32_t Part(std::uint32_t colour, std::uint32_t weight) { return colour / weight % 256; }

/// A change to the colours of all regions, whose names are known.
IniFile ChangeTo(std::uint32_t firstColour) {
  IniFile change;
  for (std::uint32_t place = 0; place < kRegionsInARecord; ++place) {
    const std::uint32_t colour = (firstColour + place) % kColours;
    const std::string group = tests::RegionGroup(static_cast<int>(place) + 1);
    change.SetValue(group, "ColorR", std::to_string(Part(colour, 65536)));
    change.SetValue(group, "ColorG", std::to_string(Part(colour, 256)));
    change.SetValue(group, "ColorB", std::to_string(Part(colour, 1)));
  }
  return change;
}

/// Whether a record has these colours, and no others.
bool HasColoursFrom(std::uint32_t firstColour, const tagWindowBlankingRegions& record) {
  if (record.count != kRegionsInARecord) return false;
  for (std::uint32_t place = 0; place < kRegionsInARecord; ++place) {
    const std::uint32_t colour = (firstColour + place) % kColours;
    const tagWindowBlankingRegion& region = record.regions[place];
    const tests::Yuv yuv = {region.y, region.u, region.v};
    if (yuv != tests::ReferenceYuv(Part(colour, 65536), Part(colour, 256), Part(colour, 1)))
      return false;
  }
  return true;
}

/// A share of all colours, so that several processes can go through them at once.
class EveryColour : public testing::TestWithParam<std::uint32_t> {
 protected:
  static constexpr std::uint32_t kShares = 16;
};

TEST_P(EveryColour, IsInTheRecordAsConvertedWithoutShifts) {
  ManyRecords& records = ManyRecords::Instance();
  records.Deliver(tests::SwitchedOn(tests::ManyRegions(kRegionsInARecord)));
  const std::uint32_t begin = kColours / kShares * GetParam();
  for (std::uint32_t colour = begin; colour < begin + kColours / kShares;
       colour += kRegionsInARecord) {
    records.Deliver(ChangeTo(colour));
    ASSERT_TRUE(HasColoursFrom(colour, records.Record())) << "from " << colour;
  }
  tests::Count("colours", kColours / kShares);
}

INSTANTIATE_TEST_SUITE_P(Share, EveryColour, testing::Range(0U, 16U));

}  // namespace
