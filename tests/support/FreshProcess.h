#pragma once

#include <functional>

namespace tests {

/// Runs `body` in a child process and reports its failed expectations as those of the caller, and
/// as a failure, too, an exception that leaves it and memory that it has leaked.
///
/// For what happens only once in a process, such as the first use of the settings: a test program
/// that touches the settings only inside such bodies gives each of them a fresh process.
void InFreshProcess(const std::function<void()>& body);

/// Whether this build finds leaks.
bool HasLeakChecker();

}  // namespace tests
