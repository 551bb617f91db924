#pragma once

#include <string>

namespace settingsctl {

/// XML is read with LF for every line break, and so written again. Gives such a text the CR LF of
/// the one that it came from, if all line breaks of that were CR LF.
///
/// Safe for what the text means, since a reader makes LF of each of them again.
std::string WithLineBreaksOf(const std::string& original, const std::string& text);

/// Whether carriage returns of the original have gone, because its line breaks were mixed or its
/// encoding is one of several bytes a letter.
bool HasOtherLineBreaks(const std::string& original, const std::string& text);

}  // namespace settingsctl
