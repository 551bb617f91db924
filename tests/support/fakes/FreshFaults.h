#pragma once

#include <functional>

#include "tests/support/FreshProcess.h"
#include "tests/support/Survival.h"
#include "tests/support/fakes/EachCallFailing.h"

namespace tests {

/// As `fakes::WithEachPlatformCallFailing`, but with a fresh process for each run: for what happens
/// only once in a process, such as the first use of the settings.
inline int WithEachPlatformCallFailingAfresh(
    fakes::Thrown thrown, const std::function<void()>& prepare,
    const std::function<void()>& operation, const std::function<void(const fakes::Fault&)>& check) {
  SharedNumber failed(0);
  for (int nth = 1; failed.Get() == nth - 1; ++nth) {  // until a run in which no call has failed
    InFreshProcess([&] {
      prepare();
      const fakes::Fault fault = fakes::WithPlatformCallFailing(nth, thrown, operation);
      if (!fault.call.empty()) ++failed;
      check(fault);
    });
  }
  return failed.Get();
}

}  // namespace tests
