#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;

const char* const kBefore = "[A]\nx=1\ny=2\n\n[A/B]\nz=3\n\n[Other]\nw=4\n";

struct Row {
  const char* name;
  const char* after;
  IniFile::Groups values;
  std::set<std::string> removedGroups;
  std::set<std::pair<std::string, std::string>> removedKeys;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kRows[] = {
    {"AChangedKey", "[A]\nx=5\ny=2\n[A/B]\nz=3\n", {{"A", {{"x", "5"}}}}, {}, {}},
    {"ANewKey", "[A]\nx=1\ny=2\nnew=\n[A/B]\nz=3\n", {{"A", {{"new", ""}}}}, {}, {}},
    {"ARemovedKey", "[A]\nx=1\n[A/B]\nz=3\n", {}, {}, {{"A", "y"}}},
    {"TheLastKeyOfAGroup", "[A]\nx=1\ny=2\n[A/B]\n", {}, {}, {{"A/B", "z"}}},
    {"ANewGroup", "[A]\nx=1\ny=2\n[A/B]\nz=3\n[A/C]\nv=1\n", {{"A/C", {{"v", "1"}}}}, {}, {}},
    {"ANewEmptyGroup", "[A]\nx=1\ny=2\n[A/B]\nz=3\n[A/C]\n", {{"A/C", {}}}, {}, {}},
    {"ARemovedGroup", "[A]\nx=1\ny=2\n", {}, {"A/B"}, {}},
    {"SeveralAtOnce",
     "[A]\nx=5\nv=6\n[A/C]\nu=7\n[A/D]\n",
     {{"A", {{"v", "6"}, {"x", "5"}}}, {"A/C", {{"u", "7"}}}, {"A/D", {}}},
     {"A/B"},
     {{"A", "y"}}},
    {"AllOfIt", "", {}, {"A", "A/B"}, {}},
    {"NothingOfOtherGroups",
     "[A]\nx=5\ny=2\n[A/B]\nz=3\n[Other]\nw=9\n",
     {{"A", {{"x", "5"}}}},
     {},
     {}},
};

class AChange : public tests::StoreTest, public testing::WithParamInterface<Row> {};

TEST_P(AChange, HoldsWhatDiffers) {
  Write(kBefore);
  tests::ChangeRecorder recorder;
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  client.Subscribe(&recorder, "A*");
  ReplaceBy(GetParam().after);
  const IniFile change = recorder.Next();
  EXPECT_EQ(GetParam().values, change.AllGroups());
  EXPECT_EQ(GetParam().removedGroups, change.RemovedGroups());
  EXPECT_EQ(GetParam().removedKeys, change.RemovedKeys());
}

TEST_P(AChange, GivesTheSettingsAsTheyAreWhenMerged) {
  Write(kBefore);
  tests::ChangeRecorder recorder;
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  IniFile settings;
  client.GetSettings("A*", settings);
  client.Subscribe(&recorder, "A*");
  ReplaceBy(GetParam().after);
  settings.MergeSettings(recorder.Next());
  IniFile now;
  client.GetSettings("A*", now);
  EXPECT_EQ(now.AllGroups(), settings.AllGroups());
}

INSTANTIATE_TEST_SUITE_P(Rows, AChange, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace settings
}  // namespace tavrel
