#include <analytics/Settings.h>

#include "settings/SettingsImpl.h"

namespace analytics {

Settings::Settings() = default;

Settings::~Settings() = default;

bool Settings::LoadSettings(const std::string& path) {
  // Deliberate: the first use of a process loads the file of the environment, so as the first use
  // this loads twice. Kept for compatibility: installed runtimes see it.
  SettingsImpl& settings = SettingsImpl::Instance();
  return settings.LoadSettings(path.empty() ? ResolveSettingsPath() : path);
}

std::int64_t Settings::MaxResource() { return SettingsImpl::Instance().m_maxResource; }

std::vector<std::string> Settings::UserDataPipes() {
  return SettingsImpl::Instance().m_userDataPipes;
}

std::string Settings::PluginRepository() { return SettingsImpl::Instance().m_pluginRepository; }

std::string Settings::QuadOutputFile() { return SettingsImpl::Instance().m_quadOutputFile; }

std::string Settings::ProfileTag() { return SettingsImpl::Instance().m_profileTag; }

std::string Settings::MediaSourceTag() { return SettingsImpl::Instance().m_mediaSourceTag; }

std::string Settings::EnginesTag() { return SettingsImpl::Instance().m_enginesTag; }

std::string Settings::EngineTag() { return SettingsImpl::Instance().m_engineTag; }

std::string Settings::RulesTag() { return SettingsImpl::Instance().m_rulesTag; }

std::string Settings::RuleTag() { return SettingsImpl::Instance().m_ruleTag; }

std::string Settings::EventSinksTag() { return SettingsImpl::Instance().m_eventSinksTag; }

std::string Settings::EventSinkTag() { return SettingsImpl::Instance().m_eventSinkTag; }

std::string Settings::CameraPresetTag() { return SettingsImpl::Instance().m_cameraPresetTag; }

std::string Settings::KestalNs() { return SettingsImpl::Instance().m_kestalNs; }

std::string Settings::KestalPrefix() { return SettingsImpl::Instance().m_kestalPrefix; }

std::string Settings::OnvifNs() { return SettingsImpl::Instance().m_onvifNs; }

std::string Settings::OnvifPrefix() { return SettingsImpl::Instance().m_onvifPrefix; }

std::string Settings::Profile4DefaultModules() {
  return SettingsImpl::Instance().m_profile4DefaultModules;
}

int Settings::GetValue(const std::string& xpath, int defaultValue) {
  return SettingsImpl::Instance().m_document->GetSingleValue(xpath, defaultValue, nullptr);
}

std::string Settings::GetValue(const std::string& xpath) {
  return SettingsImpl::Instance().m_document->GetSingleValue(xpath, nullptr);
}

std::vector<std::string> Settings::GetValues(const std::string& xpath) {
  return SettingsImpl::Instance().m_document->GetMultipleValues(xpath, nullptr);
}

}  // namespace analytics
