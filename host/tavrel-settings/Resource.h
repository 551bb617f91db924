#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

/// A shared resource as the store describes it.
struct Resource {
  std::string name;
  int capacity;
  std::map<std::string, int> usages;  // by consumer

  /// Units that the consumers have claimed together.
  std::int64_t Usage() const;

  /// Units that nobody has claimed; negative if more is claimed than there is.
  std::int64_t Free() const { return capacity - Usage(); }
};

/// The group of a consumer's claim, and the key in it.
std::string ClaimGroup(const std::string& resource, const std::string& consumer);
extern const char* const kUsageKey;

/// The resource of that name; what is missing of it counts as 0.
///
/// Errors: a `BadSetting` for a capacity or a usage that is there and is not an integer.
Resource ReadResource(const core::IniFile& settings, const std::string& name);

/// All resources that have a group of their own, by name. Errors: as `ReadResource`.
std::vector<Resource> ReadResources(const core::IniFile& settings);

}  // namespace settings
}  // namespace tavrel
