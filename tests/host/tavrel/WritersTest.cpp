#include <chrono>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/host/tavrel/ChildProcess.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;
using std::chrono::microseconds;
using std::chrono::steady_clock;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;
using testing::ThrowsMessage;
using testing::UnorderedElementsAre;

constexpr int kKeys = 100;

class AWriter : public tests::StoreTest {};

/// Gives all keys the same value, so that a store made of two writes is seen.
void WriteGeneration(int generation) {
  Store().Edit([=](IniFile& settings) {
    for (int key = 0; key < kKeys; ++key)
      settings.SetValue("A", "key" + std::to_string(key), std::to_string(generation));
  });
}

[[noreturn]] void WriteForEver(int generation) {
  for (;;) WriteGeneration(++generation);
}

/// The value that all keys have.
int Generation(const IniFile& settings) {
  const IniFile::Keys keys = settings.AllGroups().at("A");
  EXPECT_THAT(keys, SizeIs(kKeys));
  std::set<std::string> values;
  for (const auto& key : keys) values.insert(key.second);
  EXPECT_THAT(values, SizeIs(1)) << "the store is made of several writes";
  return settings.GetIntOrDefault("A", "key0", -1);
}

/// Waits differently each time, so that the kills spread over all that a writer does: mostly for a
/// moment in its first write, at every fourth time until that is seen in the store.
void WaitBefore(int kill, int generation) {
  if (kill % 4 == 0) {
    while (Generation(Store().Read()) == generation && !testing::Test::HasFailure()) continue;
    return;
  }
  const auto end = steady_clock::now() + microseconds(kill * 97 % 100 * 60);
  while (steady_clock::now() < end) continue;
}

TEST_F(AWriter, ThatIsKilledLeavesAWholeStore) {
  Write("# kept\n[A]\n");
  WriteGeneration(0);
  int generation = 0;
  for (int kill = 0; kill < 100; ++kill) {
    tests::ChildProcess writer([=]() -> int { WriteForEver(generation); });
    WaitBefore(kill, generation);
    writer.Kill();
    writer.Wait();
    const int now = Generation(Store().Read());
    ASSERT_GE(now, generation);
    generation = now;
  }
  EXPECT_GE(generation, 25);
  EXPECT_THAT(Text(), StartsWith("# kept\n"));
  WriteGeneration(generation);
  EXPECT_THAT(Names(), UnorderedElementsAre("store.ini", "store.ini.lock"));
}

TEST_F(AWriter, ReadsAgainWhatAnEditorWroteMeanwhile) {
  Write("[A]\nx=1\n");
  int calls = 0;
  Store().Edit([&](IniFile& settings) {
    if (++calls == 1) Write("# by hand\n[A]\nx=2\n");
    settings.SetValue("A", "y", settings.GetIntOrDefault("A", "x", 0) == 2 ? "new" : "old");
  });
  EXPECT_EQ("# by hand\n[A]\nx=2\ny=new\n", Text());
  EXPECT_EQ(2, calls);
}

TEST_F(AWriter, ReadsAgainWhatAnEditorPutInItsPlaceMeanwhile) {
  Write("[A]\nx=1\n");
  int calls = 0;
  Store().Edit([&](IniFile& settings) {
    if (++calls == 1) ReplaceBy("[B]\n");
    settings.SetValue("A", "y", "1");
  });
  EXPECT_EQ("[B]\n\n[A]\ny=1\n", Text());
}

TEST_F(AWriter, GivesUpWhereAnEditorNeverEnds) {
  Write("[A]\nx=0\n");
  int calls = 0;
  EXPECT_THAT(
      [&] {
        Store().Edit([&](IniFile& settings) {
          Write("[A]\nx=" + std::to_string(++calls) + "\n");
          settings.SetValue("A", "y", "1");
        });
      },
      tests::FailsOn(Path(), "keep changing it"));
  EXPECT_GT(calls, 1);
  EXPECT_EQ("[A]\nx=" + std::to_string(calls) + "\n", Text());
}

TEST_F(AWriter, RefusesWhatAnEditorBrokeMeanwhile) {
  Write("[A]\nx=1\n");
  EXPECT_THAT(
      [this] {
        Store().Edit([this](IniFile& settings) {
          Write("abc\n");
          settings.SetValue("A", "y", "1");
        });
      },
      ThrowsMessage<std::runtime_error>(HasSubstr(Path() + ":1: ")));
  EXPECT_EQ("abc\n", Text());
  EXPECT_THAT(Names(), UnorderedElementsAre("store.ini", "store.ini.lock"));
}

TEST_F(AWriter, IsNotSeenHalfwayByAReader) {
  WriteGeneration(0);
  tests::ChildProcess writer([]() -> int { WriteForEver(0); });
  for (int generation = 0; generation < 5 && !HasFailure();)
    generation = Generation(Store().Read());
}

TEST_F(AWriter, LosesNothingOfAnother) {
  constexpr int kEdits = 10;
  tests::StartSignal start;
  std::vector<std::unique_ptr<tests::ChildProcess>> writers;
  for (const std::string name : {"a", "b", "c"})
    writers.push_back(std::make_unique<tests::ChildProcess>([&start, name] {
      start.Wait();
      for (int edit = 0; edit < kEdits; ++edit) Set("A", name + std::to_string(edit), "1");
      return EXIT_SUCCESS;
    }));
  start.Give();
  for (const auto& writer : writers) EXPECT_EQ(EXIT_SUCCESS, writer->Wait());
  EXPECT_THAT(Groups().at("A"), SizeIs(writers.size() * kEdits));
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
