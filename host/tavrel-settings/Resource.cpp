#include "host/tavrel-settings/Resource.h"

#include <algorithm>
#include <iterator>
#include <numeric>

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
  Resource resource{name, settings.GetIntOrDefault(group, kCapacityKey, 0), {}};
  for (const std::string& consumer : Children(settings, group))
    resource.usages[consumer] = settings.GetIntOrDefault(ClaimGroup(name, consumer), kUsageKey, 0);
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
