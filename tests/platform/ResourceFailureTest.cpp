#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/PlatformCalls.h"
#include "tests/platform/ResourceQuestions.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::Calls;
using tests::CallsOfFailing;
using tests::ResourceQuestion;

struct FailurePlace {
  const char* name;
  const char* start;  // of the call that fails; null means the question
  std::vector<std::string> destroyed;
};

const FailurePlace kPlaces[] = {
    {"WhenTheClientIsMade", "TavrelSettingsClient::TavrelSettingsClient", {}},
    {"WhenTheReserverIsMade",
     "ResourceReserver::ResourceReserver",
     {"TavrelSettingsClient::~TavrelSettingsClient()"}},
    {"WhenThePlatformIsAsked",
     nullptr,
     {"ResourceReserver::~ResourceReserver()", "TavrelSettingsClient::~TavrelSettingsClient()"}},
};

class AResourceCallThatFails
    : public testing::TestWithParam<std::tuple<ResourceQuestion, FailurePlace>> {
 protected:
  static const ResourceQuestion& Question() { return std::get<0>(GetParam()); }
  static const FailurePlace& Place() { return std::get<1>(GetParam()); }

  static const char* FailingCall() { return Place().start ? Place().start : Question().question; }

  /// All that the platform is asked up to the failure, and what is destroyed afterwards.
  static Calls ExpectedCalls() {
    const Calls all = {
        "Mutex::Lock()", "Mutex::Unlock()", "TavrelSettingsClient::TavrelSettingsClient(1)",
        "ResourceReserver::ResourceReserver(client,CPU,Analytics)", Question().question};
    Calls expected;
    for (const std::string& call : all) {
      expected.push_back(call);
      if (call.rfind(FailingCall(), 0) == 0) break;
    }
    expected.insert(expected.end(), Place().destroyed.begin(), Place().destroyed.end());
    return expected;
  }
};

TEST_P(AResourceCallThatFails, LetsTheFailureOutAndDestroysWhatWasMade) {
  tests::InFreshProcess(
      [] { EXPECT_EQ(ExpectedCalls(), CallsOfFailing(FailingCall(), [] { Question().ask(); })); });
}

TEST_P(AResourceCallThatFails, LeavesTheNextCallAsItWas) {
  tests::InFreshProcess([] {
    const Calls before = tests::CallsDuring([] { Question().ask(); });
    CallsOfFailing(FailingCall(), [] { Question().ask(); });
    EXPECT_EQ(before, tests::CallsDuring([] { Question().ask(); }));
  });
}

INSTANTIATE_TEST_SUITE_P(Operations, AResourceCallThatFails,
                         testing::Combine(testing::ValuesIn(tests::kResourceQuestions),
                                          testing::ValuesIn(kPlaces)),
                         [](const auto& row) {
                           return std::string(std::get<0>(row.param).name) +
                                  std::get<1>(row.param).name;
                         });

}  // namespace
}  // namespace analytics
