#include "host/hostctl/ResourceTable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iomanip>
#include <string>

namespace hostctl {
namespace {

using tavrel::settings::Resource;

constexpr std::size_t kColumns = 5;
using Row = std::array<std::string, kColumns>;

constexpr std::array<bool, kColumns> kIsNumber = {false, true, false, true, true};

Row RowOf(const Resource& resource, const std::string& consumer, int usage) {
  return {resource.name, std::to_string(resource.capacity), consumer, std::to_string(usage),
          std::to_string(resource.Free())};
}

std::vector<Row> RowsOf(const std::vector<Resource>& resources) {
  std::vector<Row> rows = {{"RESOURCE", "CAPACITY", "CONSUMER", "USAGE", "FREE"}};
  for (const Resource& resource : resources) {
    if (resource.usages.empty()) rows.push_back(RowOf(resource, "-", 0));
    for (const auto& [consumer, usage] : resource.usages)
      rows.push_back(RowOf(resource, consumer, usage));
  }
  return rows;
}

std::size_t Width(const std::vector<Row>& rows, std::size_t column) {
  std::size_t width = 0;
  for (const Row& row : rows) width = std::max(width, row[column].size());
  return width;
}

}  // namespace

void WriteResources(std::ostream& out, const std::vector<Resource>& resources) {
  const std::vector<Row> rows = RowsOf(resources);
  for (const Row& row : rows) {
    for (std::size_t column = 0; column < kColumns; ++column) {
      out << (column > 0 ? "  " : "") << (kIsNumber[column] ? std::right : std::left)
          << std::setw(static_cast<int>(Width(rows, column))) << row[column];
    }
    out << "\n";
  }
}

}  // namespace hostctl
