#pragma once

#include <string>
#include <vector>

#include "tests/host/tavrel/Command.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tests {

/// Runs the built command on a store of its own.
class HostctlTest : public StoreTest {
 protected:
  struct Result {
    int status;
    std::string output;
    std::string errors;
  };

  static std::vector<std::string> CommandLine(const std::vector<std::string>& arguments) {
    std::vector<std::string> line = {TESTS_HOSTCTL};
    line.insert(line.end(), arguments.begin(), arguments.end());
    return line;
  }

  static Result Run(const std::vector<std::string>& arguments) {
    Command command(CommandLine(arguments));
    const int status = command.Wait();
    return {status, command.Output(), command.Errors()};
  }
};

}  // namespace tests
