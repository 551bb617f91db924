#include "settings/SettingsImpl.h"

#include <analytics/Trace.h>

namespace analytics {
namespace {

// Destroyed when the library is unloaded, and with it the settings document.
std::unique_ptr<SettingsImpl> s_pImpl;

struct NumberSetting {
  const char* key;
  std::int64_t SettingsImpl::*field;
  int fallback;
};

struct TextSetting {
  const char* key;
  std::string SettingsImpl::*field;
};

const NumberSetting kNumbers[] = {
    {"//maxSessions", &SettingsImpl::m_maxSessions, 1},
    {"//maxResource", &SettingsImpl::m_maxResource, 100000},
};

const TextSetting kTexts[] = {
    {"//videoInputFile", &SettingsImpl::m_videoInputFile},
    {"//quadOutputFile", &SettingsImpl::m_quadOutputFile},
    {"//tags/profile", &SettingsImpl::m_profileTag},
    {"//tags/mediaSource", &SettingsImpl::m_mediaSourceTag},
    {"//tags/engines", &SettingsImpl::m_enginesTag},
    {"//tags/engine", &SettingsImpl::m_engineTag},
    {"//tags/rules", &SettingsImpl::m_rulesTag},
    {"//tags/rule", &SettingsImpl::m_ruleTag},
    {"//tags/eventSinks", &SettingsImpl::m_eventSinksTag},
    {"//tags/eventSink", &SettingsImpl::m_eventSinkTag},
    {"//tags/cameraPreset", &SettingsImpl::m_cameraPresetTag},
    {"//profile4DefaultModules", &SettingsImpl::m_profile4DefaultModules},
    {"//namespaces/kestal/url", &SettingsImpl::m_kestalNs},
    {"//namespaces/kestal/prefix", &SettingsImpl::m_kestalPrefix},
    {"//namespaces/onvif/url", &SettingsImpl::m_onvifNs},
    {"//namespaces/onvif/prefix", &SettingsImpl::m_onvifPrefix},
};

const char kDefaultUserDataPipe[] = "/var/run/primary.h264UserData.pipe";

/// Made before the setting is stored, so that memory running out never leaves one without a slash.
std::string EndingInSlash(std::string directory) {
  if (!directory.empty() && directory.back() != '/') directory += '/';
  return directory;
}

}  // namespace

SettingsImpl::SettingsImpl() { LoadSettings(m_settingsFile); }

SettingsImpl& SettingsImpl::Instance() {
  if (!s_pImpl) s_pImpl.reset(new SettingsImpl);
  return *s_pImpl;
}

bool SettingsImpl::LoadSettings(const std::string& path) {
  Trace()("SettingsImpl::LoadSettings(%s)\n", path.c_str());
  m_document = std::make_unique<Document>();
  if (!m_document->ParseFile(path.empty() ? kBuiltInSettingsPath : path)) {
    Trace()(0, "Parsing %s failed\n", path.c_str());
    return false;
  }
  ReadNumbers();
  ReadTexts();
  ReadUserDataPipes();
  return true;
}

void SettingsImpl::ReadNumbers() {
  for (const NumberSetting& number : kNumbers) {
    this->*number.field = m_document->GetSingleValue(number.key, number.fallback, nullptr);
  }
}

void SettingsImpl::ReadTexts() {
  // Deliberate: a text that the file lacks becomes empty, its built-in value is not kept, so that
  // the settings of two files never mix.
  m_pluginRepository = EndingInSlash(m_document->GetSingleValue("//pluginRepository", nullptr));
  for (const TextSetting& text : kTexts) {
    this->*text.field = m_document->GetSingleValue(text.key, nullptr);
  }
}

void SettingsImpl::ReadUserDataPipes() {
  m_userDataPipes = m_document->GetMultipleValues("//userdataPipe", nullptr);
  if (m_userDataPipes.empty()) m_userDataPipes.emplace_back(kDefaultUserDataPipe);
}

}  // namespace analytics
