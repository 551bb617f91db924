#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/platform/BlankingOperations.h"
#include "tests/platform/ResourceQuestions.h"
#include "tests/platform/UnexpectedHandler.h"

namespace analytics {
namespace {

using testing::ExitedWithCode;
using tests::BlankingOperation;
using tests::ResourceQuestion;

constexpr int kUnexpected = 77;

[[noreturn]] void ExitAsUnexpected() { _exit(kUnexpected); }

/// Has the nth call of a mutex that starts with `call` throw.
void LetThrow(const std::string& call, int nth = 1) {
  tests::InstallUnexpectedHandler(&ExitAsUnexpected);
  fakes::CallLog::Instance().FailAt(call, nth);
}

const char* const kMutexCalls[] = {"Mutex::Lock()", "Mutex::Unlock()"};

std::string NameOfCall(const std::string& call) {
  return call == "Mutex::Lock()" ? "WhoseLockThrows" : "WhoseUnlockThrows";
}

template <typename Info>
std::string NameOf(const Info& row) {
  return std::get<0>(row.param).name + NameOfCall(std::get<1>(row.param));
}

class AResourceOperation
    : public testing::TestWithParam<std::tuple<ResourceQuestion, const char*>> {};

TEST_P(AResourceOperation, EndsTheProcessByTheUnexpectedExceptionHandler) {
  const auto& [question, call] = GetParam();
  EXPECT_EXIT(
      {
        LetThrow(call);
        question.ask();
      },
      ExitedWithCode(kUnexpected), "");
}

INSTANTIATE_TEST_SUITE_P(Of, AResourceOperation,
                         testing::Combine(testing::ValuesIn(tests::kResourceQuestions),
                                          testing::ValuesIn(kMutexCalls)),
                         [](const auto& row) { return NameOf(row); });

class ABlankingOperation
    : public testing::TestWithParam<std::tuple<BlankingOperation, const char*>> {};

TEST_P(ABlankingOperation, EndsTheProcessByTheUnexpectedExceptionHandler) {
  const auto& [operation, call] = GetParam();
  EXPECT_EXIT(
      {
        tests::PrepareFor(operation);
        LetThrow(call);
        operation.call();
      },
      ExitedWithCode(kUnexpected), "");
}

INSTANTIATE_TEST_SUITE_P(Of, ABlankingOperation,
                         testing::Combine(testing::ValuesIn(tests::kBlankingOperations),
                                          testing::ValuesIn(kMutexCalls)),
                         [](const auto& row) { return NameOf(row); });

TEST_P(ABlankingOperation, EndsTheProcessAlsoWhereTheMutexThrowsANumber) {
  const auto& [operation, call] = GetParam();
  EXPECT_EXIT(
      {
        tests::PrepareFor(operation);
        LetThrow(call);
        fakes::CallLog::Instance().SetThrown(fakes::Thrown::kNumber);
        operation.call();
      },
      ExitedWithCode(kUnexpected), "");
}

/// A failure that leaves an operation, or would if the operation let it.
struct TravellingFailure {
  const char* name;
  bool isOfStarted;
  const char* failing;
  void (*call)();
};

const TravellingFailure kTravelling[] = {
    {"OfReading", false, "TavrelSettingsClient::GetSettings",
     [] { WindowBlankingChanges().Start(); }},
    {"OfSubscribing", false, "TavrelSettingsClient::Subscribe",
     [] { WindowBlankingChanges().Start(); }},
    {"OfUnsubscribing", true, "TavrelSettingsClient::UnSubscribe",
     [] { WindowBlankingChanges().Stop(); }},
    {"OfANewSubscriber", true, "Subscriber(",
     [] { WindowBlankingChanges().Subscribe(&tests::NoteCall, tests::Named("new")); }},
    {"OfASubscriberToldAConfiguration", true, "Subscriber(",
     [] { WindowBlankingChanges().SetConfiguration(tests::OneRegion()); }},
    {"OfASubscriberToldAChange", true, "Subscriber(",
     [] { tests::Change(fakes::Platform::Instance().stored); }},
    {"OfMerging", true, "IniFile::MergeSettings",
     [] { tests::Change(fakes::Platform::Instance().stored); }},
};

class AFailureThatAlreadyTravels : public testing::TestWithParam<TravellingFailure> {
 protected:
  static void Prepare() {
    fakes::Platform::Instance().stored = tests::SwitchedOn({tests::RedRegion()});
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    if (GetParam().isOfStarted) changes.Start();
    changes.Subscribe(&tests::NoteCall, tests::Named("first"));
  }
};

TEST_P(AFailureThatAlreadyTravels, EndsTheProcessWhereTheUnlockThrowsToo) {
  EXPECT_EXIT(
      {
        Prepare();
        LetThrow("Mutex::Unlock()");
        fakes::CallLog::Instance().FailAt(GetParam().failing, 1);
        GetParam().call();
      },
      ExitedWithCode(kUnexpected), "");
}

INSTANTIATE_TEST_SUITE_P(Failure, AFailureThatAlreadyTravels, testing::ValuesIn(kTravelling),
                         [](const auto& row) { return std::string(row.param.name); });

int Unsubscribe(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
  WindowBlankingChanges().Unsubscribe(&Unsubscribe, context);
  return 0;
}

class ALockWithinALock : public testing::TestWithParam<const char*> {};

// Not swallowed like what a subscriber throws, though it is within a change.
TEST_P(ALockWithinALock, EndsTheProcessToo) {
  EXPECT_EXIT(
      {
        WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
        changes.Start();
        changes.Subscribe(&Unsubscribe, nullptr);
        // The lock of the change comes first and its release last.
        LetThrow(GetParam(), std::string(GetParam()) == "Mutex::Lock()" ? 2 : 1);
        tests::Change(fakes::Platform::Instance().stored);
      },
      ExitedWithCode(kUnexpected), "");
}

INSTANTIATE_TEST_SUITE_P(Call, ALockWithinALock, testing::ValuesIn(kMutexCalls),
                         [](const auto& row) { return NameOfCall(row.param); });

TEST(AConfigurationOfCountZero, MeetsNoMutexThatCouldThrow) {
  EXPECT_EXIT(
      {
        const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
        LetThrow("Mutex::Lock()");
        changes.SetConfiguration(tagWindowBlankingRegions());
        _exit(0);
      },
      ExitedWithCode(0), "");
}

}  // namespace
}  // namespace analytics
