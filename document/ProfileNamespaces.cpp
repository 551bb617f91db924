#include "document/ProfileNamespaces.h"

#include <string>

#include <libxml/xpathInternals.h>

#include <analytics/Settings.h>

#include "document/XmlText.h"

namespace analytics {
namespace {

void Register(xmlXPathContextPtr searchContext, const std::string& prefix, const std::string& uri) {
  xmlXPathRegisterNs(searchContext, XmlText(prefix), XmlText(uri));
}

}  // namespace

void RegisterProfileNamespaces(xmlXPathContextPtr searchContext) {
  Register(searchContext, Settings::OnvifPrefix(), Settings::OnvifNs());
  Register(searchContext, Settings::KestalPrefix(), Settings::KestalNs());
}

}  // namespace analytics
