#pragma once

#include <string>
#include <vector>

namespace settingsctl {

/// How many single letters must be put in, left out, replaced or swapped with their neighbour to
/// make one word of the other. Upper and lower case count as the same letter.
std::size_t EditDistance(const std::string& left, const std::string& right);

/// The word that `text` is most likely a misspelling of: at most one letter off, two in words of
/// eight letters and more. Empty if there is none, or if `text` is itself one of the words.
std::string SimilarWord(const std::string& text, const std::vector<std::string>& words);

}  // namespace settingsctl
