// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tavrel {
namespace settings {

class TavrelSettingsClient;

/// Claims units of a shared resource for a consumer.
///
/// In the store a resource is a group "Resources/NAME" with the key "Capacity", and each consumer's
/// claim a group "Resources/NAME/CONSUMER" with the key "Usage"; what is missing counts as 0.
///
/// Errors: as `TavrelSettingsClient`, and likewise for a store that cannot be written. A number of
/// units that is there and is not an integer of the range of `int` counts as a malformed line.
///
/// Threads: any; claims of all threads and processes are made one after the other.
class ResourceReserver {
 public:
  /// A name that is empty or contains "/" is refused with `std::invalid_argument`.
  ///
  /// @param client  not needed on a workstation
  ResourceReserver(TavrelSettingsClient* client, const std::string& resource,
                   const std::string& consumer);
  ~ResourceReserver();

  /// Units that nobody has claimed; negative if the capacity was lowered below what is claimed.
  int GetAvailableResources() const;

  /// Sets the consumer's claim.
  ///
  /// What the store holds as the present claim may be of any kind: it is replaced.
  ///
  /// @param units  the new claim as a whole, not an increment; 0 gives all back
  /// @return false, with nothing changed, for a negative number, and for a claim that is larger
  ///         than the present one and would exceed the capacity together with those of the others
  bool TrySetUsage(int units);

 private:
  const std::string m_resource;
  const std::string m_consumer;
};

}  // namespace settings
}  // namespace tavrel
