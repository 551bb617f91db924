#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <analytics/WindowBlankingChanges.h>

#include "tests/platform/Regions.h"
#include "tests/support/fakes/CallLog.h"
#include "tests/support/fakes/Platform.h"

namespace tests {

/// Has the platform report a change to what is subscribed.
inline void Change(const IniFile& changes) {
  const auto& subscriptions = fakes::Platform::Instance().subscriptions;
  ASSERT_FALSE(subscriptions.empty());
  subscriptions.front().first->OnSettingsChanged(nullptr, changes);
}

/// A subscriber that keeps what it was told last.
struct Listener {
  int calls = 0;
  int kind = 0;
  int size = 0;
  const void* data = nullptr;
  tagWindowBlankingRegions record = {};

  /// The callback; its context is a listener.
  static int Hear(void* context, int kind, void* data, int size) {
    Listener& listener = *static_cast<Listener*>(context);
    const auto* const record = static_cast<const tagWindowBlankingRegions*>(data);
    listener = {listener.calls + 1, kind, size, data, *record};
    return 0;
  }
};

/// A callback whose context is a text: notes "Subscriber(text)" among the platform's calls, and
/// fails where that is set to fail.
inline int NoteCall(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
  const std::string name = static_cast<const char*>(context);
  fakes::CallLog::Instance().Note("Subscriber(" + name + ")");
  return 1;
}

/// A text as a context for `NoteCall`.
inline void* Named(const char* name) { return const_cast<char*>(name); }

/// The subscribers called since the calls were last forgotten.
inline std::vector<std::string> CalledSubscribers() {
  return fakes::CallLog::Instance().CallsOf("Subscriber(");
}

}  // namespace tests
