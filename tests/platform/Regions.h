#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include <tavrel/core/IniFile.h>

#include <analytics/WindowBlankingChanges.h>

namespace tests {

using tavrel::core::IniFile;

constexpr char kMainGroup[] = "Imaging/WindowBlanking";

inline std::string RegionGroup(int number) {
  return std::string(kMainGroup) + "/Region#" + std::to_string(number);
}

/// Keys of a region with a name and a colour.
inline IniFile::Keys Region(const std::string& name, int r, int g, int b) {
  return {{"Name", name},
          {"ColorR", std::to_string(r)},
          {"ColorG", std::to_string(g)},
          {"ColorB", std::to_string(b)}};
}

inline IniFile::Keys RedRegion() { return Region("Door", 255, 0, 0); }
inline IniFile::Keys GreenRegion() { return Region("Lawn", 0, 255, 0); }
inline IniFile::Keys BlueRegion() { return Region("Desk", 0, 0, 255); }
inline IniFile::Keys EmptyRegion() { return Region("Empty", 1, 2, 3); }

inline void SetGroup(IniFile& settings, const std::string& group, const IniFile::Keys& keys) {
  settings.AddGroup(group);
  for (const auto& [key, value] : keys) settings.SetValue(group, key, value);
}

/// Settings with these groups.
inline IniFile Settings(const IniFile::Groups& groups) {
  IniFile settings;
  for (const auto& [group, keys] : groups) SetGroup(settings, group, keys);
  return settings;
}

/// Settings with the main switch on or off and nothing else.
inline IniFile Switched(bool on) {
  return Settings({{kMainGroup, {{"Enabled", on ? "true" : "false"}}}});
}

/// Settings with the main switch on and these regions, numbered from 1.
inline IniFile SwitchedOn(const std::vector<IniFile::Keys>& regions) {
  IniFile settings = Switched(true);
  int number = 0;
  for (const IniFile::Keys& keys : regions) SetGroup(settings, RegionGroup(++number), keys);
  return settings;
}

/// Active regions, each of a colour of its own.
inline std::vector<IniFile::Keys> ManyRegions(int count) {
  std::vector<IniFile::Keys> regions;
  for (int number = 1; number <= count; ++number) {
    regions.push_back(Region("Mask", 7 * number, 255 - 5 * number, 3 * number));
  }
  return regions;
}

/// A record of one region.
inline tagWindowBlankingRegions OneRegion() {
  tagWindowBlankingRegions record = {};
  record.count = 1;
  record.regions[0] = {1, 2, 3};
  return record;
}

/// Luma, Cb and Cr.
using Yuv = std::array<std::int32_t, 3>;

constexpr Yuv kRed = {82, 90, 240};
constexpr Yuv kGreen = {144, 54, 34};
constexpr Yuv kBlue = {41, 240, 110};
constexpr Yuv kNothing = {0, 0, 0};

/// All 32 entries of a record, those behind its count included.
inline std::vector<Yuv> AllEntries(const tagWindowBlankingRegions& record) {
  std::vector<Yuv> entries;
  for (const tagWindowBlankingRegion& region : record.regions) {
    entries.push_back({region.y, region.u, region.v});
  }
  return entries;
}

/// The entries of a record that its count makes valid.
inline std::vector<Yuv> ColoursOf(const tagWindowBlankingRegions& record) {
  std::vector<Yuv> entries = AllEntries(record);
  entries.resize(record.count, kNothing);
  return entries;
}

}  // namespace tests
