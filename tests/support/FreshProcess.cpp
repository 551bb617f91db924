#include "tests/support/FreshProcess.h"

#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

// Writes what a build for coverage has counted, which otherwise happens only at exit(); null in any
// other build.
extern "C" __attribute__((weak)) int WriteCoverage() __asm__("__llvm_profile_write_file");

namespace tests {
namespace {

[[noreturn]] void RunAsChild(const std::function<void()>& body) {
  body();
  std::fflush(nullptr);
  if (WriteCoverage) WriteCoverage();
  // Not exit(): the parent's test program must not end twice.
  _exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
}

}  // namespace

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
