#pragma once

#include <functional>
#include <string>
#include <vector>

namespace settingsctl {

/// What the substitution of variables would do to a text.
struct Expansion {
  std::string text;                ///< the result; unfinished where one of the following is set
  std::vector<std::string> names;  ///< the variables looked up, in order, repetitions included
  std::vector<std::string> cycle;  ///< the way back to itself, such as a, b, a; empty without one
  bool isTooLong = false;          ///< more than 256 KiB of text or 10000 references
};

/// Gives a variable's value; the empty text for a variable that is not defined.
using VariableLookup = std::function<std::string(const std::string& name)>;

/// Follows the substitution of `text` step by step, in the order in which the library makes it, and
/// stops where it would never end. So a text without a cycle here can be given to the library.
Expansion TryExpansion(const std::string& text, const VariableLookup& lookup);

/// The cycle as messages show it: "a -> b -> a".
std::string CycleText(const std::vector<std::string>& cycle);

}  // namespace settingsctl
