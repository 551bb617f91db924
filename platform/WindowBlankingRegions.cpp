#include "platform/WindowBlankingRegions.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/ColourConversion.h"

namespace analytics {
namespace {

using tavrel::core::IniFile;

constexpr std::uint32_t kMaxRegions = 32;

/// Colour of a region as the settings give it.
struct RegionColour {
  std::uint8_t r;
  std::uint8_t g;
  std::uint8_t b;
  std::uint8_t a;
};

bool IsEnabled(const IniFile& settings) {
  return settings.GetBoolOrDefault(kWindowBlankingGroup, "Enabled", false);
}

std::string RegionGroup(std::uint32_t number) {
  return std::string(kWindowBlankingGroup) + "/Region#" + std::to_string(number);
}

bool IsActive(const IniFile& settings, const std::string& group) {
  std::string name;
  return settings.TryGetValue(name, group, "Name") && name != "Empty";
}

std::uint8_t ColourPart(const IniFile& settings, const std::string& group, const char* key,
                        int missing) {
  // Deliberate: the low eight bits, not the nearest valid value; 300 is 44 and -1 is 255. Kept for
  // compatibility: installed runtimes see it.
  return static_cast<std::uint8_t>(settings.GetIntOrDefault(group, key, missing));
}

RegionColour ReadColour(const IniFile& settings, const std::string& group) {
  RegionColour colour;
  colour.r = ColourPart(settings, group, "ColorR", 0);
  colour.g = ColourPart(settings, group, "ColorG", 0);
  colour.b = ColourPart(settings, group, "ColorB", 0);
  colour.a = ColourPart(settings, group, "ColorA", 255);
  return colour;
}

/// Counts the active regions, and into `groupCount` the region groups, of which the first that is
/// missing is the end.
std::uint32_t CountRegions(const IniFile& settings, std::uint32_t& groupCount) {
  // Deliberate: `groupCount` keeps the last count, so that switching off clears a record of
  // regions.
  if (!IsEnabled(settings)) return 0;
  std::uint32_t active = 0;
  groupCount = 0;
  for (std::uint32_t number = 1; number <= kMaxRegions; ++number) {
    const std::string group = RegionGroup(number);
    if (!settings.HasGroup(group)) break;
    if (IsActive(settings, group)) ++active;
    ++groupCount;
  }
  return active;
}

/// Reads the colours of the active regions among the first `maxNumber`; `colours` has room for all.
void ReadRegionColours(const IniFile& settings, std::vector<RegionColour>& colours,
                       std::uint32_t maxNumber) {
  if (!IsEnabled(settings)) return;
  std::uint32_t written = 0;
  for (std::uint32_t number = 1; number <= std::min(kMaxRegions, maxNumber); ++number) {
    const std::string group = RegionGroup(number);
    if (IsActive(settings, group)) colours[written++] = ReadColour(settings, group);
  }
}

}  // namespace

void RefreshRegions(const IniFile& settings, std::uint32_t& groupCount,
                    tagWindowBlankingRegions& regions) {
  const std::uint32_t active = CountRegions(settings, groupCount);
  // Deliberate: without any region group the previous record stands. Kept for compatibility:
  // installed runtimes see it.
  if (groupCount == 0) return;
  std::vector<RegionColour> colours(groupCount);
  ReadRegionColours(settings, colours, groupCount);
  // Deliberate: with all 32 regions active the previous record stands. Kept for compatibility:
  // installed runtimes see it.
  if (active >= kMaxRegions) return;
  regions.count = active;
  for (std::uint32_t index = 0; index < active; ++index) {
    const RegionColour& colour = colours[index];
    regions.regions[index] = YuvFromRgb(colour.r, colour.g, colour.b);
  }
}

}  // namespace analytics
