#include <cerrno>
#include <climits>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>

#include <analytics/ResourceUsageServer.h>

#include "tests/platform/PlatformCalls.h"
#include "tests/platform/ResourceQuestions.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/fakes/LockAnswer.h"
#include "tests/support/fakes/Platform.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using tests::Calls;
using tests::CallsDuring;
using tests::ResourceQuestion;

static_assert(std::is_empty<ResourceUsageServer>::value, "a server keeps no state");
static_assert(!std::is_polymorphic<ResourceUsageServer>::value,
              "a server has no virtual operation");

fakes::Platform& Platform() { return fakes::Platform::Instance(); }

/// What the platform is asked by one call that asks `question`.
Calls WholeCall(const std::string& question) {
  return {"Mutex::Lock()",
          "Mutex::Unlock()",
          "TavrelSettingsClient::TavrelSettingsClient(1)",
          "ResourceReserver::ResourceReserver(client,CPU,Analytics)",
          question,
          "ResourceReserver::~ResourceReserver()",
          "TavrelSettingsClient::~TavrelSettingsClient()"};
}

TEST(TheLoadedLibrary, HasMadeTheMutexOfTheServerRecursive) {
  tests::InFreshProcess(
      [] { EXPECT_THAT(fakes::CallLog::Instance().Calls(), ElementsAre("Mutex::Mutex(true)")); });
}

TEST(AResourceServer, AsksNothingWhenItIsMadeAndDestroyed) {
  tests::InFreshProcess(
      [] { EXPECT_THAT(CallsDuring([] { ResourceUsageServer(); }), testing::IsEmpty()); });
}

class AResourceCall : public testing::TestWithParam<ResourceQuestion> {};

TEST_P(AResourceCall, LocksThenAsksUnlockedOverItsOwnClientOnTheFirstUse) {
  tests::InFreshProcess(
      [] { EXPECT_EQ(WholeCall(GetParam().question), CallsDuring([] { GetParam().ask(); })); });
}

TEST_P(AResourceCall, DoesTheSameOnALaterUseWithNothingKept) {
  tests::InFreshProcess([] {
    ResourceUsageServer().AvailableResources();
    ResourceUsageServer().ReserveResources(1);
    EXPECT_EQ(WholeCall(GetParam().question), CallsDuring([] { GetParam().ask(); }));
  });
}

TEST_P(AResourceCall, GoesOnWithoutTheLockAndDoesNotReleaseItWhereItIsRefused) {
  for (const int answer : {1, -1, EDEADLK}) {
    tests::InFreshProcess([answer] {
      fakes::LockAnswer() = answer;
      Calls unlocked = WholeCall(GetParam().question);
      unlocked.erase(unlocked.begin() + 1);
      EXPECT_EQ(unlocked, CallsDuring([] { GetParam().ask(); })) << answer;
    });
  }
}

TEST_P(AResourceCall, AnswersTheSameWhereTheLockIsRefused) {
  tests::InFreshProcess([] {
    Platform().availableResources = 7;
    const int locked = GetParam().ask();
    fakes::LockAnswer() = EDEADLK;
    EXPECT_EQ(locked, GetParam().ask());
  });
}

INSTANTIATE_TEST_SUITE_P(Operations, AResourceCall, testing::ValuesIn(tests::kResourceQuestions),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ResourceServers, AreInterchangeable) {
  tests::InFreshProcess([] {
    ResourceUsageServer one;
    ResourceUsageServer other;
    Platform().availableResources = 9;
    EXPECT_EQ(WholeCall("ResourceReserver::TrySetUsage(4)"),
              CallsDuring([&] { one.ReserveResources(4); }));
    EXPECT_EQ(WholeCall("ResourceReserver::TrySetUsage(4)"),
              CallsDuring([&] { other.ReserveResources(4); }));
    EXPECT_EQ(9, one.AvailableResources());
    EXPECT_EQ(9, other.AvailableResources());
  });
}

class AvailableResources : public testing::TestWithParam<int> {};

TEST_P(AvailableResources, ArePassedOnUnchangedAlsoBelowZero) {
  tests::InFreshProcess([] {
    Platform().availableResources = GetParam();
    EXPECT_EQ(GetParam(), ResourceUsageServer().AvailableResources());
  });
}

INSTANTIATE_TEST_SUITE_P(Units, AvailableResources,
                         testing::Values(0, 1, 12, -1, -3, INT_MAX, INT_MIN));

TEST(AvailableResources, AreAskedForAfreshByEachCall) {
  tests::InFreshProcess([] {
    Platform().availableResources = 5;
    EXPECT_EQ(5, ResourceUsageServer().AvailableResources());
    Platform().availableResources = 2;
    EXPECT_EQ(2, ResourceUsageServer().AvailableResources());
  });
}

class AClaim : public testing::TestWithParam<int> {};

TEST_P(AClaim, IsPassedOnUnchangedAlsoOfZeroAndLess) {
  tests::InFreshProcess([] {
    EXPECT_EQ(WholeCall("ResourceReserver::TrySetUsage(" + std::to_string(GetParam()) + ")"),
              CallsDuring([] { ResourceUsageServer().ReserveResources(GetParam()); }));
  });
}

TEST_P(AClaim, GivesOneWhereThePlatformAcceptsIt) {
  tests::InFreshProcess([] { EXPECT_EQ(1, ResourceUsageServer().ReserveResources(GetParam())); });
}

TEST_P(AClaim, GivesOneAlsoWhereThePlatformRefusesIt) {
  tests::InFreshProcess([] {
    Platform().usageAccepted = false;
    EXPECT_EQ(1, ResourceUsageServer().ReserveResources(GetParam()));
  });
}

INSTANTIATE_TEST_SUITE_P(Units, AClaim, testing::Values(0, 1, 12, -1, INT_MAX, INT_MIN));

}  // namespace
}  // namespace analytics
