#include "output/Table.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "output/TextWidth.h"

namespace settingsctl {
namespace {

constexpr std::size_t kLineWidth = 80;
constexpr std::size_t kGap = 2;

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
    lines.push_back(Printable(text.substr(start, end - start)));
    start = end + 1;
  }
  lines.push_back(Printable(text.substr(start)));
  return lines;
}

std::size_t WidestLine(const std::vector<std::string>& lines) {
  std::size_t widest = 0;
  for (const std::string& line : lines) widest = std::max(widest, TextWidth(line));
  return widest;
}

std::vector<std::string> WrappedLines(const std::vector<std::string>& lines, std::size_t width) {
  std::vector<std::string> wrapped;
  for (const std::string& line : lines) {
    const std::vector<std::string> parts = Wrapped(line, width);
    wrapped.insert(wrapped.end(), parts.begin(), parts.end());
  }
  return wrapped;
}

/// Takes from the widest columns what does not fit into the line.
void Narrow(std::vector<std::size_t>& widths) {
  const std::size_t available = kLineWidth - kGap * (widths.size() - 1);
  while (std::accumulate(widths.begin(), widths.end(), std::size_t{0}) > available) {
    --*std::max_element(widths.begin(), widths.end());
  }
}

/// One line of a row: what each of its cells, broken into lines, has at that height.
std::string LineOfRow(const std::vector<std::vector<std::string>>& cells, std::size_t height,
                      const std::vector<std::size_t>& widths) {
  std::string line;
  std::size_t start = 0;
  for (std::size_t column = 0; column < cells.size(); ++column) {
    if (height < cells[column].size() && !cells[column][height].empty()) {
      line.append(start - TextWidth(line), ' ');
      line += cells[column][height];
    }
    start += widths[column] + kGap;
  }
  return line;
}

}  // namespace

Table::Table(std::vector<std::string> headings) {
  for (std::string& heading : headings) m_headings.cells.push_back({std::move(heading)});
}

void Table::Add(const std::vector<std::string>& cells, std::optional<Style> style) {
  Row row{{}, style};
  for (const std::string& cell : cells) row.cells.push_back(LinesOf(cell));
  m_rows.push_back(std::move(row));
}

std::vector<std::size_t> Table::Widths() const {
  std::vector<std::size_t> widths;
  for (std::size_t column = 0; column < m_headings.cells.size(); ++column) {
    std::size_t width = WidestLine(m_headings.cells[column]);
    for (const Row& row : m_rows) width = std::max(width, WidestLine(row.cells[column]));
    widths.push_back(width);
  }
  Narrow(widths);
  return widths;
}

void Table::WriteRow(std::ostream& out, const Row& row, const std::vector<std::size_t>& widths) {
  std::vector<Cell> cells;
  std::size_t height = 0;
  for (std::size_t column = 0; column < row.cells.size(); ++column) {
    cells.push_back(WrappedLines(row.cells[column], widths[column]));
    height = std::max(height, cells.back().size());
  }
  for (std::size_t index = 0; index < height; ++index) {
    const std::string line = LineOfRow(cells, index, widths);
    out << (row.style ? Styled(*row.style, line) : line) << "\n";
  }
}

void Table::Write(std::ostream& out) const {
  if (m_rows.empty()) return;
  const std::vector<std::size_t> widths = Widths();
  WriteRow(out, m_headings, widths);
  for (const Row& row : m_rows) WriteRow(out, row, widths);
}

}  // namespace settingsctl
