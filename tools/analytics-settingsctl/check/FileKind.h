#pragma once

#include <libxml/tree.h>

#include "check/Checks.h"

namespace settingsctl {

/// Tells a settings file from a profile by the elements that it holds, whatever their namespaces
/// and the file's name.
FileKind KindOfFile(xmlNode* root);

}  // namespace settingsctl
