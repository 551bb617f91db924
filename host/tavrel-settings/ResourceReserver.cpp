#include <tavrel/settings/ResourceReserver.h>

#include <algorithm>
#include <cstdint>
#include <limits>

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

}  // namespace

// NOLINTNEXTLINE(modernize-pass-by-value): the platform declares it so
ResourceReserver::ResourceReserver(TavrelSettingsClient* /*client*/, const std::string& resource,
                                   // NOLINTNEXTLINE(modernize-pass-by-value): likewise
                                   const std::string& consumer)
    : m_resource(resource), m_consumer(consumer) {}

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
