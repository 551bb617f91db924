#pragma once

#include <cstdint>

#include <tavrel/core/IniFile.h>

#include <analytics/WindowBlankingChanges.h>

namespace analytics {

/// The platform's settings group of all window-blanking settings; those of regions lie below it.
constexpr char kWindowBlankingGroup[] = "Imaging/WindowBlanking";

/// Brings a record of the active regions' colours up to date with the window-blanking groups of
/// `settings`, where their state is one that changes it: `WindowBlankingChanges` has the table.
///
/// @param groupCount  number of region groups when the settings were last seen switched on
/// @param regions     the record
void RefreshRegions(const tavrel::core::IniFile& settings, std::uint32_t& groupCount,
                    tagWindowBlankingRegions& regions);

}  // namespace analytics
