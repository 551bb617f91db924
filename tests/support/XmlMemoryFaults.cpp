#include "tests/support/XmlMemoryFaults.h"

#include <algorithm>
#include <cstring>
#include <ostream>

#include <gtest/gtest.h>

#include "tests/support/FailingXmlMemory.h"
#include "tests/support/Figures.h"
#include "tests/support/Survival.h"
#include "tests/support/XmlEntry.h"
#include "tests/support/XmlVersion.h"

namespace tests {

const std::vector<XmlMemoryFault>& XmlMemoryFaults() {
  static const std::vector<XmlMemoryFault> s_faults = {
      {"xmlParseMemory", kWrongAnswer | kWrongState,
       "The parser stops at a failed allocation without calling the text ill-formed, and gives a "
       "part of the tree: elements without a name, without their text or their attributes."},
      {"xmlParseFile", kWrongAnswer | kWrongState, "As xmlParseMemory."},
      {"xmlXPathEval",
       kLeaks | kWrongAnswer | kWrongState | kCrashes,
       "Without memory for the stack of values the parser context is freed twice. A step that "
       "cannot be made loses the ones before it. A node that cannot be added to the set is passed "
       "over, so that the first selected node may be the second and DeleteNodes deletes fewer.",
       {"xmlXPathFreeObject"}},
      {"xmlHashUpdateEntry3", kLeaks,
       "Called by xmlXPathRegisterNs, which loses the copy of the URI that cannot be entered."},
      {"xmlNodeSetContent", kLeaks | kWrongState,
       "The former content is gone before the new one is made; a reference's text is lost."},
      {"xmlNewChild", kLeaks | kWrongAnswer | kWrongState,
       "The child is added without its text, or a part of it, or without its name."},
      {"xmlSetNsProp", kWrongState,
       "Called by xmlSetProp, which keeps an attribute whose text it cannot make."},
      {"xmlAddChild",
       kIsXml215 ? kLeaks | kWrongState : 0U | kWrongState,
       "A text that cannot be joined to its neighbour is freed; in 2.15 it is left without a tree.",
       {},
       true},
      {"xmlNewNs", kWrongState, "A declaration whose prefix or URI cannot be copied stays."},
      {"xmlReconciliateNs",
       kWrongState,
       "A declaration that cannot be copied whole stays, or a name loses its namespace.",
       {},
       true},
      {"xmlNodeDump",
       kCrashes,
       "The text of the buffer, which cannot grow, is freed and kept in it.",
       {"xmlBufferFree", kNoXmlFunction}},
      {kUnnamedXmlFunction, kWrongAnswer,
       "The declaration of the prefix xml, called by xmlSearchNs, keeps a record without a URI."},
  };
  return s_faults;
}

void PrintTo(const XmlMemoryFault& fault, std::ostream* out) { *out << fault.call; }

namespace {

const char* FigureOf(XmlMemoryEffect effect) {
  if (effect == kLeaks) return "xml_leaks";
  if (effect == kWrongAnswer) return "xml_wrong_answers";
  return effect == kWrongState ? "xml_wrong_states" : "xml_crashes";
}

const XmlMemoryFault* FaultOf(const char* call) {
  for (const XmlMemoryFault& fault : XmlMemoryFaults()) {
    const bool isThere = fault.isLeftIn215 || !kIsXml215;
    if (isThere && std::strcmp(fault.call, call) == 0) return &fault;
  }
  return nullptr;
}

bool Has(const XmlMemoryFault* fault, XmlMemoryEffect effect) {
  return fault && (fault->effects & effect) != 0;
}

/// Whether one of the functions in which allocations have failed is known to crash there.
bool IsKnownToEndIn(const char* place) {
  const auto isPlace = [place](const char* end) { return std::strcmp(place, end) == 0; };
  const std::vector<const char*> calls = FailingXmlMemory::Calls();
  return std::any_of(calls.begin(), calls.end(), [&isPlace](const char* call) {
    const XmlMemoryFault* const fault = FaultOf(call);
    if (!Has(fault, kCrashes)) return false;
    return isPlace(call) || std::any_of(fault->ends.begin(), fault->ends.end(), isPlace);
  });
}

}  // namespace

bool IsXmlFault(XmlMemoryEffect effect) {
  const std::vector<const char*> calls = FailingXmlMemory::Calls();
  const bool isFault = std::any_of(calls.begin(), calls.end(), [effect](const char* call) {
    return Has(FaultOf(call), effect);
  });
  if (isFault) Count(FigureOf(effect));
  return isFault;
}

bool SurvivesUnlessXmlCrashes(const std::function<void()>& body) {
  SharedXmlEntries().crash = nullptr;
  const auto noted = [&body] {
    NoteXmlEntryOfACrash();
    body();
  };
  if (SurvivesInAChild(noted)) return true;
  const char* const place = SharedXmlEntries().crash;
  EXPECT_TRUE(place && IsKnownToEndIn(place))
      << "the process ends in " << (place ? place : "a place unknown");
  Count(FigureOf(kCrashes));
  return false;
}

}  // namespace tests
