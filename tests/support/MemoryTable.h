#pragma once

#include <algorithm>
#include <new>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>

#include "tests/support/Answer.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/FailingXmlMemory.h"
#include "tests/support/Figures.h"
#include "tests/support/Survival.h"
#include "tests/support/XmlMemoryFaults.h"

namespace tests {

/// One operation in a table of what a subsystem does when its memory runs out.
///
/// A `Subject` is made afresh for each run, `Reset()` makes it as it was when made, and `State()`
/// writes down what it holds.
template <typename Subject>
struct MemoryRow {
  const char* name;
  Answer (*operate)(Subject& subject);  // makes nothing itself that needs memory
  std::string answer;
  std::vector<std::string> lacking = {};  // other answers, where libxml2 has no memory
  std::string wanted = {};                // the state afterwards, where the operation changes it
  std::vector<std::string> halfway = {};  // other states that a failure is documented to leave
  bool (*isHalfway)(const Subject& subject) = nullptr;  // tells more such states
};

template <typename Subject>
void PrintTo(const MemoryRow<Subject>& row, std::ostream* out) {
  *out << row.name;
}

/// Runs an operation with its first, second, ... allocation failing, until a run completes.
///
/// @tparam Failing  whose allocations: `FailingAllocation` or `FailingXmlMemory`
template <typename Failing, typename Subject>
class MemoryTrial {
 public:
  MemoryTrial(const MemoryRow<Subject>& row, Shortage shortage)
      : m_row(row), m_shortage(shortage) {}

  void Run() {
    XmlMemoryFaults();
    Try(0);  // what is made once in a process and kept is made here and above
    if (kOfXml) FindCrashes();
    int number = 1;
    while (Has<int>(m_crashing, number) || LosesNothing(number)) ++number;
    Count(kOfXml ? "xml_allocations_failed" : "allocations_failed", m_failures);
  }

 private:
  static constexpr bool kOfXml = std::is_same_v<Failing, FailingXmlMemory>;

  struct Outcome {
    bool letOut = false;
    int failures = 0;
    std::string answer;
    std::string state;
  };

  /// Looks in child processes for the allocations whose failure libxml2 does not survive.
  void FindCrashes() {
    SharedNumber number(1);
    while (!SurvivesUnlessXmlCrashes([&] { RunThrough(number); })) {
      m_crashing.push_back(number.Get());
      ++number;
    }
  }

  void RunThrough(SharedNumber& number) const {
    for (bool isFailing = true; isFailing; ++number) {
      Subject subject;
      isFailing = Operate(subject, number.Get()).failures > 0;
    }
  }

  /// Runs with one number and gives whether it came to the failure.
  bool LosesNothing(int number) {
    const long blocks = FailingXmlMemory::Live();
    const long moment = FailingXmlMemory::Now();
    const long objects = FailingAllocation::Live();
    const int failures = Try(number);
    const long lost = FailingXmlMemory::Live() - blocks;
    Judge(kLeaks, lost == 0, number, "libxml2's blocks are lost");
    EXPECT_EQ(objects, FailingAllocation::Live()) << "allocation " << number;
    if (lost != 0) FailingXmlMemory::ReleaseLost(moment);
    m_failures += failures;
    return failures > 0;
  }

  int Try(int number) {
    Subject subject;
    const std::string before = subject.State();
    const Outcome outcome = Operate(subject, number);
    if (outcome.failures > 0) {
      ExpectHarmless(subject, outcome, before, number);
      ExpectSameAsBefore(subject, before);
    } else {
      ExpectDone(outcome, before);
    }
    return outcome.failures;
  }

  Outcome Operate(Subject& subject, int number) const {
    Outcome outcome;
    Answer answer;
    if (number > 0) {
      const Failing failing(number, m_shortage);
      outcome.letOut = LetsBadAllocOut(subject, answer);
      outcome.failures = failing.Failures();
    } else {
      outcome.letOut = LetsBadAllocOut(subject, answer);
    }
    outcome.answer = TextOf(answer);
    outcome.state = subject.State();
    return outcome;
  }

  bool LetsBadAllocOut(Subject& subject, Answer& answer) const {
    try {
      answer = m_row.operate(subject);
    } catch (const std::bad_alloc&) {
      return true;
    }
    return false;
  }

  void ExpectDone(const Outcome& outcome, const std::string& before) const {
    EXPECT_FALSE(outcome.letOut);
    EXPECT_EQ(m_row.answer, outcome.answer);
    EXPECT_EQ(m_row.wanted.empty() ? before : m_row.wanted, outcome.state);
  }

  void ExpectHarmless(const Subject& subject, const Outcome& outcome, const std::string& before,
                      int number) const {
    EXPECT_EQ(!kOfXml, outcome.letOut) << "allocation " << number;
    if (kOfXml) {
      const bool isRight = outcome.answer == m_row.answer || Has(m_row.lacking, outcome.answer);
      Judge(kWrongAnswer, isRight, number, outcome.answer);
    }
    const bool isRight = outcome.state == before || Has(m_row.halfway, outcome.state) ||
                         (!m_row.wanted.empty() && outcome.state == m_row.wanted) ||
                         (kOfXml && m_row.isHalfway && m_row.isHalfway(subject));
    Judge(kWrongState, isRight, number, outcome.state);
  }

  /// What only reads answers at once as ever; in any case a new beginning does.
  void ExpectSameAsBefore(Subject& subject, const std::string& before) const {
    if (m_row.wanted.empty() && m_row.halfway.empty()) ExpectDone(Operate(subject, 0), before);
    subject.Reset();
    EXPECT_EQ(before, subject.State());
    ExpectDone(Operate(subject, 0), before);
  }

  /// Fails the test for what is not right, unless libxml2 is known for it where it had no memory.
  void Judge(XmlMemoryEffect effect, bool isRight, int number, const std::string& what) const {
    if (isRight || (kOfXml && IsXmlFault(effect))) return;
    ADD_FAILURE() << "allocation " << number << ": " << what;
  }

  template <typename Value>
  static bool Has(const std::vector<Value>& values, const Value& value) {
    return std::find(values.begin(), values.end(), value) != values.end();
  }

  const MemoryRow<Subject>& m_row;
  const Shortage m_shortage;
  std::vector<int> m_crashing;
  int m_failures = 0;
};

/// An operation of the table, with memory failing once and for good.
template <typename Subject>
class MemoryTableTest : public testing::TestWithParam<MemoryRow<Subject>> {
 protected:
  template <typename Failing>
  void RunOut() const {
    for (const Shortage shortage : kShortages) {
      SCOPED_TRACE(NameOf(shortage));
      MemoryTrial<Failing, Subject>(this->GetParam(), shortage).Run();
    }
  }

  void RunOutOfCppMemory() const {
    if (!FailingAllocation::IsPossible())
      GTEST_SKIP() << "operator new cannot be made to fail here";
    ASSERT_TRUE(FailingAllocation::IsInPlace()) << "another operator new has taken its place";
    Count("operations");
    RunOut<FailingAllocation>();
  }

  void RunOutOfXmlMemory() const { RunOut<FailingXmlMemory>(); }

 private:
  const QuietXml m_quiet;
};

template <typename Subject>
std::string MemoryRowName(const testing::TestParamInfo<MemoryRow<Subject>>& info) {
  return info.param.name;
}

}  // namespace tests
