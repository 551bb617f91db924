#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include <gmock/gmock.h>

#include <analytics/WindowBlankingChanges.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/platform/plain-subscriber/PlainSubscriber.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using Record = tagWindowBlankingRegions;
using Entry = tagWindowBlankingRegion;

static_assert(sizeof(Record) == 388, "a count and 32 entries");
static_assert(sizeof(Entry) == 12, "three numbers");
static_assert(alignof(Record) == 4, "records lie where numbers lie");
static_assert(std::extent<decltype(Record::regions)>::value == 32, "room for every region");
static_assert(offsetof(Record, count) == 0, "the count comes first");
static_assert(offsetof(Record, regions) == 4, "the entries follow it");
static_assert(offsetof(Entry, y) == 0, "luma comes first");
static_assert(offsetof(Entry, u) == 4, "Cb follows");
static_assert(offsetof(Entry, v) == 8, "Cr follows");
static_assert(std::is_same<decltype(Record::count), std::uint32_t>::value, "unsigned");
static_assert(std::is_same<decltype(Entry::y), std::int32_t>::value, "signed");
static_assert(std::is_same<decltype(Entry::u), std::int32_t>::value, "signed");
static_assert(std::is_same<decltype(Entry::v), std::int32_t>::value, "signed");
static_assert(std::is_standard_layout<Record>::value, "plain callbacks read it");
static_assert(std::is_trivial<Record>::value, "plain callbacks copy it");
static_assert(std::is_same<WindowBlankingCallback, int (*)(void*, int, void*, int)>::value,
              "a callback is a plain function");

/// The 32-bit number at a byte of the record, read as by a program that only knows the layout.
std::int32_t NumberAt(const Record& record, std::size_t offset) {
  std::int32_t number = 0;
  std::copy_n(reinterpret_cast<const char*>(&record) + offset, sizeof number,
              reinterpret_cast<char*>(&number));
  return number;
}

TEST(TheRecord, HoldsEachColourAtItsOffset) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::RedRegion(), tests::GreenRegion()}));
    const Record record = tests::NewListener().record;
    EXPECT_EQ(2, NumberAt(record, 0));
    EXPECT_EQ(tests::kRed,
              (tests::Yuv{NumberAt(record, 4), NumberAt(record, 8), NumberAt(record, 12)}));
    EXPECT_EQ(tests::kGreen,
              (tests::Yuv{NumberAt(record, 16), NumberAt(record, 20), NumberAt(record, 24)}));
    EXPECT_EQ(0, NumberAt(record, 28));
    EXPECT_EQ(0, NumberAt(record, 384));
  });
}

TEST(APlainSubscriber, WrittenInCIsToldOfTheRegions) {
  tests::InFreshProcess([] {
    PlainNotice notice = {};
    tests::Started(tests::SwitchedOn({tests::RedRegion(), tests::BlueRegion()}))
        ->Subscribe(PlainCallback(), &notice);
    EXPECT_EQ(1, notice.calls);
    EXPECT_EQ(4, notice.kind);
    EXPECT_EQ(388, notice.size);
    EXPECT_EQ(2U, notice.record.count);
    EXPECT_EQ(41, notice.record.regions[1].y);
  });
}

TEST(APlainSubscriber, WrittenInCSeesTheSameLayout) {
  EXPECT_EQ(388, PlainRecordSize());
  EXPECT_EQ(4, PlainEntriesOffset());
}

}  // namespace
}  // namespace analytics
