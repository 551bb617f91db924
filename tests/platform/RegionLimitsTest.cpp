#include <cstdint>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/ReferenceColours.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using tests::IniFile;
using tests::ManyRegions;
using tests::SwitchedOn;
using tests::Yuv;

/// Colours of the first regions of `ManyRegions`.
std::vector<Yuv> ManyColours(int count) {
  std::vector<Yuv> colours;
  for (std::int64_t number = 1; number <= count; ++number) {
    colours.push_back(tests::ReferenceYuv(7 * number, 255 - 5 * number, 3 * number));
  }
  return colours;
}

/// The group of one region, as a change reports it.
IniFile RegionChange(int number, const IniFile::Keys& keys) {
  return tests::Settings({{tests::RegionGroup(number), keys}});
}

class ActiveRegions : public testing::TestWithParam<int> {};

TEST_P(ActiveRegions, FillTheRecordByTheirNumberUpTo31) {
  tests::InFreshProcess([] {
    tests::Started(SwitchedOn(ManyRegions(GetParam())));
    const tagWindowBlankingRegions record = tests::NewListener().record;
    EXPECT_EQ(static_cast<unsigned>(GetParam()), record.count);
    EXPECT_EQ(ManyColours(GetParam()), tests::ColoursOf(record));
  });
}

INSTANTIATE_TEST_SUITE_P(Count, ActiveRegions, testing::Values(1, 9, 10, 12, 30, 31));

TEST(ThirtyOneActiveRegions, LeaveTheLastEntryAsItWas) {
  tests::InFreshProcess([] {
    tests::Started(SwitchedOn(ManyRegions(31)));
    EXPECT_EQ(tests::kNothing, tests::AllEntries(tests::NewListener().record)[31]);
  });
}

TEST(ThirtyTwoActiveRegions, AreIgnoredWhenStarted) {
  tests::InFreshProcess([] {
    tests::Started(SwitchedOn(ManyRegions(32)));
    EXPECT_EQ(0, tests::NewListener().calls);
  });
}

TEST(ThirtyTwoActiveRegions, LeaveTheWholeRecordAsItWas) {
  tests::InFreshProcess([] {
    tests::Started(SwitchedOn({tests::RedRegion(), tests::BlueRegion()}));
    const std::vector<Yuv> before = tests::AllEntries(tests::NewListener().record);
    const tests::Listener after = tests::ListenerAfter(SwitchedOn(ManyRegions(32)));
    EXPECT_EQ(1, after.calls);
    EXPECT_EQ(2U, after.record.count);
    EXPECT_EQ(before, tests::AllEntries(after.record));
  });
}

TEST(ThirtyTwoActiveRegions, AreSeenOnceOneOfThemIsEmpty) {
  tests::InFreshProcess([] {
    tests::Started(SwitchedOn(ManyRegions(32)));
    const tests::Listener after = tests::ListenerAfter(RegionChange(32, tests::EmptyRegion()));
    EXPECT_EQ(ManyColours(31), tests::ColoursOf(after.record));
  });
}

TEST(ThirtyTwoActiveRegions, ClearTheRecordOnceTheyAreSwitchedOff) {
  tests::InFreshProcess([] {
    tests::Started(SwitchedOn({tests::RedRegion()}));
    EXPECT_EQ(1U, tests::ListenerAfter(SwitchedOn(ManyRegions(32))).record.count);
    EXPECT_EQ(0U, tests::ListenerAfter(tests::Switched(false)).record.count);
  });
}

TEST(TheLastOf32Groups, IsReadWhereAnEarlierOneIsInactive) {
  tests::InFreshProcess([] {
    std::vector<IniFile::Keys> regions(31, tests::EmptyRegion());
    regions.push_back(tests::GreenRegion());
    tests::Started(SwitchedOn(regions));
    EXPECT_THAT(tests::ColoursOf(tests::NewListener().record), testing::ElementsAre(tests::kGreen));
  });
}

TEST(AThirtyThirdRegion, IsNeverLookedAt) {
  tests::InFreshProcess([] {
    std::vector<IniFile::Keys> regions(32, tests::EmptyRegion());
    regions.push_back(tests::RedRegion());
    tests::Started(SwitchedOn(regions));
    EXPECT_EQ(0, tests::NewListener().calls);
    EXPECT_THAT(fakes::CallLog::Instance().CallsOf("IniFile::"),
                AllOf(Contains(HasSubstr("HasGroup(Imaging/WindowBlanking/Region#32)")),
                      Not(Contains(HasSubstr("Region#33")))));
  });
}

}  // namespace
}  // namespace analytics
