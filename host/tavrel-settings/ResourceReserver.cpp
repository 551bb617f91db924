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
  std::int64_t units = 0;
  Store().Inspect(
      [&](const IniFile& settings) { units = ReadResource(settings, m_resource).Free(); });
  return Clamped(units);
}

bool ResourceReserver::TrySetUsage(int units) {
  if (units < 0) return false;
  bool isAccepted = false;
  Store().Edit([&](IniFile& settings) {
    const std::string group = ClaimGroup(m_resource, m_consumer);
    const int present = std::max(0, settings.GetIntOrDefault(group, kUsageKey, 0));
    IniFile claimed = settings;
    claimed.SetValue(group, kUsageKey, std::to_string(units));
    // Whoever gives units back needs no others to be free.
    isAccepted = units <= present || ReadResource(claimed, m_resource).Free() >= 0;
    if (isAccepted) settings = claimed;
  });
  return isAccepted;
}

}  // namespace settings
}  // namespace tavrel
