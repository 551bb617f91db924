#include "bench/StoredSettings.h"

namespace bench {

const std::vector<SettingText>& AllSettingTexts() {
  static const std::vector<SettingText> texts = {
      {"//pluginRepository", &SettingTexts::pluginRepository},
      {"//videoInputFile", &SettingTexts::videoInputFile},
      {"//quadOutputFile", &SettingTexts::quadOutputFile},
      {"//tags/profile", &SettingTexts::profileTag},
      {"//tags/mediaSource", &SettingTexts::mediaSourceTag},
      {"//tags/engines", &SettingTexts::enginesTag},
      {"//tags/engine", &SettingTexts::engineTag},
      {"//tags/rules", &SettingTexts::rulesTag},
      {"//tags/rule", &SettingTexts::ruleTag},
      {"//tags/eventSinks", &SettingTexts::eventSinksTag},
      {"//tags/eventSink", &SettingTexts::eventSinkTag},
      {"//tags/cameraPreset", &SettingTexts::cameraPresetTag},
      {"//profile4DefaultModules", &SettingTexts::profile4DefaultModules},
      {"//namespaces/kestal/url", &SettingTexts::kestalNs},
      {"//namespaces/kestal/prefix", &SettingTexts::kestalPrefix},
      {"//namespaces/onvif/url", &SettingTexts::onvifNs},
      {"//namespaces/onvif/prefix", &SettingTexts::onvifPrefix},
  };
  return texts;
}

std::string SettingTexts::RuleTag() const { return ruleTag; }

}  // namespace bench
