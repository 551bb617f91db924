#include "check/Findings.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "output/TextWidth.h"

namespace settingsctl {
namespace {

constexpr std::size_t kLongestQuote = 60;

/// The start of a text, not cut within a character of several bytes.
std::string Shortened(const std::string& text) {
  if (text.size() <= kLongestQuote) return text;
  std::size_t end = kLongestQuote;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return text.substr(0, end) + "...";
}

}  // namespace

Findings::Findings(std::string file, std::set<std::string> without)
    : m_file(std::move(file)), m_without(std::move(without)) {}

void Findings::Add(const std::string& check, int line, const std::string& message) {
  const Check* row = FindCheck(check);
  if (!row) throw std::logic_error("there is no check '" + check + "'");
  if (!IsWanted(check)) return;
  m_findings.push_back({row, m_file, std::max(line, 1), Printable(message)});
}

std::vector<Finding> Findings::ByLine() const {
  std::vector<Finding> sorted = m_findings;
  std::stable_sort(sorted.begin(), sorted.end(), [](const Finding& left, const Finding& right) {
    return left.line < right.line;
  });
  return sorted;
}

std::string Quoted(const std::string& text) { return "'" + Shortened(text) + "'"; }

}  // namespace settingsctl
