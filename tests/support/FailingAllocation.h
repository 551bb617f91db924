#pragma once

#include <functional>

namespace tests {

/// Runs `operation` again and again, with its first, second, ... `operator new` throwing
/// `std::bad_alloc`, until a run completes.
///
/// Expects that at least one run failed and that every failed run let `std::bad_alloc` out. Only
/// allocations of the calling thread count, those of the operation's own locals included: make
/// arguments outside, or a run fails before it reaches what is tested. Forms of `operator new` that
/// never throw, or that take an alignment, and `malloc` are neither counted nor made to fail.
///
/// Expectations on what a failed run left behind go at the start of `operation`, where they see it
/// at the next run, or after this call. A test program that links this has its global
/// `operator new` and `operator delete` replaced.
void WithEachAllocationFailing(const std::function<void()>& operation);

}  // namespace tests
