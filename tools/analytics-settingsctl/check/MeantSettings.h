#pragma once

#include <string>

#include <libxml/tree.h>

#include "check/SettingsVocabulary.h"

namespace settingsctl {

/// The known name of which an element's is told to be a misspelling; empty if it is told of none.
std::string MisspeltName(const xmlNode* element);

/// The name that an element has once its spelling is mended.
std::string MeantName(const xmlNode* element);

/// The setting that would be read from an element if the spelling and the namespaces were mended,
/// its own and those of the elements that hold it; null if there is none.
const Setting* MeantSetting(const xmlNode* element);

}  // namespace settingsctl
