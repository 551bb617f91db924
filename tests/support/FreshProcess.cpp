#include "tests/support/FreshProcess.h"

#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

// Reports what is leaked so far, and gives whether anything is, which otherwise happens only at
// exit(); null in a build without the leak checker.
extern "C" __attribute__((weak)) int ReportLeaks() __asm__("__lsan_do_recoverable_leak_check");

namespace tests {
namespace {

/// Declared `noexcept`, so that an exception ends the child: further up, gtest would catch it and
/// go on with the parent's tests.
[[noreturn]] void RunAsChild(const std::function<void()>& body) noexcept {
  body();
  const bool leaks = HasLeakChecker() && ReportLeaks() != 0;
  const int status = testing::Test::HasFailure() || leaks ? EXIT_FAILURE : EXIT_SUCCESS;
  std::fflush(nullptr);
  // A library that counts what is run of it writes that at exit().
  if (std::getenv("LLVM_PROFILE_FILE")) std::exit(status);
  _exit(status);  // elsewhere the parent's test program must not end twice
}

}  // namespace

bool HasLeakChecker() { return ReportLeaks != nullptr; }

void InFreshProcess(const std::function<void()>& body) {
  std::fflush(nullptr);
  const pid_t child = fork();
  ASSERT_NE(-1, child);
  if (child == 0) RunAsChild(body);
  int status = 0;
  ASSERT_EQ(child, waitpid(child, &status, 0));
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS)
      << "the child process failed, see its output above; status " << status;
}

}  // namespace tests
