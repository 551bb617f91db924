#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/support/fakes/CallLog.h"

namespace fakes {

constexpr Thrown kAllThrown[] = {Thrown::kFailure, Thrown::kNumber};

/// What is thrown as the end of a test's name.
inline std::string NameOf(Thrown thrown) {
  return thrown == Thrown::kNumber ? "ThrowingANumber" : "";
}

/// What came of an operation during which a call of the platform failed.
struct Fault {
  std::string call;                ///< that failed; empty if none did
  bool gotOut = false;             ///< whether what it threw left the operation
  std::vector<std::string> calls;  ///< all of the operation
};

/// Runs `operation` with its nth call of the platform that may throw doing so.
Fault WithPlatformCallFailing(int nth, Thrown thrown, const std::function<void()>& operation);

/// Runs `operation` again and again, with the first, second, ... call of the platform throwing that
/// may, until a run in which none is left to throw. Destructors and locks never do.
///
/// @param prepare  brings about the same state before each run
/// @param check    looks at what came of each run, the last included
/// @return how many calls failed
int WithEachPlatformCallFailing(Thrown thrown, const std::function<void()>& prepare,
                                const std::function<void()>& operation,
                                const std::function<void(const Fault&)>& check);

}  // namespace fakes
