#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

/// Ends the process, so that the fuzzer keeps the input, with what differs.
[[noreturn]] inline void Fail(const std::string& what, const std::string& detail = std::string()) {
  std::fprintf(stderr, "MISMATCH: %s%s%s\n", what.c_str(), detail.empty() ? "" : ": ",
               detail.c_str());
  std::abort();
}

/// Requires a fact; `what` says which.
inline void Require(bool holds, const char* what) {
  if (!holds) Fail(what);
}

/// Requires that the library's answer is the expected one.
inline void RequireSame(const std::string& answer, const std::string& expected, const char* what) {
  if (answer != expected) Fail(what, "got \"" + answer + "\", expected \"" + expected + "\"");
}

inline void RequireSame(long long answer, long long expected, const char* what) {
  if (answer != expected)
    Fail(what, "got " + std::to_string(answer) + ", expected " + std::to_string(expected));
}

}  // namespace fuzz
