#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <tavrel/core/IniFile.h>

#include <analytics/WindowBlankingChanges.h>

namespace analytics {

/// The platform's settings group of all window-blanking settings; those of regions lie below it.
constexpr char kWindowBlankingGroup[] = "Imaging/WindowBlanking";

/// Reads the regions out of the window-blanking settings.
///
/// It keeps the names of groups and keys as the platform takes them, since each change asks for all
/// of them, and for most more than once.
class WindowBlankingRegions {
 public:
  WindowBlankingRegions();
  ~WindowBlankingRegions();

  WindowBlankingRegions(const WindowBlankingRegions&) = delete;
  WindowBlankingRegions& operator=(const WindowBlankingRegions&) = delete;

  /// Brings a record of the active regions' colours up to date with `settings`, where their state
  /// is one that changes it: `WindowBlankingChanges` has the table.
  ///
  /// @param groupCount  number of region groups when the settings were last seen switched on
  /// @param record      the record
  void Refresh(const tavrel::core::IniFile& settings, std::uint32_t& groupCount,
               tagWindowBlankingRegions& record) const;

 private:
  static constexpr std::uint32_t kMaxRegions = 32;

  /// Colour of a region as the settings give it.
  struct Colour {
    std::uint8_t r;
    std::uint8_t g;
    std::uint8_t b;
    std::uint8_t a;
  };

  bool IsEnabled(const tavrel::core::IniFile& settings) const;
  bool IsActive(const tavrel::core::IniFile& settings, const std::string& group) const;
  Colour ReadColour(const tavrel::core::IniFile& settings, const std::string& group) const;
  std::uint32_t Count(const tavrel::core::IniFile& settings, std::uint32_t& groupCount) const;
  void ReadColours(const tavrel::core::IniFile& settings, std::vector<Colour>& colours) const;

  const std::string m_group = kWindowBlankingGroup;
  const std::string m_enabled = "Enabled";
  const std::string m_name = "Name";
  const std::string m_colourR = "ColorR";
  const std::string m_colourG = "ColorG";
  const std::string m_colourB = "ColorB";
  const std::string m_colourA = "ColorA";
  std::array<std::string, kMaxRegions> m_regionGroups;
};

}  // namespace analytics
