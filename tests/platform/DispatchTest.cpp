#include <string>

#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using tests::Calls;
using tests::IniFile;
using tests::Named;
using tests::NoteCall;

// Subscribers that change the list while they are called, as a recursive mutex allows.

int AddLate(void* context, int kind, void* data, int size) {
  NoteCall(context, kind, data, size);
  WindowBlankingChanges().Subscribe(&NoteCall, Named("late"));
  return 0;
}

int AddMany(void* context, int kind, void* data, int size) {
  for (int index = 0; index < 100; ++index) AddLate(context, kind, data, size);
  return 0;
}

int RemoveItself(void* context, int kind, void* data, int size) {
  NoteCall(context, kind, data, size);
  WindowBlankingChanges().Unsubscribe(&RemoveItself, context);
  return 0;
}

int RemoveA(void* context, int kind, void* data, int size) {
  NoteCall(context, kind, data, size);
  WindowBlankingChanges().Unsubscribe(&NoteCall, Named("A"));
  return 0;
}

/// One way of calling all subscribers.
struct Dispatch {
  const char* name;
  void (*run)();
};

const Dispatch kDispatches[] = {
    {"SetConfiguration", [] { WindowBlankingChanges().SetConfiguration(tests::OneRegion()); }},
    {"Change", [] { tests::Change(IniFile()); }},
};

class ADispatch : public testing::TestWithParam<Dispatch> {
 protected:
  static const WindowBlankingChanges& StartedWithoutRegions() { return *tests::Started(IniFile()); }

  /// The subscribers that one dispatch calls.
  static Calls Called() {
    fakes::CallLog::Instance().Clear();
    GetParam().run();
    return tests::CalledSubscribers();
  }
};

TEST_P(ADispatch, CallsASubscriberAddedByAnotherInTheSameRound) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithoutRegions();
    changes.Subscribe(&AddLate, Named("adder"));
    changes.Subscribe(&NoteCall, Named("A"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(adder)", "Subscriber(A)", "Subscriber(late)"));
  });
}

TEST_P(ADispatch, CallsASubscriberAddedByTheLastOne) {
  tests::InFreshProcess([] {
    StartedWithoutRegions().Subscribe(&AddLate, Named("adder"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(adder)", "Subscriber(late)"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(adder)", "Subscriber(late)", "Subscriber(late)"));
  });
}

TEST_P(ADispatch, CallsAnAddedSubscriberAtOnceAndInItsTurnWhereThereAreRegions) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(tests::SwitchedOn({tests::RedRegion()}));
    changes.Subscribe(&AddLate, Named("adder"));
    changes.Unsubscribe(&NoteCall, Named("late"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(adder)", "Subscriber(late)", "Subscriber(late)"));
  });
}

TEST_P(ADispatch, CallsAllOfManyAddedInTheSameRound) {
  tests::InFreshProcess([] {
    StartedWithoutRegions().Subscribe(&AddMany, Named("adder"));
    Calls expected(100, "Subscriber(adder)");
    expected.insert(expected.end(), 100, "Subscriber(late)");
    EXPECT_EQ(expected, Called());
  });
}

TEST_P(ADispatch, PassesOverTheOneThatMovesUpWhereASubscriberRemovesItself) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithoutRegions();
    changes.Subscribe(&RemoveItself, Named("once"));
    changes.Subscribe(&NoteCall, Named("A"));
    changes.Subscribe(&NoteCall, Named("B"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(once)", "Subscriber(B)"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(A)", "Subscriber(B)"));
  });
}

TEST_P(ADispatch, EndsWhereTheLastSubscriberRemovesItself) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithoutRegions();
    changes.Subscribe(&NoteCall, Named("A"));
    changes.Subscribe(&RemoveItself, Named("once"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(A)", "Subscriber(once)"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(A)"));
  });
}

TEST_P(ADispatch, DoesNotCallASubscriberThatAnotherHasRemoved) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithoutRegions();
    changes.Subscribe(&RemoveA, Named("remover"));
    changes.Subscribe(&NoteCall, Named("A"));
    EXPECT_THAT(Called(), ElementsAre("Subscriber(remover)"));
  });
}

INSTANTIATE_TEST_SUITE_P(By, ADispatch, testing::ValuesIn(kDispatches),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace analytics
