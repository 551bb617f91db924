#pragma once

#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Subscribers.h"

namespace tests {

/// An operation of the blanking changes that takes the lock.
struct BlankingOperation {
  const char* name;
  bool isOfStarted;  // whether it is about blanking changes that are started
  void (*call)();
  Calls underLock;  // what it makes the platform and the subscribers see under the lock
};

inline const BlankingOperation kBlankingOperations[] = {
    {"Subscribe",
     true,
     [] { analytics::WindowBlankingChanges().Subscribe(&NoteCall, Named("second")); },
     {}},
    {"Unsubscribe",
     true,
     [] { analytics::WindowBlankingChanges().Unsubscribe(&NoteCall, Named("other")); },
     {}},
    {"Start",
     false,
     [] { analytics::WindowBlankingChanges().Start(); },
     {"TavrelSettingsClient::GetSettings(Imaging/WindowBlanking*)", "IniFile::operator=(other)",
      "TavrelSettingsClient::Subscribe(callback,Imaging/WindowBlanking*)",
      "IniFile::GetBoolOrDefault(Imaging/WindowBlanking,Enabled,false)"}},
    {"StartAgain", true, [] { analytics::WindowBlankingChanges().Start(); }, {}},
    {"Stop",
     true,
     [] { analytics::WindowBlankingChanges().Stop(); },
     {"TavrelSettingsClient::UnSubscribe(callback)"}},
    {"StopAgain", false, [] { analytics::WindowBlankingChanges().Stop(); }, {}},
    {"SetConfiguration",
     true,
     [] { analytics::WindowBlankingChanges().SetConfiguration(OneRegion()); },
     {"Subscriber(first)"}},
    {"Change",
     true,
     [] { Change(fakes::Platform::Instance().stored); },
     {"IniFile::MergeSettings(changes)",
      "IniFile::GetBoolOrDefault(Imaging/WindowBlanking,Enabled,false)", "Subscriber(first)"}},
};

/// Brings the process to where `operation` is called, with one subscriber and no settings.
inline void PrepareFor(const BlankingOperation& operation) {
  const analytics::WindowBlankingChanges& changes = *analytics::WindowBlankingChanges::Instance();
  if (operation.isOfStarted) changes.Start();
  changes.Subscribe(&NoteCall, Named("first"));
  fakes::CallLog::Instance().Clear();
}

}  // namespace tests
