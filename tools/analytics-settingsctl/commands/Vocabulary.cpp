#include "commands/Vocabulary.h"

#include <cstdlib>

#include "input/SettingsFile.h"
#include "output/Messages.h"

namespace settingsctl {

void LoadVocabulary(const std::string& file) {
  const bool isNamed = std::getenv(kSettingsVariable) != nullptr;
  const SettingsFile settings = LoadSettingsFile(file);
  if (!isNamed || settings.problem.empty()) return;
  PrintMessage("note: the built-in settings apply, because " + settings.problem);
}

}  // namespace settingsctl
