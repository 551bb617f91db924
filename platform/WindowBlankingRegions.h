#pragma once

#include <cstdint>

#include <tavrel/core/IniFile.h>

#include <analytics/WindowBlankingChanges.h>

namespace analytics {

/// The platform's settings group of all window-blanking settings; those of regions lie below it.
constexpr char kWindowBlankingGroup[] = "Imaging/WindowBlanking";

/// Turns the window-blanking groups of `settings` into a record of the active regions' colours.
///
/// Regions are numbered from 1; the first number without a group ends them. Not every state of the
/// settings changes the record:
///
/// | Settings                                    | Record                                  |
/// |---------------------------------------------|-----------------------------------------|
/// | switched off before any region was seen     | unchanged                               |
/// | switched off later                          | count 0, entries kept                   |
/// | switched on without any region group        | unchanged                               |
/// | 0 to 31 active regions                      | count and the first entries set         |
/// | 32 active regions                           | unchanged                               |
///
/// @param groupCount  number of region groups that the last count found; kept while switched off
/// @param regions     the record
void RefreshRegions(const tavrel::core::IniFile& settings, std::uint32_t& groupCount,
                    tagWindowBlankingRegions& regions);

}  // namespace analytics
