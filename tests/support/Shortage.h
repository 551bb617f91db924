#pragma once

#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/FailureCount.h"

namespace tests {

inline const Shortage kShortages[] = {Shortage::kOnce, Shortage::kFromThenOn};

/// A shortage as part of a test's name.
inline std::string NameOf(Shortage shortage) {
  return shortage == Shortage::kOnce ? "Once" : "FromThenOn";
}

inline void PrintTo(Shortage shortage, std::ostream* out) { *out << NameOf(shortage); }

inline std::string ShortageName(const testing::TestParamInfo<Shortage>& info) {
  return NameOf(info.param);
}

}  // namespace tests
