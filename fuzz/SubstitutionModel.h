#pragma once

#include <string>
#include <vector>

namespace fuzz {

/// A `variable` element; `hasValue` is false where it lacks that attribute.
struct Variable {
  std::string name;
  std::string value;
  bool hasValue;
};

/// The rule of substitution, written once more: as a text that is done and one still to be read.
///
/// @param result  the text with its references replaced
/// @return false if that takes too many steps or too much text, as where a variable leads back to
///         itself: the library would never come to an end
bool Substituted(const std::string& text, const std::vector<Variable>& variables,
                 std::string& result);

}  // namespace fuzz
