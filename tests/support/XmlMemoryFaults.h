#pragma once

#include <functional>
#include <iosfwd>
#include <vector>

namespace tests {

/// Effects of a fault of libxml2.
enum XmlMemoryEffect : unsigned {
  kLeaks = 1,        // blocks are lost
  kWrongAnswer = 2,  // neither the whole answer nor an empty one
  kWrongState = 4,   // a tree that is neither as before nor as wanted
  kCrashes = 8,      // memory is touched that must not be
};

/// What a function of libxml2 itself does wrong when it has no memory.
struct XmlMemoryFault {
  const char* call;
  unsigned effects;
  const char* why;
  std::vector<const char*> ends = {};  // other functions that crash over what this one leaves
  bool isLeftIn215 = false;            // else it is mended there, and excuses nothing
};

/// All that this library cannot make up for; a test shows each with libxml2 alone.
const std::vector<XmlMemoryFault>& XmlMemoryFaults();

void PrintTo(const XmlMemoryFault& fault, std::ostream* out);

/// Whether a fault of libxml2 accounts for this effect where its allocations have failed since the
/// last scope of failing began; counts each that it does account for.
bool IsXmlFault(XmlMemoryEffect effect);

/// Whether a child process comes to the end of `body`; fails the test if it ends anywhere but
/// within a function of libxml2 that is known to crash, and in which an allocation had failed.
bool SurvivesUnlessXmlCrashes(const std::function<void()>& body);

}  // namespace tests
