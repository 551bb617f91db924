#pragma once

#include <string>

namespace settingsctl {

/// Why no XML file can hold a text, and what to do: the rest of a sentence behind the file's name.
/// Empty for a text that one can.
std::string ProblemInXml(const std::string& text);

/// The text with U+FFFD in place of what no XML file can hold.
std::string FitForXml(const std::string& text);

}  // namespace settingsctl
