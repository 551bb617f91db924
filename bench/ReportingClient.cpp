#include "bench/ReportingClient.h"

#include <string>

#include <tavrel/settings/TavrelSettingsClient.h>

namespace bench {
namespace {

tavrel::settings::IChangeCallback* s_subscribed = nullptr;

}  // namespace

tavrel::core::IniFile& PlatformSettings() {
  static tavrel::core::IniFile settings;
  return settings;
}

tavrel::settings::IChangeCallback* Subscribed() { return s_subscribed; }

}  // namespace bench

// The program's own operations of the client are found before those of the host platform's library.
namespace tavrel {
namespace settings {

class TavrelSettingsClient::Impl {};

TavrelSettingsClient::TavrelSettingsClient(OperationMode /*mode*/) {}

TavrelSettingsClient::~TavrelSettingsClient() = default;

void TavrelSettingsClient::GetSettings(const std::string& /*pattern*/, core::IniFile& out) const {
  out = bench::PlatformSettings();
}

void TavrelSettingsClient::Subscribe(IChangeCallback* callback, const std::string& /*pattern*/) {
  bench::s_subscribed = callback;
}

void TavrelSettingsClient::UnSubscribe(IChangeCallback* /*callback*/) {
  bench::s_subscribed = nullptr;
}

}  // namespace settings
}  // namespace tavrel
