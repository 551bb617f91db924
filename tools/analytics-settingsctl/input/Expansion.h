#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "input/VariableTable.h"

namespace settingsctl {

/// What the substitution of variables would do to a text.
struct Expansion {
  std::string text;                ///< the result; unfinished where one of the following is set
  std::size_t length = 0;          ///< of the result, also where its text is shortened
  std::size_t references = 0;      ///< how many variables are looked up, repetitions included
  std::vector<std::string> cycle;  ///< the way back to itself, such as a, b, a; empty without one
  bool isTooLong = false;          ///< more than 1 MiB of text or 10000 references
};

/// Follows the substitution of `text` step by step, in the order in which the library makes it, and
/// stops where it would never end or go beyond the limits. So a text without a cycle here can be
/// given to the library.
Expansion TryExpansion(const std::string& text, const VariableTable& variables);

/// The cycle as messages show it: "a -> b -> a"; a long one without its middle.
///
/// @param first  one of its names, from which on it is told; with another name it is told as it is
std::string CycleText(const std::vector<std::string>& cycle, const std::string& first = {});

/// What messages say of a substitution beyond the limits.
constexpr char kGrowth[] = "grows beyond 1 MiB or 10000 references";

}  // namespace settingsctl
