#pragma once

#include <string>

namespace fuzz {

/// The library's rules for numbers in texts, written once more without streams.
///
/// Blank text gives the fallback, text without a leading number 0, a number out of range the
/// nearest limit.
int IntOf(const std::string& text, int fallback);
double DoubleOf(const std::string& text, double fallback);

/// As `DoubleOf`, in single precision.
float FloatOf(const std::string& text, float fallback);

}  // namespace fuzz
