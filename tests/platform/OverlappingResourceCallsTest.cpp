#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/ResourceUsageServer.h>

#include "tests/platform/MeetingPoint.h"
#include "tests/platform/PlatformCalls.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/fakes/Platform.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::vector<std::string> CallsOf(const std::string& start) {
  return fakes::CallLog::Instance().CallsOf(start);
}

/// Runs both at once, as the first use of the server in a process: each asks the platform while the
/// other does.
void RunOverlapping(const std::function<void()>& first, const std::function<void()>& second) {
  tests::MeetingPoint meeting(2);
  std::atomic<int> met{0};
  fakes::Platform::Instance().whileAsked = [&] { met += meeting.Arrive() ? 1 : 0; };
  fakes::CallLog::Instance().Clear();
  std::thread other(second);
  first();
  other.join();
  fakes::Platform::Instance().whileAsked = nullptr;
  EXPECT_EQ(2, met) << "one call waited for the other to end";
}

TEST(OverlappingResourceCalls, OpenAndCloseAClientAndAReserverEach) {
  tests::InFreshProcess([] {
    RunOverlapping([] { ResourceUsageServer().ReserveResources(1); },
                   [] { ResourceUsageServer().AvailableResources(); });
    EXPECT_THAT(CallsOf("TavrelSettingsClient::TavrelSettingsClient(1)"), SizeIs(2));
    EXPECT_THAT(CallsOf("TavrelSettingsClient::~"), SizeIs(2));
    EXPECT_THAT(CallsOf("ResourceReserver::ResourceReserver("), SizeIs(2));
    EXPECT_THAT(CallsOf("ResourceReserver::~"), SizeIs(2));
  });
}

TEST(OverlappingResourceCalls, AreBothAskedBeforeEitherClientIsClosed) {
  tests::InFreshProcess([] {
    RunOverlapping([] { ResourceUsageServer().ReserveResources(1); },
                   [] { ResourceUsageServer().ReserveResources(1); });
    const std::vector<std::string> calls = CallsOf("ResourceReserver::");
    ASSERT_THAT(calls, SizeIs(6));
    EXPECT_THAT(std::vector<std::string>(calls.end() - 2, calls.end()),
                ElementsAre("ResourceReserver::~ResourceReserver()",
                            "ResourceReserver::~ResourceReserver()"));
  });
}

TEST(OverlappingResourceCalls, TakeAndReleaseTheLockOnceEach) {
  tests::InFreshProcess([] {
    RunOverlapping([] { ResourceUsageServer().AvailableResources(); },
                   [] { ResourceUsageServer().AvailableResources(); });
    EXPECT_THAT(CallsOf("Mutex::Lock()"), SizeIs(2));
    EXPECT_THAT(CallsOf("Mutex::Unlock()"), SizeIs(2));
  });
}

TEST(OverlappingResourceCalls, OfManyThreadsEachGetTheirAnswer) {
  tests::InFreshProcess([] {
    fakes::Platform::Instance().availableResources = -6;
    std::atomic<int> sum{0};
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int index = 0; index < 4; ++index) {
      threads.emplace_back([&sum] {
        ResourceUsageServer server;
        for (int turn = 0; turn < 50; ++turn) sum += server.AvailableResources();
      });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(4 * 50 * -6, sum);
    EXPECT_EQ(CallsOf("Mutex::Lock()").size(), CallsOf("Mutex::Unlock()").size());
  });
}

}  // namespace
}  // namespace analytics
