#include "host/tavrel-settings/Resource.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <numeric>

#include "host/tavrel-settings/BadSetting.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;

const char* const kResources = "Resources";
const char* const kCapacityKey = "Capacity";

std::string GroupOf(const std::string& resource) {
  return std::string(kResources) + "/" + resource;
}

/// The names of the groups one level below `parent`; deeper ones are not looked at.
std::vector<std::string> Children(const IniFile& settings, const std::string& parent) {
  const std::string start = parent + "/";
  std::vector<std::string> names;
  for (const auto& group : settings.AllGroups()) {
    const bool isBelow = group.first.compare(0, start.size(), start) == 0;
    if (isBelow && group.first.find('/', start.size()) == std::string::npos)
      names.push_back(group.first.substr(start.size()));
  }
  return names;
}

/// A number of units; 0 if it is missing, but never because it is none: too much would be claimed.
int Units(const IniFile& settings, const std::string& group, const std::string& key) {
  std::string text;
  if (!settings.TryGetValue(text, group, key)) return 0;
  const int units = settings.GetIntOrDefault(group, key, 0);
  if (units != settings.GetIntOrDefault(group, key, 1))  // only an integer needs no default
    throw BadSetting("the " + key + " \"" + text + "\" is not an integer from " +
                         std::to_string(INT_MIN) + " to " + std::to_string(INT_MAX),
                     group, key);
  return units;
}

}  // namespace

const char* const kUsageKey = "Usage";

std::int64_t Resource::Usage() const {
  return std::accumulate(usages.begin(), usages.end(), std::int64_t{0},
                         [](std::int64_t sum, const auto& usage) { return sum + usage.second; });
}

std::string ClaimGroup(const std::string& resource, const std::string& consumer) {
  return GroupOf(resource) + "/" + consumer;
}

Resource ReadResource(const IniFile& settings, const std::string& name) {
  const std::string group = GroupOf(name);
  Resource resource{name, Units(settings, group, kCapacityKey), {}};
  for (const std::string& consumer : Children(settings, group))
    resource.usages[consumer] = Units(settings, ClaimGroup(name, consumer), kUsageKey);
  return resource;
}

std::vector<Resource> ReadResources(const IniFile& settings) {
  const std::vector<std::string> names = Children(settings, kResources);
  std::vector<Resource> resources;
  resources.reserve(names.size());
  std::transform(names.begin(), names.end(), std::back_inserter(resources),
                 [&settings](const std::string& name) { return ReadResource(settings, name); });
  return resources;
}

}  // namespace settings
}  // namespace tavrel
