#include "output/LineEdits.h"

#include <algorithm>
#include <cstddef>

namespace settingsctl {
namespace {

using Lines = std::vector<std::string>;

/// So many equal lines show that two places belong together; single ones are often end tags.
constexpr std::size_t kEqualLines = 3;
constexpr std::size_t kLargestBlock = 2000;
constexpr std::size_t kLargestRest = 3;
constexpr std::size_t kMostMixedChanges = 60;

/// Goes through both lists side by side.
class SideBySide {
 public:
  SideBySide(const Lines& from, const Lines& to) : m_from(from), m_to(to) {}

  std::vector<LineEdit> Run() {
    while (m_old < m_from.size() && m_new < m_to.size()) {
      if (m_from[m_old] == m_to[m_new]) {
        Keep();
      } else if (!SkipBlock() && !SkipMixed()) {
        Skip(1, 1);
      }
    }
    Skip(m_from.size() - m_old, m_to.size() - m_new);
    return std::move(m_edits);
  }

 private:
  void Keep() {
    m_edits.push_back({' ', m_from[m_old]});
    ++m_old;
    ++m_new;
  }

  /// Tells of lines that only one of the lists has.
  void Skip(std::size_t removed, std::size_t added) {
    for (; removed > 0; --removed) m_edits.push_back({'-', m_from[m_old++]});
    for (; added > 0; --added) m_edits.push_back({'+', m_to[m_new++]});
  }

  /// Whether the lists go on alike so many lines further on; they do at the end of both.
  bool IsAlikeAfter(std::size_t removed, std::size_t added) const {
    for (std::size_t index = 0; index < kEqualLines; ++index) {
      const std::size_t old = m_old + removed + index;
      const std::size_t now = m_new + added + index;
      if (old >= m_from.size() || now >= m_to.size()) {
        return old == m_from.size() && now == m_to.size();
      }
      if (m_from[old] != m_to[now]) return false;
    }
    return true;
  }

  /// Looks for one block that was removed or added but for a few lines, such as the blanks that an
  /// element leaves behind.
  bool SkipBlock() {
    for (std::size_t size = 1; size <= kLargestBlock; ++size) {
      for (std::size_t rest = 0; rest <= std::min(size, kLargestRest); ++rest) {
        if (TrySkip(size, rest) || TrySkip(rest, size)) return true;
      }
    }
    return false;
  }

  bool TrySkip(std::size_t removed, std::size_t added) {
    if (m_old + removed > m_from.size() || m_new + added > m_to.size()) return false;
    if (!IsAlikeAfter(removed, added)) return false;
    Skip(removed, added);
    return true;
  }

  /// Looks for lines that were replaced by others.
  bool SkipMixed() {
    for (std::size_t changes = 2; changes <= kMostMixedChanges; ++changes) {
      for (std::size_t added = 1; added < changes; ++added) {
        if (TrySkip(changes - added, added)) return true;
      }
    }
    return false;
  }

  const Lines& m_from;
  const Lines& m_to;
  std::size_t m_old = 0;
  std::size_t m_new = 0;
  std::vector<LineEdit> m_edits;
};

}  // namespace

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
    lines.push_back(text.substr(start, end - start));
    start = end;
  }
  return lines;
}

std::vector<LineEdit> LineEdits(const std::vector<std::string>& from,
                                const std::vector<std::string>& to) {
  return SideBySide(from, to).Run();
}

}  // namespace settingsctl
