#include <array>
#include <cstdint>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/ManyRecords.h"

namespace {

using tests::ManyRecords;
using tests::RegionState;

constexpr int kRegions = 8;
constexpr int kPatterns = 1 << (2 * kRegions);  // four states each

/// The states of the regions as the digits of a number to the base four.
std::vector<RegionState> StatesOf(int pattern) {
  std::vector<RegionState> states;
  for (int place = 0; place < kRegions; ++place, pattern /= 4)
    states.push_back(static_cast<RegionState>(pattern % 4));
  return states;
}

/// A colour of its own for each region.
std::vector<std::array<std::int64_t, 3>> Colours(std::size_t count, std::int64_t seed) {
  std::vector<std::array<std::int64_t, 3>> colours;
  for (std::size_t place = 0; place < count; ++place) {
    const std::int64_t shade = seed + 7 * static_cast<std::int64_t>(place);
    colours.push_back({shade, 255 - shade, 2 * shade});
  }
  return colours;
}

/// Brings about a record of ten regions, by which it is seen what a pattern leaves as it was.
void ReportEarlier() {
  ManyRecords& records = ManyRecords::Instance();
  records.Report(true, std::vector<RegionState>(10, RegionState::kNamed), Colours(10, 100));
  ASSERT_TRUE(records.IsAsInTheModel());
  ASSERT_EQ(10U, records.Record().count);
}

class EveryPatternOfEightRegions : public testing::TestWithParam<bool> {};

// The switching off afterwards shows whether the pattern had any group: only then it clears.
TEST_P(EveryPatternOfEightRegions, LeavesTheRecordAndTheCountOfTheModel) {
  ManyRecords& records = ManyRecords::Instance();
  const auto colours = Colours(kRegions, 10);
  for (int pattern = 0; pattern < kPatterns; ++pattern) {
    ASSERT_NO_FATAL_FAILURE(ReportEarlier()) << pattern;
    const std::vector<RegionState> states = StatesOf(pattern);
    records.Report(GetParam(), states, colours);
    ASSERT_TRUE(records.IsAsInTheModel()) << pattern;
    records.Report(false, states, colours);
    ASSERT_TRUE(records.IsAsInTheModel()) << pattern;
  }
  tests::Count("patterns", kPatterns);
}

INSTANTIATE_TEST_SUITE_P(Switched, EveryPatternOfEightRegions, testing::Bool(),
                         [](const auto& row) { return row.param ? "On" : "Off"; });

/// How inactive regions lie between active ones.
enum class Mixing { kActiveFirst, kInactiveFirst, kAlternating };

/// So many regions, so many of them active.
std::vector<RegionState> Mixed(std::size_t groups, std::size_t active, Mixing mixing,
                               RegionState inactive) {
  std::vector<RegionState> states(groups, inactive);
  const std::size_t step = mixing == Mixing::kAlternating && 2 * active <= groups ? 2 : 1;
  const std::size_t first = mixing == Mixing::kInactiveFirst ? groups - active : 0;
  for (std::size_t index = 0; index < active; ++index)
    states[first + step * index] = RegionState::kNamed;
  return states;
}

TEST(EveryCountOfActiveRegions, GivesTheRecordOfTheModelHoweverInactiveOnesLie) {
  ManyRecords& records = ManyRecords::Instance();
  for (std::size_t groups = 0; groups <= 33; ++groups) {
    for (std::size_t active = 0; active <= groups; ++active) {
      for (const auto mixing :
           {Mixing::kActiveFirst, Mixing::kInactiveFirst, Mixing::kAlternating}) {
        for (const auto inactive : {RegionState::kWithoutName, RegionState::kEmpty}) {
          ASSERT_NO_FATAL_FAILURE(ReportEarlier());
          records.Report(true, Mixed(groups, active, mixing, inactive), Colours(groups, 10));
          ASSERT_TRUE(records.IsAsInTheModel()) << active << " of " << groups;
          tests::Count("mixtures");
        }
      }
    }
  }
}

}  // namespace
