#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace settingsctl {

/// Columns of a terminal that a text in UTF-8 takes; bytes that are not UTF-8 take one each.
std::size_t TextWidth(const std::string& text);

/// The text with its control characters made visible as \n, \t and \xNN, so that a file cannot
/// command the terminal.
std::string Printable(const std::string& text);

/// Breaks one line into lines of at most `width` columns, at blanks and behind slashes where
/// there are any.
std::vector<std::string> Wrapped(const std::string& line, std::size_t width);

}  // namespace settingsctl
