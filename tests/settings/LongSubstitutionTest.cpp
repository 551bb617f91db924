#include <csignal>
#include <cstdlib>
#include <ostream>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <sys/time.h>
#include <unistd.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"
#include "tests/support/MemoryInUse.h"
#include "tests/support/TimeLimit.h"

namespace analytics {
namespace {

std::string Variable(const std::string& name, const std::string& value) {
  return "<variable name='" + name + "' value='" + value + "'/>";
}

/// Has the system kill this process once it has computed for another 200 ms.
void LimitComputingTime() {
  itimerval limit{};
  limit.it_value.tv_usec = 200'000;
  setitimer(ITIMER_VIRTUAL, &limit, nullptr);
}

TEST(ATextOfTenThousandReferences, IsSubstitutedThroughout) {
  ASSERT_TRUE(tests::LoadContent(tests::ElementOf("variables", Variable("a", "b"))));
  std::string text;
  for (int count = 0; count < 10000; ++count) text += "${a}";
  EXPECT_EQ(std::string(10000, 'b'), Settings::SubstituteVariables(text));
}

TEST(AChainOfVariables, IsFollowedToItsEnd) {
  std::string variables = Variable("v100", "end");
  for (int index = 0; index < 100; ++index) {
    variables += Variable("v" + std::to_string(index), "${v" + std::to_string(index + 1) + "}");
  }
  ASSERT_TRUE(tests::LoadContent(tests::ElementOf("variables", variables)));
  EXPECT_EQ("end", Settings::SubstituteVariables("${v0}"));
}

TEST(VariablesThatHoldOthersTwice, DoubleAtEachStep) {
  std::string variables = Variable("v12", "x");
  for (int index = 0; index < 12; ++index) {
    const std::string next = "${v" + std::to_string(index + 1) + "}";
    variables += Variable("v" + std::to_string(index), next + next);
  }
  ASSERT_TRUE(tests::LoadContent(tests::ElementOf("variables", variables)));
  EXPECT_EQ(std::string(4096, 'x'), Settings::SubstituteVariables("${v0}"));
}

/// Substitutes in a thread of its own and ends the process once that has taken so much memory.
void SubstituteUntilMemoryGrows(const std::string& text, long bytes) {
  const tests::TimeLimit limit;
  const long before = tests::ResidentBytes();
  std::thread([text] { Settings::SubstituteVariables(text); }).detach();
  while (tests::ResidentBytes() < before + bytes) std::this_thread::yield();
  _exit(EXIT_SUCCESS);
}

TEST(ASelfReferenceAmongText, TakesMoreAndMoreMemory) {
  const std::string value = "${a}" + std::string(4'000'000, 'x');
  ASSERT_TRUE(tests::LoadContent(tests::ElementOf("variables", Variable("a", value))));
  EXPECT_EXIT(SubstituteUntilMemoryGrows("${a}", 100'000'000), testing::ExitedWithCode(0), "");
}

struct Cycle {
  const char* name;
  std::string variables;
};

void PrintTo(const Cycle& cycle, std::ostream* out) { *out << cycle.name; }

const Cycle kCycles[] = {
    {"Itself", Variable("a", "${a}")},
    {"ItselfAmongText", Variable("a", "x${a}y")},
    {"AnotherThatLeadsBack", Variable("a", "${b}") + Variable("b", "${a}")},
    {"ACycleFurtherOn", Variable("a", "${b}") + Variable("b", "x${b}")},
};

/// A variable "a" that is led back to what has been replaced before.
class ASelfReference : public testing::TestWithParam<Cycle> {
 protected:
  void SetUp() override {
    ASSERT_TRUE(tests::LoadContent(tests::ElementOf("variables", GetParam().variables)));
  }
};

/// Substitutes in what computing time there is and then ends the process.
void SubstituteAndExit(const std::string& text) {
  LimitComputingTime();
  Settings::SubstituteVariables(text);
  _exit(EXIT_SUCCESS);
}

TEST_P(ASelfReference, NeverEnds) {
  EXPECT_EXIT(SubstituteAndExit("${a}"), testing::KilledBySignal(SIGVTALRM), "");
}

TEST_P(ASelfReference, DoesNothingWhereItIsNotReached) {
  EXPECT_EQ("", Settings::SubstituteVariables("${c}"));
  EXPECT_EQ("${}${a}", Settings::SubstituteVariables("${}${a}"));
}

INSTANTIATE_TEST_SUITE_P(ByWay, ASelfReference, testing::ValuesIn(kCycles),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace analytics
