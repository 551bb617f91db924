#pragma once

#include <libxml/xpath.h>

namespace analytics {

/// Binds the ONVIF prefix and then the vendor's, as the settings now give them, in a search
/// context.
///
/// A binding that libxml2 refuses (an empty prefix) is passed over: queries with that prefix then
/// select nothing. The first call in a process loads the settings.
void RegisterProfileNamespaces(xmlXPathContextPtr searchContext);

}  // namespace analytics
