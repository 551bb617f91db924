#include "platform/WindowBlankingRegions.h"

#include <cstddef>

#include "platform/ColourConversion.h"

namespace analytics {
namespace {

using tavrel::core::IniFile;

std::uint8_t ColourPart(const IniFile& settings, const std::string& group, const std::string& key,
                        int missing) {
  // Deliberate: the low eight bits, not the nearest valid value; 300 is 44 and -1 is 255. Kept for
  // compatibility: installed runtimes see it.
  return static_cast<std::uint8_t>(settings.GetIntOrDefault(group, key, missing));
}

}  // namespace

WindowBlankingRegions::WindowBlankingRegions() {
  int number = 0;
  for (std::string& group : m_regionGroups)
    group.append(m_group).append("/Region#").append(std::to_string(++number));
}

WindowBlankingRegions::~WindowBlankingRegions() = default;

void WindowBlankingRegions::Refresh(const IniFile& settings, std::uint32_t& groupCount,
                                    tagWindowBlankingRegions& record) const {
  const std::uint32_t active = Count(settings, groupCount);
  // Deliberate: without any region group the previous record stands. Kept for compatibility:
  // installed runtimes see it.
  if (groupCount == 0) return;
  std::vector<Colour> colours(groupCount);
  ReadColours(settings, colours);
  // Deliberate: with all 32 regions active the previous record stands. Kept for compatibility:
  // installed runtimes see it.
  if (active >= kMaxRegions) return;
  record.count = active;
  for (std::uint32_t index = 0; index < active; ++index) {
    const Colour& colour = colours[index];
    record.regions[index] = YuvFromRgb(colour.r, colour.g, colour.b);
  }
}

bool WindowBlankingRegions::IsEnabled(const IniFile& settings) const {
  return settings.GetBoolOrDefault(m_group, m_enabled, false);
}

bool WindowBlankingRegions::IsActive(const IniFile& settings, const std::string& group) const {
  std::string name;
  return settings.TryGetValue(name, group, m_name) && name != "Empty";
}

WindowBlankingRegions::Colour WindowBlankingRegions::ReadColour(const IniFile& settings,
                                                                const std::string& group) const {
  Colour colour;
  colour.r = ColourPart(settings, group, m_colourR, 0);
  colour.g = ColourPart(settings, group, m_colourG, 0);
  colour.b = ColourPart(settings, group, m_colourB, 0);
  colour.a = ColourPart(settings, group, m_colourA, 255);
  return colour;
}

/// Counts the active regions, and into `groupCount` the region groups, of which the first that is
/// missing is the end.
std::uint32_t WindowBlankingRegions::Count(const IniFile& settings,
                                           std::uint32_t& groupCount) const {
  // Deliberate: `groupCount` keeps the last count, so that switching off clears a record of
  // regions.
  if (!IsEnabled(settings)) return 0;
  std::uint32_t active = 0;
  groupCount = 0;
  for (const std::string& group : m_regionGroups) {
    if (!settings.HasGroup(group)) break;
    if (IsActive(settings, group)) ++active;
    ++groupCount;
  }
  return active;
}

/// Reads the colours of the active regions among the first, as many as `colours` has room for.
void WindowBlankingRegions::ReadColours(const IniFile& settings,
                                        std::vector<Colour>& colours) const {
  if (!IsEnabled(settings)) return;
  auto next = colours.begin();
  for (std::size_t place = 0; place < colours.size(); ++place) {
    const std::string& group = m_regionGroups[place];
    if (IsActive(settings, group)) *next++ = ReadColour(settings, group);
  }
}

}  // namespace analytics
