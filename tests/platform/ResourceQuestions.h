#pragma once

#include <analytics/ResourceUsageServer.h>

namespace tests {

/// An operation of the resource server and what it asks the platform.
struct ResourceQuestion {
  const char* name;
  int (*ask)();
  const char* question;
};

constexpr ResourceQuestion kResourceQuestions[] = {
    {"AvailableResources", [] { return analytics::ResourceUsageServer().AvailableResources(); },
     "ResourceReserver::GetAvailableResources()"},
    {"ReserveResources", [] { return analytics::ResourceUsageServer().ReserveResources(3); },
     "ResourceReserver::TrySetUsage(3)"},
};

}  // namespace tests
