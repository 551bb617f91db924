// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

class TavrelSettingsClient;

/// Receives changes of settings.
class IChangeCallback {
 public:
  virtual ~IChangeCallback();

  /// Called on the client's own thread when settings that were subscribed to have changed.
  ///
  /// @param source   the client that was subscribed with
  /// @param changes  the changed groups and keys, with what was removed marked so
  virtual void OnSettingsChanged(TavrelSettingsClient* source, const core::IniFile& changes) = 0;
};

}  // namespace settings
}  // namespace tavrel
