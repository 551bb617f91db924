#pragma once

#include <ostream>
#include <string>

#include <analytics/Settings.h>

namespace tests {

/// One of the settings that are read as text.
struct TextSetting {
  const char* name;            // of its operation
  std::string (*operation)();  // gives the stored value
  const char* key;             // path of its element, which may stand anywhere in the file
  const char* builtIn;         // the value until a file has been parsed
  const char* sample;          // a value unlike that of every other setting
};

/// All text settings that have an operation.
inline const TextSetting kTextSettings[] = {
    {"PluginRepository", analytics::Settings::PluginRepository, "pluginRepository",
     "/usr/local/kestal/analytics/plugins/", "/opt/plugins/"},
    {"QuadOutputFile", analytics::Settings::QuadOutputFile, "quadOutputFile",
     "/usr/local/kestal/analytics/quad-output.yuv", "/tmp/quad.yuv"},
    {"ProfileTag", analytics::Settings::ProfileTag, "tags/profile", "analytics-profile", "Profile"},
    {"MediaSourceTag", analytics::Settings::MediaSourceTag, "tags/mediaSource", "MediaSource",
     "Camera"},
    {"EnginesTag", analytics::Settings::EnginesTag, "tags/engines", "engines", "EngineList"},
    {"EngineTag", analytics::Settings::EngineTag, "tags/engine", "engine", "EngineItem"},
    {"RulesTag", analytics::Settings::RulesTag, "tags/rules", "rules", "RuleList"},
    {"RuleTag", analytics::Settings::RuleTag, "tags/rule", "rule", "RuleItem"},
    {"EventSinksTag", analytics::Settings::EventSinksTag, "tags/eventSinks", "eventSinks",
     "SinkList"},
    {"EventSinkTag", analytics::Settings::EventSinkTag, "tags/eventSink", "eventSink", "SinkItem"},
    {"CameraPresetTag", analytics::Settings::CameraPresetTag, "tags/cameraPreset", "cameraPreset",
     "Preset"},
    {"KestalNs", analytics::Settings::KestalNs, "namespaces/kestal/url",
     "urn:kestal-com:schema:onvif:analytics:1", "urn:example:vendor"},
    {"KestalPrefix", analytics::Settings::KestalPrefix, "namespaces/kestal/prefix", "ka", "vendor"},
    {"OnvifNs", analytics::Settings::OnvifNs, "namespaces/onvif/url",
     "http://www.onvif.org/ver10/schema", "urn:example:onvif"},
    {"OnvifPrefix", analytics::Settings::OnvifPrefix, "namespaces/onvif/prefix", "tt", "onvif"},
    {"Profile4DefaultModules", analytics::Settings::Profile4DefaultModules,
     "profile4DefaultModules", "/Users/Projects/analytics-runtime/Profile4DefaultModules.xml",
     "/opt/Default.xml"},
};

/// Names a setting in the report of a test.
inline void PrintTo(const TextSetting& setting, std::ostream* out) { *out << setting.name; }

}  // namespace tests
