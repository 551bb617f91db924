#pragma once

#include "fuzz/Input.h"

namespace fuzz {

/// What each target defines: once before the first input, and for each input.
///
/// A target compares what the library answers with a reading of its own and calls `Fail` where they
/// differ. It leaves nothing behind that could change what the next input does.
void SetUp();
void RunOne(Input& input);

}  // namespace fuzz
