#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bench/ByHand.h"

namespace bench {

/// The runtime's settings as one keeps them with libxml2 alone.
struct StoredSettings {
  /// Reads a file with the queries that the library uses; false if it cannot be parsed.
  bool Load(const std::string& path);

  std::string RuleTag() const;

  int Value(const char* query, int fallback) const;
  std::string Value(const char* query) const;

  /// Replaces each "${name}", leftmost first, by the value of the variable.
  std::string Substitute(std::string text) const;

  Tree tree;
  std::int64_t maxSessions = 0;
  std::int64_t maxResource = 0;
  std::string pluginRepository, videoInputFile, quadOutputFile;
  std::string profileTag, mediaSourceTag, enginesTag, engineTag, rulesTag, ruleTag;
  std::string eventSinksTag, eventSinkTag, cameraPresetTag, profile4DefaultModules;
  std::string kestalNs, kestalPrefix, onvifNs, onvifPrefix;
  std::vector<std::string> pipes;

 private:
  void ReadTexts();
  void ReadPipes();
};

}  // namespace bench
