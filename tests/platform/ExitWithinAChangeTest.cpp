#include <cstdlib>
#include <future>

#include <unistd.h>

#include "tests/host/tavrel/ChildProcess.h"
#include "tests/platform/LeavingTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/TimeLimit.h"

namespace {

using tests::ChildProcess;
using tests::LoadedLibrary;

constexpr int kByExit = 7;

/// Whether a child of this process ends by `exit()`, other than by a signal.
bool ChildExits() {
  ChildProcess child([]() -> int {
    const tests::TimeLimit limit;
    std::exit(kByExit);
  });
  return child.Wait() == kByExit;
}

// Subscribers of one change.

int Exit(void* /*context*/, int /*kind*/, void* /*data*/, int /*size*/) { std::exit(kByExit); }

int NoteWhetherAChildExits(void* exited, int /*kind*/, void* /*data*/, int /*size*/) {
  static_cast<std::promise<bool>*>(exited)->set_value(ChildExits());
  return 0;
}

struct Guest {
  std::promise<void> isIn;
  std::promise<void> mayGo;

  static int Stay(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
    Guest& guest = *static_cast<Guest*>(context);
    guest.isIn.set_value();
    guest.mayGo.get_future().wait();
    return 0;
  }
};

class AChange : public tests::LeavingTest {
 protected:
  /// Has a change delivered to a subscriber.
  void Deliver(const LoadedLibrary& library, WindowBlankingCallback callback, void* context) const {
    library.Start();
    library.Subscribe(callback, context);
    ReplaceStore(1);
  }
};

TEST_F(AChange, LetsItsSubscriberExit) {
  ChildProcess process([this]() -> int {
    const tests::TimeLimit limit;
    const LoadedLibrary library;
    Deliver(library, &Exit, nullptr);
    for (;;) pause();
  });
  EXPECT_EQ(kByExit, process.Wait());
}

TEST_F(AChange, LetsAChildOfAnotherThreadExit) {
#ifdef TESTS_WITHOUT_CHILD_OF_ANOTHER_THREAD
  GTEST_SKIP() << "this checker does not know the threads of a child's parent";
#endif
  tests::InFreshProcess([this] {
    Guest guest;
    const LoadedLibrary library;
    Deliver(library, &Guest::Stay, &guest);
    guest.isIn.get_future().wait();
    EXPECT_TRUE(ChildExits());
    guest.mayGo.set_value();
  });
}

TEST_F(AChange, LetsAChildOfItsSubscriberExit) {
  tests::InFreshProcess([this] {
    std::promise<bool> exited;
    const LoadedLibrary library;
    Deliver(library, &NoteWhetherAChildExits, &exited);
    EXPECT_TRUE(exited.get_future().get());
  });
}

}  // namespace
