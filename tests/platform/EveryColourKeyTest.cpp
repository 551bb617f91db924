#include <array>
#include <cstdint>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/ManyRecords.h"

namespace {

using tests::ManyRecords;
using tests::RegionState;

constexpr std::int64_t kLeast = -70000;
constexpr std::int64_t kMost = 70000;
constexpr std::int64_t kRegionsInARecord = 31;

/// Which part of the colour takes on every value: 0 is red.
class EveryIntegerAsAColourKey : public testing::TestWithParam<std::size_t> {
 protected:
  /// Colours of the regions of one record, whose part `GetParam()` counts upwards.
  static std::vector<std::array<std::int64_t, 3>> ColoursFrom(std::int64_t first) {
    std::vector<std::array<std::int64_t, 3>> colours;
    for (std::int64_t value = first; value < first + kRegionsInARecord && value <= kMost; ++value) {
      colours.push_back({11, 120, 230});
      colours.back()[GetParam()] = value;
    }
    return colours;
  }
};

TEST_P(EveryIntegerAsAColourKey, IsInTheRecordAsItsRemainder) {
  ManyRecords& records = ManyRecords::Instance();
  std::int64_t values = 0;
  for (std::int64_t first = kLeast; first <= kMost; first += kRegionsInARecord) {
    const auto colours = ColoursFrom(first);
    records.Report(true, std::vector<RegionState>(colours.size(), RegionState::kNamed), colours);
    ASSERT_TRUE(records.IsAsInTheModel()) << "from " << first;
    values += static_cast<std::int64_t>(colours.size());
  }
  EXPECT_EQ(140001, values);
  tests::Count("colour_keys", values);
}

INSTANTIATE_TEST_SUITE_P(Part, EveryIntegerAsAColourKey, testing::Values(0, 1, 2),
                         [](const auto& row) { return std::string(1, "RGB"[row.param]); });

}  // namespace
