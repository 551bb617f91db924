#include "document/ProfileNamespaces.h"

#include <string>

#include <libxml/xpathInternals.h>

#include <analytics/Settings.h>

#include "document/XmlText.h"

namespace analytics {
namespace {

/// Made with braces, which evaluate the prefix before the URI.
struct Binding {
  std::string prefix;
  std::string uri;
};

void Register(xmlXPathContextPtr searchContext, const Binding& binding) {
  xmlXPathRegisterNs(searchContext, XmlText(binding.prefix), XmlText(binding.uri));
}

}  // namespace

void RegisterProfileNamespaces(xmlXPathContextPtr searchContext) {
  Register(searchContext, {Settings::OnvifPrefix(), Settings::OnvifNs()});
  Register(searchContext, {Settings::KestalPrefix(), Settings::KestalNs()});
}

}  // namespace analytics
