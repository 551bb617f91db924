#pragma once

#include <string>

namespace settingsctl {

/// What stands in a text from which the library reads an integer.
enum class NumberForm {
  kBlank,       ///< nothing: the library takes its default
  kPlain,       ///< an integer and nothing else
  kTrailing,    ///< an integer and more, which the library ignores
  kOutOfRange,  ///< digits beyond the range of `int`: the library takes the range's end
  kNone         ///< no digits at its start: the library reads 0
};

NumberForm FormOfNumber(const std::string& text);

/// What is wrong, for a message: "has no digits at its start" and the like. Empty for a plain one.
std::string NumberProblem(NumberForm form);

/// Whether the text is a plain integer, perhaps with a fraction of zeros ("12.00"): nothing of its
/// value is lost when the library reads an integer.
bool IsWholeNumber(const std::string& text);

}  // namespace settingsctl
