#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include <tavrel/settings/ResourceReserver.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/support/fakes/CallLog.h"
#include "tests/support/fakes/LockAnswer.h"
#include "tests/support/fakes/Platform.h"

namespace fakes {

Platform& Platform::Instance() {
  // Never destroyed: fakes are called until the very end of the process.
  static auto* const platform = new Platform;
  return *platform;
}

namespace {

/// Has the platform made, and its own settings forgotten by the log, before the library is loaded.
[[maybe_unused]] const bool kIsMade = (Platform::Instance().Reset(), true);

}  // namespace

void Platform::Reset() {
  CallLog::Instance().Clear();  // what is set to fail must not fail here
  *this = Platform();
  LockAnswer() = 0;
  RefusalsLeft() = kAlways;
  CallLog::Instance().Clear();
}

}  // namespace fakes

namespace tavrel {
namespace settings {
namespace {

using fakes::Platform;

void Note(std::string_view call) { fakes::CallLog::Instance().Note(call); }

/// How an object that the library passed is noted: by its role.
std::string Text(const void* object, const std::string& role) { return object ? role : "null"; }

}  // namespace

IChangeCallback::~IChangeCallback() { Note("IChangeCallback::~IChangeCallback()"); }

class TavrelSettingsClient::Impl {};

TavrelSettingsClient::TavrelSettingsClient(OperationMode mode) : m_impl() {
  char
      call[64];  // no text that needs memory, so that what runs out of it is what the library takes
  std::snprintf(call, sizeof call, "TavrelSettingsClient::TavrelSettingsClient(%d)", mode);
  Note(call);
}

TavrelSettingsClient::~TavrelSettingsClient() {
  Note("TavrelSettingsClient::~TavrelSettingsClient()");
  if (Platform::Instance().whileClosing) Platform::Instance().whileClosing();
}

void TavrelSettingsClient::GetSettings(const std::string& pattern, core::IniFile& out) const {
  Note("TavrelSettingsClient::GetSettings(" + pattern + ")");
  out = Platform::Instance().stored;
  if (Platform::Instance().whileReading) Platform::Instance().whileReading();
}

void TavrelSettingsClient::Subscribe(IChangeCallback* callback, const std::string& pattern) {
  Note("TavrelSettingsClient::Subscribe(" + Text(callback, "callback") + "," + pattern + ")");
  Platform::Instance().subscriptions.emplace_back(callback, pattern);
  if (Platform::Instance().whileSubscribing) Platform::Instance().whileSubscribing();
}

void TavrelSettingsClient::UnSubscribe(IChangeCallback* callback) {
  Note("TavrelSettingsClient::UnSubscribe(" + Text(callback, "callback") + ")");
  auto& subscriptions = Platform::Instance().subscriptions;
  const auto isOf = [callback](const Platform::Subscription& one) { return one.first == callback; };
  subscriptions.erase(std::remove_if(subscriptions.begin(), subscriptions.end(), isOf),
                      subscriptions.end());
}

ResourceReserver::ResourceReserver(TavrelSettingsClient* client, const std::string& resource,
                                   const std::string& consumer)
    : m_resource(resource), m_consumer(consumer) {
  Note("ResourceReserver::ResourceReserver(" + Text(client, "client") + "," + resource + "," +
       consumer + ")");
}

ResourceReserver::~ResourceReserver() { Note("ResourceReserver::~ResourceReserver()"); }

int ResourceReserver::GetAvailableResources() const {
  Note("ResourceReserver::GetAvailableResources()");
  if (Platform::Instance().whileAsked) Platform::Instance().whileAsked();
  return Platform::Instance().availableResources;
}

bool ResourceReserver::TrySetUsage(int units) {
  Note("ResourceReserver::TrySetUsage(" + std::to_string(units) + ")");
  if (Platform::Instance().whileAsked) Platform::Instance().whileAsked();
  return Platform::Instance().usageAccepted;
}

}  // namespace settings
}  // namespace tavrel
