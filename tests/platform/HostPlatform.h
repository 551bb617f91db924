#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

#include <gtest/gtest.h>

#include <analytics/WindowBlankingChanges.h>

#include "host/tavrel-settings/Store.h"
#include "tests/host/tavrel/StoreTest.h"
#include "tests/platform/Regions.h"

namespace tests {

/// A subscriber that is told on threads of the platform.
class RecordListener {
 public:
  /// The callback; its context is a listener.
  static int Hear(void* context, int /*kind*/, void* data, int /*size*/) {
    static_cast<RecordListener*>(context)->Note(
        *static_cast<const tagWindowBlankingRegions*>(data));
    return 0;
  }

  /// Waits for the next record; if none comes in time the test fails.
  std::vector<Yuv> Next() {
    std::unique_lock<std::mutex> lock(m_mutex);
    EXPECT_TRUE(m_arrival.wait_for(lock, kPatience, [this] { return m_isNew; }))
        << "no record was handed over";
    m_isNew = false;
    return m_last;
  }

  /// Waits until the last record has these colours, and gives the last one in any case.
  std::vector<Yuv> LastAfterWaitingFor(const std::vector<Yuv>& colours) {
    std::unique_lock<std::mutex> lock(m_mutex);
    m_arrival.wait_for(lock, kPatience, [&] { return m_last == colours; });
    return m_last;
  }

 private:
  static constexpr std::chrono::seconds kPatience{20};

  void Note(const tagWindowBlankingRegions& record) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_last = ColoursOf(record);
    m_isNew = true;
    m_arrival.notify_all();
  }

  std::mutex m_mutex;
  std::condition_variable m_arrival;
  std::vector<Yuv> m_last;  // under m_mutex
  bool m_isNew = false;     // under m_mutex
};

/// The library over the host platform, with a store of its own. What the library keeps for the
/// whole process wants a fresh process for each test.
class HostPlatformTest : public StoreTest {
 protected:
  static void Edit(const std::function<void(IniFile&)>& edit) {
    tavrel::settings::Store().Edit(edit);
  }

  /// Has the store hold the main switch, on, and these regions.
  static void Store(const std::vector<IniFile::Keys>& regions) {
    Edit([&](IniFile& settings) { settings = SwitchedOn(regions); });
  }

  /// Starts with what the store holds and subscribes.
  static const analytics::WindowBlankingChanges& Started(RecordListener& listener) {
    analytics::WindowBlankingChanges* const changes = analytics::WindowBlankingChanges::Instance();
    changes->Start();
    changes->Subscribe(&RecordListener::Hear, &listener);
    return *changes;
  }
};

}  // namespace tests
