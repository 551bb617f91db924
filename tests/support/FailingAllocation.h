#pragma once

#include <functional>

#include "tests/support/FailingNew.h"
#include "tests/support/Shortage.h"

namespace tests {

/// Runs `operation` again and again, with its first, second, ... `operator new` throwing
/// `std::bad_alloc`, until a run completes.
///
/// Expects that at least one run failed, that every failed run let `std::bad_alloc` out, and that
/// all of them together keep no more blocks than one that completes at once: what is lost is found
/// without a leak checker, too.
/// Allocations of the operation's own locals count too: make arguments outside, or a run fails
/// before it reaches what is tested. Expectations on what a failed run left behind go at the start
/// of `operation`, where they see it at the next run, or after this call.
void WithEachAllocationFailing(Shortage shortage, const std::function<void()>& operation);

}  // namespace tests
