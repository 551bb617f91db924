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

/// Has the next call of a mutex that starts with `call` throw.
void LetThrow(const std::string& call) {
  tests::InstallUnexpectedHandler(&ExitAsUnexpected);
  fakes::CallLog::Instance().FailAt(call, 1);
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

TEST(AFailureThatAlreadyTravels, EndsTheProcessWhereTheUnlockThrowsToo) {
  EXPECT_EXIT(
      {
        const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
        LetThrow("Mutex::Unlock()");
        fakes::CallLog::Instance().FailAt("TavrelSettingsClient::GetSettings", 1);
        changes.Start();
      },
      ExitedWithCode(kUnexpected), "");
}

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
