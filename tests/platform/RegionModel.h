#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "tests/platform/ReferenceColours.h"
#include "tests/platform/Regions.h"

namespace tests {

/// What the settings have of one region.
enum class RegionState { kAbsent, kWithoutName, kEmpty, kNamed };

/// The low eight bits of a number as its remainder, without a shift or a cast.
constexpr std::int64_t Remainder256(std::int64_t number) { return (number % 256 + 256) % 256; }

/// What records are expected to be, by lists and sums: not as the library goes about it.
class RegionModel {
 public:
  /// Takes in settings whose regions have these states and, in the same places, these colours.
  void Refresh(bool isEnabled, const std::vector<RegionState>& states,
               const std::vector<std::array<std::int64_t, 3>>& colours) {
    std::size_t groups = 0;
    while (groups < states.size() && groups < 32 && states[groups] != RegionState::kAbsent)
      ++groups;
    if (isEnabled) m_groups = groups;
    if (m_groups == 0) return;
    std::vector<Yuv> active;
    for (std::size_t place = 0; isEnabled && place < groups; ++place) {
      const auto& [r, g, b] = colours[place];
      if (states[place] == RegionState::kNamed)
        active.push_back(ReferenceYuv(Remainder256(r), Remainder256(g), Remainder256(b)));
    }
    if (active.size() == 32) return;
    m_count = active.size();
    std::copy(active.begin(), active.end(), m_entries.begin());
  }

  std::size_t Count() const { return m_count; }

  /// All entries, those behind the count included.
  const std::vector<Yuv>& Entries() const { return m_entries; }

 private:
  std::size_t m_groups = 0;
  std::size_t m_count = 0;
  std::vector<Yuv> m_entries = std::vector<Yuv>(32, kNothing);
};

}  // namespace tests
