#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "output/Colours.h"

namespace settingsctl {

/// A table for people: at most 80 columns wide, cells that need more are broken into lines.
class Table {
 public:
  explicit Table(std::vector<std::string> headings);

  /// Adds a row. Control characters are made visible, except for line breaks, at which a cell goes
  /// on in a new line.
  ///
  /// @param style  how the row stands out where there are colours
  void Add(const std::vector<std::string>& cells, std::optional<Style> style = std::nullopt);

  /// Writes the headings and the rows; nothing for a table without rows.
  void Write(std::ostream& out) const;

 private:
  using Cell = std::vector<std::string>;  // lines
  struct Row {
    std::vector<Cell> cells;
    std::optional<Style> style;
  };

  std::vector<std::size_t> Widths() const;
  static void WriteRow(std::ostream& out, const Row& row, const std::vector<std::size_t>& widths);

  Row m_headings{{}, Style::kBold};
  std::vector<Row> m_rows;
};

}  // namespace settingsctl
