#include "tests/support/XmlMemoryFaults.h"

#include <cstring>
#include <ostream>

#include "tests/support/XmlEntry.h"

namespace tests {

const std::vector<XmlMemoryFault>& XmlMemoryFaults() {
  static const std::vector<XmlMemoryFault> s_faults = {
      {"xmlParseMemory", kWrongAnswer | kWrongState,
       "The parser stops at a failed allocation without calling the text ill-formed, and gives "
       "what "
       "it has of the tree: elements without a name, without their text or their attributes."},
      {"xmlParseFile", kWrongAnswer | kWrongState, "As xmlParseMemory."},
      {"xmlXPathEval", kLeaks | kWrongAnswer | kWrongState | kCrashes,
       "Without memory for the stack of values the parser context is freed twice. A step that "
       "cannot be made loses the ones before it. A node that cannot be added to the set is passed "
       "over, so that the first selected node may be the second and DeleteNodes deletes fewer."},
      {"xmlHashUpdateEntry3", kLeaks,
       "Called by xmlXPathRegisterNs, which loses the copy of the URI that cannot be entered."},
      {"xmlNodeSetContent", kLeaks | kWrongState,
       "The former content is gone before the new one is made, of which a part may be left; the "
       "text "
       "of a reference is lost."},
      {"xmlNewChild", kLeaks | kWrongAnswer | kWrongState,
       "The child is added without the text, or a part of the text, or the name that it was to "
       "have."},
      {"xmlSetNsProp", kWrongState,
       "Called by xmlSetProp, which keeps an attribute whose text it cannot make."},
      {"xmlAddChild", kWrongState, "A text that cannot be joined to its neighbour is freed."},
      {"xmlNewNs", kWrongState, "A declaration whose prefix or URI cannot be copied stays."},
      {"xmlReconciliateNs", kWrongState,
       "A declaration that cannot be copied whole stays, or a name loses its namespace."},
      {"xmlNodeDump", kCrashes, "The buffer that cannot grow is used all the same."},
      {kUnnamedXmlFunction, kWrongAnswer,
       "The declaration of the prefix xml, called by xmlSearchNs, keeps a record without a URI."},
  };
  return s_faults;
}

void PrintTo(const XmlMemoryFault& fault, std::ostream* out) { *out << fault.call; }

unsigned ExpectedEffects(const std::vector<const char*>& calls) {
  unsigned effects = 0;
  for (const char* const call : calls) {
    for (const XmlMemoryFault& fault : XmlMemoryFaults()) {
      if (std::strcmp(fault.call, call) == 0) effects |= fault.effects;
    }
  }
  return effects;
}

}  // namespace tests
