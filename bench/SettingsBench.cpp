#include <string>
#include <vector>

#include <analytics/Settings.h>

#include "bench/Pair.h"
#include "bench/StoredSettings.h"

namespace bench {
namespace {

using analytics::Settings;
using Texts = std::vector<std::string>;

// Three references, the first of which stands for a text with a further one.
const char kText[] = "${data}/${camera}/events-today.${suffix}";

std::string s_settingsFile;

/// The by-hand sides keep their settings for the process as well; comparing the first pair loads
/// them.
StoredSettings& Stored() {
  static StoredSettings stored;
  return stored;
}

struct NamedSetting {
  std::string (*withLibrary)();
  std::string StoredSettings::*byHand;
};

const NamedSetting kNamedSettings[] = {
    {Settings::PluginRepository, &StoredSettings::pluginRepository},
    {Settings::QuadOutputFile, &StoredSettings::quadOutputFile},
    {Settings::ProfileTag, &StoredSettings::profileTag},
    {Settings::MediaSourceTag, &StoredSettings::mediaSourceTag},
    {Settings::EnginesTag, &StoredSettings::enginesTag},
    {Settings::EngineTag, &StoredSettings::engineTag},
    {Settings::RulesTag, &StoredSettings::rulesTag},
    {Settings::RuleTag, &StoredSettings::ruleTag},
    {Settings::EventSinksTag, &StoredSettings::eventSinksTag},
    {Settings::EventSinkTag, &StoredSettings::eventSinkTag},
    {Settings::CameraPresetTag, &StoredSettings::cameraPresetTag},
    {Settings::Profile4DefaultModules, &StoredSettings::profile4DefaultModules},
    {Settings::KestalNs, &StoredSettings::kestalNs},
    {Settings::KestalPrefix, &StoredSettings::kestalPrefix},
    {Settings::OnvifNs, &StoredSettings::onvifNs},
    {Settings::OnvifPrefix, &StoredSettings::onvifPrefix},
};

struct LoadWithLibrary {
  bool operator()() const { return Settings::LoadSettings(s_settingsFile); }

  Texts Outcome() const {
    if (!(*this)()) return Texts();
    Texts all = Settings::UserDataPipes();
    all.push_back(std::to_string(Settings::MaxResource()));
    for (const NamedSetting& setting : kNamedSettings) all.push_back(setting.withLibrary());
    return all;
  }
};

struct LoadByHand {
  bool operator()() const { return Stored().Load(s_settingsFile); }

  Texts Outcome() const {
    if (!(*this)()) return Texts();
    Texts all = Stored().pipes;
    all.push_back(std::to_string(Stored().maxResource));
    for (const NamedSetting& setting : kNamedSettings) all.push_back(Stored().*setting.byHand);
    return all;
  }
};

struct GetWithLibrary {
  std::string operator()() const { return Settings::RuleTag(); }
  std::string Outcome() const { return (*this)(); }
};

struct GetByHand {
  std::string operator()() const { return Stored().RuleTag(); }
  std::string Outcome() const { return (*this)(); }
};

struct QueryWithLibrary {
  int operator()() const { return Settings::GetValue("//maxSessions", 0); }
  int Outcome() const { return (*this)(); }
};

struct QueryByHand {
  int operator()() const { return Stored().Value("//maxSessions", 0); }
  int Outcome() const { return (*this)(); }
};

struct SubstituteWithLibrary {
  std::string operator()() const { return Settings::SubstituteVariables(kText); }
  std::string Outcome() const { return (*this)(); }
};

struct SubstituteByHand {
  std::string operator()() const { return Stored().Substitute(kText); }
  std::string Outcome() const { return (*this)(); }
};

}  // namespace

void AddSettingsPairs(const std::string& settingsFile) {
  s_settingsFile = settingsFile;
  AddPair<LoadWithLibrary, LoadByHand>("load the settings");
  AddPair<GetWithLibrary, GetByHand>("read a named setting");
  AddPair<QueryWithLibrary, QueryByHand>("query the settings file");
  AddPair<SubstituteWithLibrary, SubstituteByHand>("substitute variables");
}

}  // namespace bench
