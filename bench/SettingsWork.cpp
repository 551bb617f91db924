#include <string>
#include <vector>

#include <analytics/Settings.h>

#include "bench/Samples.h"
#include "bench/StoredSettings.h"
#include "bench/Work.h"
#include "bench/sides/Everyone.h"

namespace bench {
namespace {

using analytics::Settings;
using Texts = std::vector<std::string>;

const char kFile[] = "analytics.ini";

// Eight references, of which one stands for a text with another.
const char kText[] = "${data}/${zone}/${camera}/${host}-${stream}/events-${day}.${suffix}";

struct NamedSetting {
  std::string (*withLibrary)();
  std::string SettingTexts::*byHand;
};

const NamedSetting kNamedSettings[] = {
    {Settings::PluginRepository, &SettingTexts::pluginRepository},
    {Settings::QuadOutputFile, &SettingTexts::quadOutputFile},
    {Settings::ProfileTag, &SettingTexts::profileTag},
    {Settings::MediaSourceTag, &SettingTexts::mediaSourceTag},
    {Settings::EnginesTag, &SettingTexts::enginesTag},
    {Settings::EngineTag, &SettingTexts::engineTag},
    {Settings::RulesTag, &SettingTexts::rulesTag},
    {Settings::RuleTag, &SettingTexts::ruleTag},
    {Settings::EventSinksTag, &SettingTexts::eventSinksTag},
    {Settings::EventSinkTag, &SettingTexts::eventSinkTag},
    {Settings::CameraPresetTag, &SettingTexts::cameraPresetTag},
    {Settings::Profile4DefaultModules, &SettingTexts::profile4DefaultModules},
    {Settings::KestalNs, &SettingTexts::kestalNs},
    {Settings::KestalPrefix, &SettingTexts::kestalPrefix},
    {Settings::OnvifNs, &SettingTexts::onvifNs},
    {Settings::OnvifPrefix, &SettingTexts::onvifPrefix},
};

template <typename Side>
struct LoadSettings {
  StoredSettings<Side> operator()() const { return StoredSettings<Side>(path); }

  Texts Outcome() const {
    const StoredSettings<Side> stored = (*this)();
    Texts all = stored.pipes;
    all.push_back(std::to_string(stored.maxResource));
    for (const NamedSetting& setting : kNamedSettings) all.push_back(stored.texts.*setting.byHand);
    return all;
  }

  const std::string path = PathOf(kFile);
};

template <>
struct LoadSettings<Library> {
  bool operator()() const { return Settings::LoadSettings(path); }

  Texts Outcome() const {
    if (!(*this)()) return Texts();
    Texts all = Settings::UserDataPipes();
    all.push_back(std::to_string(Settings::MaxResource()));
    for (const NamedSetting& setting : kNamedSettings) all.push_back(setting.withLibrary());
    return all;
  }

  const std::string path = PathOf(kFile);
};

template <typename Side>
struct NamedText {
  std::string operator()() const { return stored.RuleTag(); }
  std::string Outcome() const { return (*this)(); }

  const SettingTexts stored = StoredSettings<Side>(PathOf(kFile)).texts;
};

template <>
struct NamedText<Library> {
  std::string operator()() const { return Settings::RuleTag(); }
  std::string Outcome() const { return (*this)(); }
};

template <typename Side>
struct QueriedNumber {
  int operator()() const { return Side::TextNumber(document.First(document.Root(), query), 0); }
  int Outcome() const { return (*this)(); }

  const Side document = Side::Load(PathOf(kFile));
  const typename Side::Path query{"//maxSessions"};
};

template <>
struct QueriedNumber<Library> {
  int operator()() const { return Settings::GetValue("//maxSessions", 0); }
  int Outcome() const { return (*this)(); }
};

template <typename Side>
std::string VariableValue(const Side& settings, const std::string& name) {
  const typename Side::Path query = "//variables/variable[@name=\"" + name + "\"]/@value";
  return Side::Text(settings.First(settings.Root(), query));
}

std::string VariableValue(const Walked& settings, const std::string& name) {
  return settings.VariableValue(name);
}

template <typename Side>
struct Substitute {
  std::string operator()() const {
    std::string text = kText;
    std::size_t start = 0;
    while ((start = text.find("${")) != std::string::npos) {
      const std::size_t end = text.find('}', start);
      if (end == std::string::npos || end == start + 2) break;
      const std::string name = text.substr(start + 2, end - start - 2);
      text.replace(start, end - start + 1, VariableValue(document, name));
    }
    return text;
  }

  std::string Outcome() const { return (*this)(); }

  const Side document = Side::Load(PathOf(kFile));
};

template <>
struct Substitute<Library> {
  std::string operator()() const { return Settings::SubstituteVariables(kText); }
  std::string Outcome() const { return (*this)(); }
};

}  // namespace

void AddSettingsWork() {
  AddWork<LoadSettings>(Documents(), "load the settings", "");
  AddWork<NamedText>(Among<ByHand, Library>(), "read a named setting", "");
  AddWork<QueriedNumber>(Everyone(), "query the settings file", "");
  AddWork<Substitute>(Everyone(), "substitute 8 references", "");
}

}  // namespace bench
