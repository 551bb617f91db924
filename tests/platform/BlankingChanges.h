#pragma once

#include <analytics/WindowBlankingChanges.h>

#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/fakes/Platform.h"

namespace tests {

/// The blanking changes of a process whose platform holds `stored`, started.
inline analytics::WindowBlankingChanges* Started(const IniFile& stored) {
  fakes::Platform::Instance().stored = stored;
  analytics::WindowBlankingChanges* const changes = analytics::WindowBlankingChanges::Instance();
  changes->Start();
  return changes;
}

/// What a new subscriber is told at once; it is gone again afterwards.
inline Listener NewListener() {
  Listener listener;
  const analytics::WindowBlankingChanges changes;
  changes.Subscribe(&Listener::Hear, &listener);
  changes.Unsubscribe(&Listener::Hear, &listener);
  return listener;
}

/// What a subscriber is told of a change that the platform reports.
inline Listener ListenerAfter(const IniFile& change) {
  Listener listener;
  const analytics::WindowBlankingChanges changes;
  changes.Subscribe(&Listener::Hear, &listener);
  listener = Listener();
  Change(change);
  changes.Unsubscribe(&Listener::Hear, &listener);
  return listener;
}

}  // namespace tests
