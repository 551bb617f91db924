// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <analytics/Export.h>

namespace analytics {

/// The camera's shared analytics resource, the "CPU" units, on behalf of the consumer "Analytics".
///
/// Ownership: an object holds nothing; every operation opens its own connection to the platform's
/// settings service and closes it again.
///
/// Errors: `std::bad_alloc` and what the platform throws get out, with the connection closed. An
/// exception out of the platform's mutex ends the process through the unexpected-exception handler.
///
/// Threads: any. Calls may overlap; which of two overlapping claims comes last is not determined.
class ANALYTICS_API ResourceUsageServer {
 public:
  ResourceUsageServer();
  ~ResourceUsageServer();

  /// Units that are still free, as the platform reports them; a negative number is passed on.
  int AvailableResources();

  /// Claims units for the analytics; a claim that the platform accepts replaces the previous one.
  ///
  /// @param count  number of units, passed on as it is, also if it is negative
  /// @return 1, also where the platform has refused the claim: nothing here reports it
  int ReserveResources(int count);
};

}  // namespace analytics
