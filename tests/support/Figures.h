#pragma once

namespace tests {

/// Adds to a number that the program prints once all its tests have run, in one line of all of
/// them: "figures: operations=9 calls_failed=120". What a fresh process adds counts as well.
///
/// Takes no memory, so that it may be called while that has run out. One thread at a time.
///
/// @param name  a literal
void Count(const char* name, long amount = 1);

}  // namespace tests
