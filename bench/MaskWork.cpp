#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <analytics/Mutex.h>
#include <analytics/WindowBlankingChanges.h>
#include <tavrel/core/IniFile.h>

#include "bench/ReportingClient.h"
#include "bench/Work.h"
#include "bench/sides/Everyone.h"

namespace bench {
namespace {

using tavrel::core::IniFile;

constexpr int kRegions = 32;

const std::string kMainGroup = "Imaging/WindowBlanking";

std::string RegionGroup(int number) { return kMainGroup + "/Region#" + std::to_string(number); }

/// Every second region's name and colour.
IniFile Change() {
  IniFile change;
  for (int number = 1; number <= kRegions; number += 2) {
    change.SetValue(RegionGroup(number), "Name", "Mask " + std::to_string(number));
    change.SetValue(RegionGroup(number), "ColorR", std::to_string(7 * number));
    change.SetValue(RegionGroup(number), "ColorG", std::to_string(255 - 5 * number));
    change.SetValue(RegionGroup(number), "ColorB", std::to_string(3 * number));
  }
  return change;
}

/// Settings with 32 regions, of which those are active that `Change` is about.
IniFile StoredRegions() {
  IniFile stored;
  stored.SetValue(kMainGroup, "Enabled", "true");
  for (int number = 1; number <= kRegions; ++number) {
    stored.SetValue(RegionGroup(number), "Name", "Empty");
  }
  stored.MergeSettings(Change());
  return stored;
}

/// A subscriber that keeps the record.
int Hear(void* heard, int /*kind*/, void* record, int /*size*/) {
  *static_cast<tagWindowBlankingRegions*>(heard) = *static_cast<tagWindowBlankingRegions*>(record);
  return 0;
}

std::vector<std::int32_t> Numbers(const tagWindowBlankingRegions& record) {
  std::vector<std::int32_t> numbers;
  for (std::uint32_t index = 0; index < record.count; ++index) {
    const tagWindowBlankingRegion& region = record.regions[index];
    numbers.insert(numbers.end(), {region.y, region.u, region.v});
  }
  return numbers;
}

/// What the platform's operations are called with, made once.
struct Names {
  Names() {
    for (int number = 1; number <= kRegions; ++number) regions.push_back(RegionGroup(number));
  }

  const std::string enabled = "Enabled", name = "Name";
  const std::string colourR = "ColorR", colourG = "ColorG", colourB = "ColorB", colourA = "ColorA";
  std::vector<std::string> regions;
};

/// The calls of the platform that a change takes, each made as often as the library makes it.
template <typename Side>
class MaskChange {
 public:
  std::uint32_t operator()() {
    m_mutex.Lock();
    m_settings.MergeSettings(m_change);
    ReadColours(CountGroups());
    Hear(&m_heard, 4, &m_record, sizeof m_record);
    m_mutex.Unlock();
    return m_heard.count;
  }

  std::vector<std::int32_t> Outcome() {
    (*this)();
    return Numbers(m_heard);
  }

 private:
  std::size_t CountGroups() const {
    if (!m_settings.GetBoolOrDefault(kMainGroup, m_names.enabled, false)) return 0;
    std::size_t count = 0;
    while (count < kRegions && m_settings.HasGroup(m_names.regions[count])) {
      benchmark::DoNotOptimize(IsActive(m_names.regions[count++]));
    }
    return count;
  }

  bool IsActive(const std::string& group) const {
    std::string name;
    return m_settings.TryGetValue(name, group, m_names.name) && name != "Empty";
  }

  void ReadColours(std::size_t count) {
    m_record.count = 0;
    if (!m_settings.GetBoolOrDefault(kMainGroup, m_names.enabled, false)) return;
    for (std::size_t place = 0; place < count; ++place) {
      const std::string& group = m_names.regions[place];
      if (IsActive(group)) m_record.regions[m_record.count++] = Colour(group);
    }
  }

  tagWindowBlankingRegion Colour(const std::string& group) const {
    const int r = m_settings.GetIntOrDefault(group, m_names.colourR, 0);
    const int g = m_settings.GetIntOrDefault(group, m_names.colourG, 0);
    const int b = m_settings.GetIntOrDefault(group, m_names.colourB, 0);
    benchmark::DoNotOptimize(m_settings.GetIntOrDefault(group, m_names.colourA, 255));
    return {((66 * r + 129 * g + 25 * b + 128) >> 8) + 16,
            ((112 * b - 38 * r - 74 * g + 128) >> 8) + 128,
            ((112 * r - 94 * g - 18 * b + 128) >> 8) + 128};
  }

  const Names m_names;
  const IniFile m_change = Change();
  analytics::Mutex m_mutex{true};
  IniFile m_settings = StoredRegions();
  tagWindowBlankingRegions m_record = {};
  tagWindowBlankingRegions m_heard = {};
};

template <>
class MaskChange<Library> {
 public:
  MaskChange() {
    PlatformSettings() = StoredRegions();
    analytics::WindowBlankingChanges* const changes = analytics::WindowBlankingChanges::Instance();
    changes->Start();
    changes->Subscribe(Hear, &m_heard);
  }
  ~MaskChange() { analytics::WindowBlankingChanges::Instance()->Unsubscribe(Hear, &m_heard); }

  std::uint32_t operator()() {
    Subscribed()->OnSettingsChanged(nullptr, m_change);
    return m_heard.count;
  }

  std::vector<std::int32_t> Outcome() {
    (*this)();
    return Numbers(m_heard);
  }

 private:
  const IniFile m_change = Change();
  tagWindowBlankingRegions m_heard = {};
};

}  // namespace

void AddMaskWork() {
  AddWork<MaskChange>(Among<ByHand, Library>(), "a mask change with 16 of 32 regions", "");
}

}  // namespace bench
