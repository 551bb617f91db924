#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <tavrel/core/IniFile.h>
#include <tavrel/settings/IChangeCallback.h>

namespace fakes {

/// What the fakes answer, and what the library has subscribed to.
///
/// Each call is noted in the `CallLog` under its own name with its arguments, such as
/// "Mutex::Lock()" or "ResourceReserver::TrySetUsage(7)", destructors as "Mutex::~Mutex()".
///
/// Threads: set up by the test before other threads call.
struct Platform {
  /// The platform of this process.
  static Platform& Instance();

  /// Puts all answers back to how they start, and clears the log.
  void Reset();

  int availableResources = 0;
  bool usageAccepted = true;
  std::function<void()> whileAsked;        ///< if set, called during each question to a reserver
  std::function<void()> whileReading;      ///< if set, called at the end of `GetSettings`
  std::function<void()> whileSubscribing;  ///< if set, called at the end of `Subscribe`
  std::function<void()> whileClosing;      ///< if set, called when a client is destroyed
  tavrel::core::IniFile stored;            ///< what `GetSettings` gives, whatever the pattern

  using Subscription = std::pair<tavrel::settings::IChangeCallback*, std::string>;
  std::vector<Subscription> subscriptions;  ///< callback and pattern
};

}  // namespace fakes
