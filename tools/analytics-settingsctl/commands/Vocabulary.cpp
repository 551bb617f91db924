#include "commands/Vocabulary.h"

#include <cstdlib>

#include "input/SettingsFile.h"
#include "output/Messages.h"

namespace settingsctl {

std::string LoadVocabulary(const std::string& file) {
  const bool isNamed = std::getenv(kSettingsVariable) != nullptr;
  const SettingsFile settings = LoadSettingsFile(file);
  if (settings.input) return settings.input->name;
  if (isNamed) PrintMessage("note: the built-in settings apply, because " + settings.problem);
  return {};
}

}  // namespace settingsctl
