#pragma once

#include <ostream>
#include <vector>

#include "host/tavrel-settings/Resource.h"

namespace hostctl {

/// Writes a table with a row for each consumer of each resource, or one with "-" for a resource
/// that has no consumer.
void WriteResources(std::ostream& out, const std::vector<tavrel::settings::Resource>& resources);

}  // namespace hostctl
