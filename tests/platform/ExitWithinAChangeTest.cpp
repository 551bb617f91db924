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

// A leak checker would take what only threads of its parent refer to for lost: such a child ends
// before that looks, but after the library, which is loaded later than this is registered.
bool s_isChild = false;
[[maybe_unused]] const int kRegistered = std::atexit([] {
  if (s_isChild) _exit(kByExit);
});

/// Whether a child of this process gets to the end of `exit()`.
bool ChildExits() {
  ChildProcess child([]() -> int {
    const tests::TimeLimit limit;
    s_isChild = true;
    std::exit(EXIT_FAILURE);
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
