#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace bench {

/// The named settings that are texts, as the file has them.
struct SettingTexts {
  std::string pluginRepository, videoInputFile, quadOutputFile;
  std::string profileTag, mediaSourceTag, enginesTag, engineTag, rulesTag, ruleTag;
  std::string eventSinksTag, eventSinkTag, cameraPresetTag, profile4DefaultModules;
  std::string kestalNs, kestalPrefix, onvifNs, onvifPrefix;

  std::string RuleTag() const;
};

struct SettingText {
  const char* query;
  std::string SettingTexts::*member;
};

/// What is read for each of them.
const std::vector<SettingText>& AllSettingTexts();

/// The runtime's settings as one keeps them with a side's document.
template <typename Side>
class StoredSettings {
 public:
  /// Reads a file with the queries that the library uses.
  explicit StoredSettings(const std::string& path) : m_document(Side::Load(path)) {
    maxSessions = Value("//maxSessions", 1);
    maxResource = Value("//maxResource", 100000);
    for (const SettingText& text : AllSettingTexts()) texts.*text.member = Value(text.query);
    std::string& plugins = texts.pluginRepository;
    if (!plugins.empty() && plugins.back() != '/') plugins += '/';
    ReadPipes();
  }

  std::int64_t maxSessions = 0;
  std::int64_t maxResource = 0;
  SettingTexts texts;
  std::vector<std::string> pipes;

 private:
  int Value(const typename Side::Path& query, int fallback) const {
    return Side::TextNumber(m_document.First(m_document.Root(), query), fallback);
  }

  std::string Value(const typename Side::Path& query) const {
    return Side::Text(m_document.First(m_document.Root(), query));
  }

  void ReadPipes() {
    pipes.clear();
    for (const auto& node : m_document.Select(m_document.Root(), "//userdataPipe")) {
      std::string pipe = Side::Text(node);
      if (!pipe.empty()) pipes.push_back(std::move(pipe));
    }
    if (pipes.empty()) pipes.emplace_back("/var/run/primary.h264UserData.pipe");
  }

  Side m_document;
};

}  // namespace bench
