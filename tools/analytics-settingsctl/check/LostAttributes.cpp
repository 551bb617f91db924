#include "check/LostAttributes.h"

#include "check/Elements.h"
#include "input/Attributes.h"
#include "input/LineNumbers.h"

namespace settingsctl {

bool CheckLostAttribute(Findings& findings, const xmlNode* element, const char* name) {
  if (HasPlainAttribute(element, name)) return false;
  const xmlAttr* const lost = xmlHasProp(element, reinterpret_cast<const xmlChar*>(name));
  if (!lost || lost->type != XML_ATTRIBUTE_NODE || !lost->ns) return false;
  findings.Add("attribute-in-namespace", LineOf(element),
               "the " + std::string(name) + " of <" + WrittenName(element) +
                   "> is never found: the attribute is in the namespace " +
                   Quoted(reinterpret_cast<const char*>(lost->ns->href)) + " instead of none");
  return true;
}

}  // namespace settingsctl
