#include "tests/support/fakes/EachCallFailing.h"

#include <stdexcept>

namespace fakes {
namespace {

/// Whether what a fake throws leaves the operation; anything else goes on to the test.
bool LetsFailureOut(const std::function<void()>& operation, Thrown thrown) {
  try {
    operation();
  } catch (const Failure& failure) {
    if (thrown != Thrown::kFailure || failure.what() != CallLog::Instance().FailedCall()) throw;
    return true;
  } catch (const int&) {
    if (thrown != Thrown::kNumber) throw;
    return true;
  }
  return false;
}

}  // namespace

Fault WithPlatformCallFailing(int nth, Thrown thrown, const std::function<void()>& operation) {
  CallLog& log = CallLog::Instance();
  log.Clear();
  log.SetThrown(thrown);
  log.FailAtAny(nth);
  const bool gotOut = LetsFailureOut(operation, thrown);
  Fault fault = {log.FailedCall(), gotOut, log.Calls()};
  log.Clear();
  return fault;
}

int WithEachPlatformCallFailing(Thrown thrown, const std::function<void()>& prepare,
                                const std::function<void()>& operation,
                                const std::function<void(const Fault&)>& check) {
  for (int nth = 1;; ++nth) {
    prepare();
    const Fault fault = WithPlatformCallFailing(nth, thrown, operation);
    check(fault);
    if (fault.call.empty()) return nth - 1;
  }
}

}  // namespace fakes
