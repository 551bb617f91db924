#include "tests/platform/LeavingTest.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/host/tavrel/ChildProcess.h"
#include "tests/support/Figures.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/TimeLimit.h"

namespace {

using tests::ChildProcess;
using tests::LoadedLibrary;

constexpr int kAtOnce = 10;

/// How a process ends its use of the library.
struct Way {
  const char* name;
  bool stops;
  bool unloads;
};

const Way kWays[] = {{"ByExit", false, false},
                     {"ByExitAfterAStop", true, false},
                     {"ByUnloading", false, true},
                     {"ByUnloadingAfterAStop", true, true}};

/// How often each way is taken.
int Runs() {
  const char* const wanted = std::getenv("ANALYTICS_LEAVING_RUNS");
  return wanted ? std::atoi(wanted) : 60;
}

/// What the subscriber of a leaving process knows.
struct Listener {
  const std::thread::id leavingThread = std::this_thread::get_id();
  std::atomic<bool> isTold{false};

  /// Notes a change. A configuration that the leaving thread hands over itself takes a while, so
  /// that a change waits behind it and goes on at the moment of leaving.
  static int Hear(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
    Listener& listener = *static_cast<Listener*>(context);
    if (std::this_thread::get_id() == listener.leavingThread)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    else
      listener.isTold = true;
    return 0;
  }
};

/// Leaves while changes come in, a little later from run to run.
[[noreturn]] void Leave(const Way& way, int run) {
  const tests::TimeLimit limit;
  static Listener listener;
  auto library = std::make_unique<LoadedLibrary>();
  library->Start();
  library->Subscribe(&Listener::Hear, &listener);
  while (!listener.isTold) std::this_thread::yield();
  library->SetConfiguration({1, {}});
  std::this_thread::sleep_for(std::chrono::microseconds(run % 10 * 20));
  if (way.stops) library->Stop();
  if (way.unloads) library.reset();
  std::exit(EXIT_SUCCESS);
}

class AProcessThatLeavesDuringChanges : public tests::LeavingTest,
                                        public testing::WithParamInterface<Way> {
 protected:
  /// Lets some processes leave at once, and expects that each ends well.
  static void LetLeave(int firstRun, int endRun) {
    std::vector<std::unique_ptr<ChildProcess>> leaving;
    for (int run = firstRun; run < endRun; ++run) {
      leaving.push_back(std::make_unique<ChildProcess>([run]() -> int { Leave(GetParam(), run); }));
    }
    for (const auto& process : leaving) EXPECT_EQ(EXIT_SUCCESS, process->Wait());
  }
};

TEST_P(AProcessThatLeavesDuringChanges, EndsWell) {
  ReplaceStore(0);
  const ChildProcess writer([this]() -> int {
    for (int turn = 1;; ++turn) ReplaceStore(turn % 256);
  });
  for (int run = 0; run < Runs(); run += kAtOnce) LetLeave(run, std::min(run + kAtOnce, Runs()));
  tests::Count("processes_left", Runs());
}

INSTANTIATE_TEST_SUITE_P(Leaving, AProcessThatLeavesDuringChanges, testing::ValuesIn(kWays),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
