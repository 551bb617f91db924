#pragma once

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "tests/platform/LoadedBlanking.h"
#include "tests/support/fakes/EachCallFailing.h"

namespace tests {

/// What a failed call of the platform leaves behind.
struct Aftermath {
  bool letsOut;             // whether the failure gets out
  Calls calls;              // what is still called after it
  bool isStarted;           // whether the platform's subscription counts as in force
  std::vector<Yuv> record;  // what a new subscriber is told
  Calls subscribers;        // whom a configuration reaches
  bool clears;              // whether switching off clears the record: groups were counted
};

/// What an operation is called on.
struct FaultPlace {
  LoadedLibrary& library;
  tavrel::settings::IChangeCallback* callback;
  const IniFile& off;  // a change that switches off
};

/// One operation, during which calls of the platform fail.
///
/// Before it the library is started with one green region and A, B and C subscribed; the store then
/// has a red and a blue one.
struct FaultRow {
  std::string name;
  bool isFirstUse;  // the library is loaded only
  bool isStopped;
  bool hasCalls;  // whether there is any call that may fail
  int locks;      // how often a lock is taken
  void (*operation)(const FaultPlace& place);
  Aftermath (*aftermath)(const fakes::Fault& fault);
};

inline void PrintTo(const FaultRow& row, std::ostream* out) { *out << row.name; }

inline bool StartsWith(const std::string& call, const std::string& start) {
  return call.rfind(start, 0) == 0;
}

inline bool IsRead(const std::string& call) {
  return StartsWith(call, "IniFile::") && !StartsWith(call, "IniFile::MergeSettings") &&
         !StartsWith(call, "IniFile::operator=");
}

/// The state before each operation, whose failure gets out and releases the lock.
inline Aftermath Unchanged() {
  return {true, {"Mutex::Unlock()"}, true, {kGreen}, {CallOf("A"), CallOf("B"), CallOf("C")}, true};
}

inline Aftermath AfterNothing(const fakes::Fault& /*fault*/) {
  Aftermath after = Unchanged();
  after.letsOut = false;
  return after;
}

inline Aftermath AfterResources(const fakes::Fault& fault) {
  Aftermath after = Unchanged();
  after.letsOut = !fault.call.empty();
  const Calls destructors = {"ResourceReserver::~ResourceReserver()",
                             "TavrelSettingsClient::~TavrelSettingsClient()"};
  const int made = StartsWith(fault.call, "TavrelSettingsClient::TavrelSettingsClient") ? 0
                   : StartsWith(fault.call, "ResourceReserver::ResourceReserver")       ? 1
                                                                                        : 2;
  after.calls.assign(destructors.end() - made, destructors.end());
  return after;
}

inline Aftermath AfterInstance(const fakes::Fault& fault) {
  const Calls destructors = {"TavrelSettingsClient::~TavrelSettingsClient()", "Mutex::~Mutex()",
                             "IChangeCallback::~IChangeCallback()"};
  const int made = StartsWith(fault.call, "Mutex::Mutex")             ? 1
                   : StartsWith(fault.call, "TavrelSettingsClient::") ? 2
                                                                      : 3;
  return {!fault.call.empty(), {destructors.end() - made, destructors.end()}, false, {}, {}, false};
}

inline Aftermath AfterSubscribe(const fakes::Fault& fault) {
  Aftermath after = Unchanged();
  after.letsOut = !fault.call.empty();
  after.subscribers.push_back(CallOf("D"));
  return after;
}

inline Aftermath AfterUnsubscribe(const fakes::Fault& fault) {
  Aftermath after = AfterNothing(fault);
  after.subscribers = {CallOf("A"), CallOf("C")};
  return after;
}

/// Whether a refresh was kept from counting the first group, having forgotten the last count: the
/// name of the group is read a second time for its colour.
inline bool HasLostCount(const fakes::Fault& fault) {
  if (fault.call == "IniFile::HasGroup(" + RegionGroup(1) + ")") return true;
  return fault.call == "IniFile::TryGetValue(" + RegionGroup(1) + ",Name)" &&
         std::count(fault.calls.begin(), fault.calls.end(), fault.call) == 1;
}

inline Aftermath AfterStart(const fakes::Fault& fault) {
  Aftermath after = Unchanged();
  after.isStarted = fault.call.empty() || IsRead(fault.call);
  after.letsOut = !after.isStarted;
  after.clears = !HasLostCount(fault);
  if (fault.call.empty()) after.record = {kRed, kBlue};
  return after;
}

inline Aftermath AfterStop(const fakes::Fault& fault) {
  Aftermath after = Unchanged();
  after.letsOut = after.isStarted = !fault.call.empty();
  return after;
}

inline Aftermath AfterConfiguration(const fakes::Fault& fault) {
  Aftermath after = Unchanged();
  after.letsOut = !fault.call.empty();
  return after;
}

inline Aftermath AfterChange(const fakes::Fault& fault) {
  Aftermath after = AfterNothing(fault);
  after.clears = !HasLostCount(fault);
  if (IsRead(fault.call))
    after.calls = {CallOf("A"), CallOf("B"), CallOf("C"), "Mutex::Unlock()"};
  else if (!StartsWith(fault.call, "IniFile::"))
    after.record = {kRed, kBlue};
  return after;
}

inline Aftermath AfterLateChange(const fakes::Fault& fault) {
  Aftermath after = AfterChange(fault);
  after.isStarted = false;
  return after;
}

inline Aftermath AfterSwitchingOff(const fakes::Fault& fault) {
  Aftermath after = AfterChange(fault);
  if (!StartsWith(fault.call, "IniFile::")) after.record = {};
  return after;
}

inline void DeliverStored(const FaultPlace& place) {
  place.callback->OnSettingsChanged(nullptr, fakes::Platform::Instance().stored);
}

inline const FaultRow kFaultRows[] = {
    {"AvailableResources", false, false, true, 1,
     [](const FaultPlace& place) { place.library.AvailableResources(); }, &AfterResources},
    {"ReserveResources", false, false, true, 1,
     [](const FaultPlace& place) { place.library.ReserveResources(3); }, &AfterResources},
    {"Instance", true, false, true, 0, [](const FaultPlace& place) { place.library.Instance(); },
     &AfterInstance},
    {"InstanceAgain", false, false, false, 0,
     [](const FaultPlace& place) { place.library.Instance(); }, &AfterNothing},
    {"Subscribe", false, false, true, 1,
     [](const FaultPlace& place) { place.library.Subscribe(&NoteCall, Named("D")); },
     &AfterSubscribe},
    {"Unsubscribe", false, false, false, 1,
     [](const FaultPlace& place) { place.library.Unsubscribe(&NoteCall, Named(kB)); },
     &AfterUnsubscribe},
    {"Start", false, true, true, 1, [](const FaultPlace& place) { place.library.Start(); },
     &AfterStart},
    {"StartAgain", false, false, false, 1, [](const FaultPlace& place) { place.library.Start(); },
     &AfterNothing},
    {"Stop", false, false, true, 1, [](const FaultPlace& place) { place.library.Stop(); },
     &AfterStop},
    {"StopAgain", false, true, false, 1, [](const FaultPlace& place) { place.library.Stop(); },
     &AfterStop},
    {"SetConfiguration", false, false, true, 1,
     [](const FaultPlace& place) { place.library.SetConfiguration(OneRegion()); },
     &AfterConfiguration},
    {"SetConfigurationOfNothing", false, false, false, 0,
     [](const FaultPlace& place) { place.library.SetConfiguration(tagWindowBlankingRegions()); },
     &AfterNothing},
    {"Change", false, false, true, 1, &DeliverStored, &AfterChange},
    {"ALateChange", false, true, true, 1, &DeliverStored, &AfterLateChange},
    {"SwitchingOff", false, false, true, 1,
     [](const FaultPlace& place) { place.callback->OnSettingsChanged(nullptr, place.off); },
     &AfterSwitchingOff},
};

}  // namespace tests
