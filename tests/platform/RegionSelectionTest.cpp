#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::BlueRegion;
using tests::EmptyRegion;
using tests::GreenRegion;
using tests::IniFile;
using tests::kBlue;
using tests::kGreen;
using tests::kNothing;
using tests::kRed;
using tests::RedRegion;
using tests::Region;
using tests::RegionGroup;
using tests::Yuv;

/// The main group, switched on.
IniFile::Groups::value_type On() { return {tests::kMainGroup, {{"Enabled", "true"}}}; }

struct Row {
  const char* name;
  IniFile::Groups groups;
  std::vector<Yuv> expected;  // colours of the active regions
};

const Row kRows[] = {
    {"NoSettings", {}, {}},
    {"OnlyRegions", {{RegionGroup(1), RedRegion()}}, {}},
    {"EnabledMissing",
     {{tests::kMainGroup, {{"Other", "true"}}}, {RegionGroup(1), RedRegion()}},
     {}},
    {"EnabledFalse",
     {{tests::kMainGroup, {{"Enabled", "false"}}}, {RegionGroup(1), RedRegion()}},
     {}},
    {"OnWithoutRegions", {On()}, {}},
    {"OneRegion", {On(), {RegionGroup(1), RedRegion()}}, {kRed}},
    {"DoorEmptyDesk",
     {On(),
      {RegionGroup(1), RedRegion()},
      {RegionGroup(2), EmptyRegion()},
      {RegionGroup(3), BlueRegion()}},
     {kRed, kBlue}},
    {"EmptyFirst",
     {On(), {RegionGroup(1), EmptyRegion()}, {RegionGroup(2), GreenRegion()}},
     {kGreen}},
    {"AllEmpty", {On(), {RegionGroup(1), EmptyRegion()}, {RegionGroup(2), EmptyRegion()}}, {}},
    {"GapEndsTheList",
     {On(),
      {RegionGroup(1), RedRegion()},
      {RegionGroup(2), GreenRegion()},
      {RegionGroup(4), BlueRegion()}},
     {kRed, kGreen}},
    {"ListThatDoesNotStartWithOne", {On(), {RegionGroup(2), RedRegion()}}, {}},
    {"NumberZeroIsNoRegion", {On(), {RegionGroup(0), RedRegion()}}, {}},
    {"LeadingZeroIsNoRegion",
     {On(), {std::string(tests::kMainGroup) + "/Region#01", RedRegion()}},
     {}},
    {"OtherLettersAreNoRegion",
     {On(), {std::string(tests::kMainGroup) + "/region#1", RedRegion()}},
     {}},
    {"GroupWithoutNameIsInactiveButNoGap",
     {On(), {RegionGroup(1), {{"ColorR", "255"}}}, {RegionGroup(2), BlueRegion()}},
     {kBlue}},
    {"GroupWithoutKeysIsInactiveButNoGap",
     {On(), {RegionGroup(1), {}}, {RegionGroup(2), BlueRegion()}},
     {kBlue}},
    {"EmptyInLowerCaseIsActive", {On(), {RegionGroup(1), Region("empty", 255, 0, 0)}}, {kRed}},
    {"EmptyInUpperCaseIsActive", {On(), {RegionGroup(1), Region("EMPTY", 255, 0, 0)}}, {kRed}},
    {"EmptyWithABlankIsActive", {On(), {RegionGroup(1), Region("Empty ", 255, 0, 0)}}, {kRed}},
    {"EmptyAsAStartIsActive", {On(), {RegionGroup(1), Region("Empty1", 255, 0, 0)}}, {kRed}},
    {"NameOfNoLettersIsActive", {On(), {RegionGroup(1), Region("", 255, 0, 0)}}, {kRed}},
};

class WindowBlankingSettings : public testing::TestWithParam<Row> {
 protected:
  /// Checks the whole record: what is behind its count has never been filled.
  static void ExpectRecord(const tagWindowBlankingRegions& record) {
    EXPECT_EQ(GetParam().expected, tests::ColoursOf(record));
    std::vector<Yuv> entries = GetParam().expected;
    entries.resize(32, kNothing);
    EXPECT_EQ(entries, tests::AllEntries(record));
  }
};

TEST_P(WindowBlankingSettings, GiveTheActiveRegionsInOrderWhenStarted) {
  tests::InFreshProcess([] {
    tests::Started(tests::Settings(GetParam().groups));
    const tests::Listener listener = tests::NewListener();
    EXPECT_EQ(GetParam().expected.empty() ? 0 : 1, listener.calls);
    ExpectRecord(listener.record);
  });
}

TEST_P(WindowBlankingSettings, GiveTheSameRegionsWhenTheyCameByAChange) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    const tests::Listener listener = tests::ListenerAfter(tests::Settings(GetParam().groups));
    EXPECT_EQ(1, listener.calls);
    ExpectRecord(listener.record);
  });
}

INSTANTIATE_TEST_SUITE_P(Rows, WindowBlankingSettings, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace analytics
