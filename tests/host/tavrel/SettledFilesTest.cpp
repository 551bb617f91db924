#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "host/tavrel-settings/Settling.h"
#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/WatchedStore.h"

namespace tavrel {
namespace settings {
namespace {

namespace fs = std::filesystem;

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using Clock = Settling::Clock;

constexpr int kRounds = 5;

class ASettlingStore : public tests::WatchedStoreTest {
 protected:
  /// Writes the store in place in small parts.
  ///
  /// @return the longest time between two parts
  Clock::duration WriteInParts(const std::string& value) const {
    std::ofstream file(Path());
    Clock::duration longest{};
    auto last = Clock::now();
    for (const std::string part : {"[A", "]\nx=", value.c_str(), "\ny=", value.c_str(), "\n"}) {
      std::this_thread::sleep_for(milliseconds(5));
      file << part << std::flush;
      longest = std::max(longest, Clock::now() - last);
      last = Clock::now();
    }
    return longest;
  }

  /// Waits for a value.
  ///
  /// @return the number of changes until then
  int ChangesUntil(const std::string& key, const std::string& value) {
    int changes = 0;
    for (std::string now; now != value && !HasFailure(); ++changes)
      m_recorder.Next().TryGetValue(now, "A", key);
    return changes;
  }
};

TEST_F(ASettlingStore, IsNotDeliveredHalfWritten) {
  for (int round = 2; round < 2 + kRounds; ++round) {
    // A pause that was not meant, on a busy machine, may be taken for the end.
    const bool isSteady = WriteInParts(std::to_string(round)) < Settling::kQuiet;
    const int changes = ChangesUntil("y", std::to_string(round));
    EXPECT_TRUE(!isSteady || changes == 1) << changes << " changes";
  }
}

TEST_F(ASettlingStore, IsNotDeliveredAsRemovedWhenItIsMovedAwayAndWrittenAnew) {
  for (int round = 2; round < 2 + kRounds; ++round) {
    const auto start = Clock::now();
    fs::rename(Path(), m_directory.PathOf("store.ini~"));
    std::this_thread::sleep_for(milliseconds(120));
    Write("[A]\nx=" + std::to_string(round) + "\n");
    const bool isSteady = Clock::now() - start < Settling::kAbsence;
    const int changes = ChangesUntil("x", std::to_string(round));
    EXPECT_TRUE(!isSteady || changes == 1) << changes << " changes";
  }
}

TEST_F(ASettlingStore, IsDeliveredWhenItIsWrittenInPlaceNoSoonerThanItHasSettled) {
  const auto start = Clock::now();
  Write("[A]\nx=2\n");
  m_recorder.WaitForValue("A", "x", "2");
  EXPECT_GE(Clock::now() - start, Settling::kQuiet);
}

TEST_F(ASettlingStore, IsDeliveredAsRemovedNoSoonerThanItHasBeenMissingForLong) {
  const auto start = Clock::now();
  fs::remove(Path());
  EXPECT_THAT(m_recorder.Next().RemovedGroups(), ElementsAre("A"));
  EXPECT_GE(Clock::now() - start, Settling::kAbsence);
}

TEST_F(ASettlingStore, IsDeliveredInTheEndIfItIsWrittenAllTheTime) {
  std::atomic<bool> isDelivered{false};
  std::thread writer([&] {
    std::fstream file(Path(), std::ios::in | std::ios::out);
    for (int value = 0; !isDelivered; value = (value + 1) % 10) {
      file.seekp(6);
      file << value << std::flush;
      std::this_thread::sleep_for(milliseconds(10));
    }
  });
  EXPECT_THAT(m_recorder.Next().AllGroups(), testing::SizeIs(1));
  isDelivered = true;
  writer.join();
}

TEST_F(ASettlingStore, IsNotWaitedForByTheEndOfItsClient) {
  constexpr int kClients = 20;
  const auto start = Clock::now();
  for (int client = 0; client < kClients; ++client) {
    TavrelSettingsClient watching(TavrelSettingsClient::kObserve);
    Write("[A]\nx=1\n");
    watching.Subscribe(&m_recorder, "A");
    fs::remove(Path());
  }
  EXPECT_LT(Clock::now() - start, kClients * Settling::kAbsence);
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
