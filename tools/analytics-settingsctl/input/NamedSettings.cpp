#include "input/NamedSettings.h"

#include <functional>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>
#include <analytics/Settings.h>

#include "Transformed.h"
#include "input/LineNumbers.h"
#include "input/Nodes.h"
#include "input/XmlInput.h"

namespace settingsctl {
namespace {

using analytics::Settings;

using Values = std::vector<std::string>;

/// A named setting as the library knows it.
struct Known {
  const char* name;
  bool isNumber;
  std::function<Values()> values;
};

std::function<Values()> One(std::string (*accessor)()) {
  return [accessor] { return Values{accessor()}; };
}

Values MaxSessions() { return {std::to_string(Settings::GetValue("//maxSessions", 1))}; }
Values MaxResource() { return {std::to_string(Settings::MaxResource())}; }
std::string VideoInputFile() { return Settings::GetValue("//videoInputFile"); }

const std::vector<Known>& KnownSettings() {
  static const std::vector<Known> s_known = {
      {"maxSessions", true, MaxSessions},
      {"maxResource", true, MaxResource},
      {"pluginRepository", false, One(Settings::PluginRepository)},
      {"videoInputFile", false, One(VideoInputFile)},
      {"quadOutputFile", false, One(Settings::QuadOutputFile)},
      {"profile4DefaultModules", false, One(Settings::Profile4DefaultModules)},
      {"userdataPipe", false, Settings::UserDataPipes},
      {"tags/profile", false, One(Settings::ProfileTag)},
      {"tags/mediaSource", false, One(Settings::MediaSourceTag)},
      {"tags/engines", false, One(Settings::EnginesTag)},
      {"tags/engine", false, One(Settings::EngineTag)},
      {"tags/rules", false, One(Settings::RulesTag)},
      {"tags/rule", false, One(Settings::RuleTag)},
      {"tags/eventSinks", false, One(Settings::EventSinksTag)},
      {"tags/eventSink", false, One(Settings::EventSinkTag)},
      {"tags/cameraPreset", false, One(Settings::CameraPresetTag)},
      {"namespaces/onvif/url", false, One(Settings::OnvifNs)},
      {"namespaces/onvif/prefix", false, One(Settings::OnvifPrefix)},
      {"namespaces/kestal/url", false, One(Settings::KestalNs)},
      {"namespaces/kestal/prefix", false, One(Settings::KestalPrefix)}};
  return s_known;
}

/// Answers where something stands in the settings file.
class Places {
 public:
  explicit Places(const SettingsFile& file) {
    if (!file.input) return;
    m_hasFile = m_document.ParseString(file.input->text);
    NumberLines(m_document, XmlInput(*file.input).Document());
  }

  bool HasFile() const { return m_hasFile; }

  /// Lines of the elements that `path` selects, those without text left out if `withText`.
  std::vector<int> Lines(const std::string& path, bool withText) {
    std::vector<int> lines;
    for (const NodePtr& node : Owned(m_document.SelectNodes(path, nullptr))) {
      if (withText && node->GetValue().empty()) continue;
      lines.push_back(LineOf(static_cast<xmlNode*>(node->Handle())));
    }
    return lines;
  }

 private:
  bool m_hasFile = false;
  analytics::Document m_document;
};

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

std::string SourceWithoutLine(const Known& known, bool hasFile) {
  if (!hasFile) {
    // The library keeps this one in its file only.
    const bool isUnkept = std::string(known.name) == "videoInputFile";
    return isUnkept ? "no file: empty" : "built-in";
  }
  const bool hasDefault = known.isNumber || std::string(known.name) == "userdataPipe";
  return hasDefault ? "missing: default" : "missing: empty";
}

NamedSetting Named(const Known& known, Places& places) {
  NamedSetting setting{known.name, known.values(), known.isNumber, {}, 0};
  const bool isList = setting.name == "userdataPipe";
  const std::vector<int> lines = places.Lines("//" + setting.name, isList);
  if (lines.empty()) {
    setting.source = SourceWithoutLine(known, places.HasFile());
    return setting;
  }
  setting.line = lines.front();
  setting.source = "line " + std::to_string(lines.front());
  for (std::size_t index = 1; isList && index < lines.size(); ++index) {
    setting.source += ", " + std::to_string(lines[index]);
  }
  if (known.isNumber && IsBlank(Settings::GetValue("//" + setting.name))) {
    setting.source += ": default";
  }
  return setting;
}

}  // namespace

std::vector<NamedSetting> NamedSettings(const SettingsFile& file) {
  Places places(file);
  return Transformed(KnownSettings(),
                     [&places](const Known& known) { return Named(known, places); });
}

}  // namespace settingsctl
