#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/RegionModel.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/Figures.h"

namespace tests {

/// The library as it is at first, started over a platform that then reports one change after
/// another, beside the model of its record. A program has one for all its tests.
class ManyRecords {
 public:
  static ManyRecords& Instance() {
    static auto* const records = new ManyRecords;
    return *records;
  }

  /// Has the platform report these regions in the place of all that there were.
  void Report(bool isEnabled, const std::vector<RegionState>& states,
              const std::vector<std::array<std::int64_t, 3>>& colours) {
    IniFile change = Switched(isEnabled);
    for (std::size_t place = 0; place < m_regions || place < states.size(); ++place)
      AddRegion(change, place, states, colours);
    m_regions = states.size();
    m_model.Refresh(isEnabled, states, colours);
    Deliver(change);
  }

  void Deliver(const IniFile& change) {
    Change(change);
    fakes::CallLog::Instance().Clear();
    Count("records");
  }

  /// Whether the record that subscribers were told last is that of the model.
  bool IsAsInTheModel() const {
    return m_listener.record.count == m_model.Count() &&
           AllEntries(m_listener.record) == m_model.Entries();
  }

  const tagWindowBlankingRegions& Record() const { return m_listener.record; }

 private:
  ManyRecords() {
    analytics::WindowBlankingChanges* const changes = analytics::WindowBlankingChanges::Instance();
    changes->Start();
    changes->Subscribe(&Listener::Hear, &m_listener);
  }

  static void AddRegion(IniFile& change, std::size_t place, const std::vector<RegionState>& states,
                        const std::vector<std::array<std::int64_t, 3>>& colours) {
    const std::string group = RegionGroup(static_cast<int>(place) + 1);
    change.RemoveGroup(group);  // what is merged is removed first
    if (place >= states.size() || states[place] == RegionState::kAbsent) return;
    const auto& [r, g, b] = colours[place];
    change.SetValue(group, "ColorR", std::to_string(r));
    change.SetValue(group, "ColorG", std::to_string(g));
    change.SetValue(group, "ColorB", std::to_string(b));
    if (states[place] == RegionState::kEmpty) change.SetValue(group, "Name", "Empty");
    if (states[place] == RegionState::kNamed) change.SetValue(group, "Name", "Mask");
  }

  Listener m_listener;
  RegionModel m_model;
  std::size_t m_regions = 0;  // that may be in the library's settings
};

}  // namespace tests
