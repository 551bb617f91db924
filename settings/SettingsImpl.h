#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <analytics/Document.h>

#include "settings/SettingsPath.h"

namespace analytics {

/// The settings of the process, with their built-in values until a file has been parsed.
///
/// Not safe against a first use from two threads at once; see `Settings`.
class SettingsImpl {
 public:
  /// The one settings object; the first call makes it and loads its file, whatever comes of it. It
  /// is deleted when the library is unloaded.
  static SettingsImpl& Instance();

  SettingsImpl(const SettingsImpl&) = delete;
  SettingsImpl& operator=(const SettingsImpl&) = delete;

  /// Takes all settings from the file at `path`, or at the built-in path if that is empty.
  ///
  /// @return whether the file was parsed; if not, only `m_document` has changed: it is closed
  bool LoadSettings(const std::string& path);

  // Deliberate: no operation gives this setting or m_videoInputFile; callers ask the document. Kept
  // for compatibility: the operations are those that installed runtimes see.
  std::int64_t m_maxSessions = 1;
  std::string m_profileTag = "analytics-profile";
  std::string m_mediaSourceTag = "MediaSource";
  std::string m_enginesTag = "engines";
  std::string m_engineTag = "engine";
  std::string m_rulesTag = "rules";
  std::string m_ruleTag = "rule";
  std::string m_eventSinksTag = "eventSinks";
  std::string m_eventSinkTag = "eventSink";
  std::string m_cameraPresetTag = "cameraPreset";
  std::string m_pluginRepository = "/usr/local/kestal/analytics/plugins/";
  std::string m_videoInputFile = "/usr/local/kestal/analytics/parkinglot_320x240.yuv";
  std::int64_t m_maxResource = 100000;
  std::string m_settingsFile = ResolveSettingsPath();
  std::string m_quadOutputFile = "/usr/local/kestal/analytics/quad-output.yuv";
  std::string m_kestalNs = "urn:kestal-com:schema:onvif:analytics:1";
  std::string m_kestalPrefix = "ka";
  std::string m_onvifNs = "http://www.onvif.org/ver10/schema";
  std::string m_onvifPrefix = "tt";
  // Deliberate: a path of a developer's machine. Kept for compatibility: installed runtimes see it.
  std::string m_profile4DefaultModules =
      "/Users/Projects/analytics-runtime/Profile4DefaultModules.xml";
  std::vector<std::string> m_userDataPipes;
  std::unique_ptr<Document> m_document;  // of the last load; closed if that failed

 private:
  SettingsImpl();

  void ReadNumbers();
  void ReadTexts();
  void ReadUserDataPipes();
};

}  // namespace analytics
