#include "output/UnifiedDiff.h"

#include <algorithm>
#include <vector>

#include "output/LineEdits.h"

namespace settingsctl {
namespace {

constexpr std::size_t kContext = 3;

using Edits = std::vector<LineEdit>;

/// Edits from one index up to another, and how many lines of each text lie before them.
struct Hunk {
  std::size_t first;
  std::size_t end;
  std::size_t oldBefore;
  std::size_t newBefore;
};

std::size_t Count(const Edits& edits, std::size_t first, std::size_t end, char otherSign) {
  const auto from = edits.begin() + static_cast<std::ptrdiff_t>(first);
  const auto to = edits.begin() + static_cast<std::ptrdiff_t>(end);
  return static_cast<std::size_t>(std::count_if(
      from, to, [otherSign](const LineEdit& edit) { return edit.sign != otherSign; }));
}

std::size_t NextChange(const Edits& edits, std::size_t from) {
  while (from < edits.size() && edits[from].sign == ' ') ++from;
  return from;
}

/// The end of the hunk that starts with a change: changes with little between them share one.
std::size_t EndOfHunk(const Edits& edits, std::size_t change) {
  std::size_t last = change;
  for (std::size_t next = change; next < edits.size() && next - last <= 2 * kContext + 1;
       next = NextChange(edits, next + 1)) {
    last = next;
  }
  return std::min(last + kContext + 1, edits.size());
}

std::vector<Hunk> Hunks(const Edits& edits) {
  std::vector<Hunk> hunks;
  Hunk former{0, 0, 0, 0};
  for (std::size_t change = NextChange(edits, 0); change < edits.size();
       change = NextChange(edits, former.end)) {
    const std::size_t first = std::max(former.end, change - std::min(change, kContext));
    former = {first, EndOfHunk(edits, change),
              former.oldBefore + Count(edits, former.first, first, '+'),
              former.newBefore + Count(edits, former.first, first, '-')};
    hunks.push_back(former);
  }
  return hunks;
}

/// Lines are counted from 1. No range is empty, since no well-formed file is.
std::string Range(std::size_t before, std::size_t count) {
  return std::to_string(before + 1) + (count == 1 ? "" : "," + std::to_string(count));
}

std::string Text(const LineEdit& edit) {
  const std::string line = edit.sign + edit.line;
  return edit.line.back() == '\n' ? line : line + "\n\\ No newline at end of file\n";
}

std::string Text(const Edits& edits, const Hunk& hunk) {
  std::string text = "@@ -" + Range(hunk.oldBefore, Count(edits, hunk.first, hunk.end, '+')) +
                     " +" + Range(hunk.newBefore, Count(edits, hunk.first, hunk.end, '-')) +
                     " @@\n";
  for (std::size_t index = hunk.first; index < hunk.end; ++index) text += Text(edits[index]);
  return text;
}

/// A name as a line of its own in a heading; a tab ends one that holds blanks, as readers of
/// differences expect.
std::string Heading(const std::string& name) {
  return name.find(' ') == std::string::npos ? name : name + "\t";
}

}  // namespace

std::string UnifiedDiff(const std::string& oldName, const std::string& oldText,
                        const std::string& newName, const std::string& newText) {
  const Edits edits = LineEdits(SplitLines(oldText), SplitLines(newText));
  std::string text;
  for (const Hunk& hunk : Hunks(edits)) text += Text(edits, hunk);
  return text.empty() ? text
                      : "--- " + Heading(oldName) + "\n+++ " + Heading(newName) + "\n" + text;
}

}  // namespace settingsctl
