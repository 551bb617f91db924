#include "tests/support/fakes/LockAnswer.h"

namespace fakes {

int& LockAnswer() {
  static int answer = 0;
  return answer;
}

}  // namespace fakes
