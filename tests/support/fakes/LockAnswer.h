#pragma once

namespace fakes {

/// What `Mutex::Lock()` of the fake answers where it refuses; 0, as long as nobody sets it: the
/// lock is taken.
int& LockAnswer();

constexpr int kAlways = -1;

/// How many locks are still refused by a `LockAnswer` that is not 0; `kAlways`, as long as nobody
/// sets it.
int& RefusalsLeft();

/// The answer to the next lock, which may be the last that is refused.
int TakeLockAnswer();

}  // namespace fakes
