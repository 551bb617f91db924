#include "check/Similar.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace settingsctl {
namespace {

constexpr std::size_t kLongWord = 8;

bool IsSameLetter(char left, char right) {
  return std::tolower(static_cast<unsigned char>(left)) ==
         std::tolower(static_cast<unsigned char>(right));
}

/// The distances of the beginnings of `left` to the beginnings of `right`, one row after the other.
class Distances {
 public:
  Distances(const std::string& left, const std::string& right)
      : m_left(left), m_right(right), m_before(right.size() + 1), m_row(right.size() + 1) {
    std::iota(m_row.begin(), m_row.end(), std::size_t{0});
  }

  std::size_t Whole() {
    for (std::size_t length = 1; length <= m_left.size(); ++length) NextRow(length);
    return m_row.back();
  }

 private:
  void NextRow(std::size_t length) {
    std::vector<std::size_t> next(m_row.size(), length);
    for (std::size_t other = 1; other < next.size(); ++other) {
      const bool isSame = IsSameLetter(m_left[length - 1], m_right[other - 1]);
      next[other] =
          std::min({m_row[other] + 1, next[other - 1] + 1, m_row[other - 1] + (isSame ? 0 : 1)});
      if (AreSwapped(length, other)) next[other] = std::min(next[other], m_before[other - 2] + 1);
    }
    m_before = std::move(m_row);
    m_row = std::move(next);
  }

  bool AreSwapped(std::size_t length, std::size_t other) const {
    return length > 1 && other > 1 && IsSameLetter(m_left[length - 1], m_right[other - 2]) &&
           IsSameLetter(m_left[length - 2], m_right[other - 1]);
  }

  const std::string& m_left;
  const std::string& m_right;
  std::vector<std::size_t> m_before;
  std::vector<std::size_t> m_row;
};

std::size_t Allowed(const std::string& word) { return word.size() < kLongWord ? 1 : 2; }

/// Words of very different lengths are not compared at all, however long the text is.
bool IsSimilar(const std::string& text, const std::string& word) {
  if (word.empty()) return false;
  const std::size_t longer = std::max(text.size(), word.size());
  if (longer - std::min(text.size(), word.size()) > Allowed(word)) return false;
  return EditDistance(text, word) <= Allowed(word);
}

}  // namespace

std::size_t EditDistance(const std::string& left, const std::string& right) {
  return Distances(left, right).Whole();
}

std::string SimilarWord(const std::string& text, const std::vector<std::string>& words) {
  if (std::find(words.begin(), words.end(), text) != words.end()) return {};
  std::string best;
  for (const std::string& word : words) {
    if (!IsSimilar(text, word)) continue;
    if (best.empty() || EditDistance(text, word) < EditDistance(text, best)) best = word;
  }
  return best;
}

}  // namespace settingsctl
