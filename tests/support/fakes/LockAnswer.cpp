#include "tests/support/fakes/LockAnswer.h"

namespace fakes {

int& LockAnswer() {
  static int answer = 0;
  return answer;
}

int& RefusalsLeft() {
  static int left = kAlways;
  return left;
}

int TakeLockAnswer() {
  // While no lock is refused nothing is written: several threads may be here.
  if (LockAnswer() == 0 || RefusalsLeft() == 0) return 0;
  if (RefusalsLeft() != kAlways) --RefusalsLeft();
  return LockAnswer();
}

}  // namespace fakes
