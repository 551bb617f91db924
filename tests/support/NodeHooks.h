#pragma once

#include <libxml/tree.h>

namespace tests {

// libxml2 has a hook for every node that it makes and one for every node that it frees. It calls
// them deprecated from 2.14 on, but has nothing else that tells.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

/// Has a function called with each node that is made, and gives the former one.
inline xmlRegisterNodeFunc HookMadeNodes(xmlRegisterNodeFunc note) {
  return xmlRegisterNodeDefault(note);
}

/// Has a function called with each node that is freed, and gives the former one.
inline xmlDeregisterNodeFunc HookFreedNodes(xmlDeregisterNodeFunc note) {
  return xmlDeregisterNodeDefault(note);
}

#pragma GCC diagnostic pop

}  // namespace tests
