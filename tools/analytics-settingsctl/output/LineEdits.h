#pragma once

#include <string>
#include <vector>

namespace settingsctl {

/// One step from an old list of lines to a new one.
struct LineEdit {
  char sign;         ///< ' ' for a line of both, '-' for one of the old, '+' for one of the new
  std::string line;  ///< with its line break, which the last line may lack
};

/// The lines of a text, each with its line break.
std::vector<std::string> SplitLines(const std::string& text);

/// Steps from the old lines to the new ones. Whole blocks that were removed or added are told as
/// such; among other changes there may be fewer steps.
std::vector<LineEdit> LineEdits(const std::vector<std::string>& from,
                                const std::vector<std::string>& to);

}  // namespace settingsctl
