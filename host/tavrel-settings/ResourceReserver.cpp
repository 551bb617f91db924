#include <tavrel/settings/ResourceReserver.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "host/tavrel-settings/Resource.h"
#include "host/tavrel-settings/Store.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;

int Clamped(std::int64_t units) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(
      std::max<std::int64_t>(Limits::min(), std::min<std::int64_t>(Limits::max(), units)));
}

/// Refuses what would not be one level of a group's name: such a claim would be left out of the sum
/// of all claims.
const std::string& CheckedName(const char* what, const std::string& name) {
  if (name.empty() || name.find('/') != std::string::npos)
    throw std::invalid_argument(std::string("no name of a ") + what + ": \"" + name + "\"");
  return name;
}

}  // namespace

// NOLINTBEGIN(modernize-pass-by-value): the platform declares it so.
ResourceReserver::ResourceReserver(TavrelSettingsClient* /*client*/, const std::string& resource,
                                   const std::string& consumer)
    : m_resource(CheckedName("resource", resource)),
      m_consumer(CheckedName("consumer", consumer)) {}
// NOLINTEND(modernize-pass-by-value)

ResourceReserver::~ResourceReserver() = default;

int ResourceReserver::GetAvailableResources() const {
  return Clamped(ReadResource(Store().Read(), m_resource).Free());
}

bool ResourceReserver::TrySetUsage(int units) {
  if (units < 0) return false;
  bool isAccepted = false;
  Store().Edit([&](IniFile& settings) {
    Resource resource = ReadResource(settings, m_resource);
    resource.usages[m_consumer] = units;
    isAccepted = resource.Free() >= 0;
    if (isAccepted)
      settings.SetValue(ClaimGroup(m_resource, m_consumer), kUsageKey, std::to_string(units));
  });
  return isAccepted;
}

}  // namespace settings
}  // namespace tavrel
