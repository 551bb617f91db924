#pragma once

#include <analytics/Export.h>

namespace analytics {

/// The camera's shared analytics resource, the "CPU" units, on behalf of the consumer "Analytics".
///
/// Ownership: an object holds nothing; every operation opens its own connection to the platform's
/// settings service and closes it again.
///
/// Errors: what the platform throws reaches the caller, with the connection closed. An exception
/// out of the platform's mutex ends the process through the unexpected-exception handler.
///
/// Threads: any thread may call; calls may overlap, and the library gives overlapping claims no
/// order.
class ANALYTICS_API ResourceUsageServer {
 public:
  ResourceUsageServer();
  ~ResourceUsageServer();

  /// Units that are still free, as the platform reports them; a negative number is passed on.
  int AvailableResources();

  /// Claims units for the analytics; the claim replaces a former one.
  ///
  /// @param count  number of units, passed on as it is, also if it is negative
  /// @return always 1: the platform's answer is not passed on, a runtime learns what it got from
  ///         `AvailableResources()`
  int ReserveResources(int count);
};

}  // namespace analytics
