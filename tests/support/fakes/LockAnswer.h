#pragma once

namespace fakes {

/// What `Mutex::Lock()` of the fake answers; 0, as long as nobody sets it: the lock is taken.
int& LockAnswer();

}  // namespace fakes
