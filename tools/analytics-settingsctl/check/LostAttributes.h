#pragma once

#include <libxml/tree.h>

#include "check/Findings.h"

namespace settingsctl {

/// Reports an attribute that queries look for and that the element has in a namespace only, where
/// they do not find it.
///
/// @return whether it was found so, which is why other checks miss it
bool CheckLostAttribute(Findings& findings, const xmlNode* element, const char* name);

}  // namespace settingsctl
