#pragma once

#include <string>
#include <vector>

#include "tests/support/fakes/CallLog.h"

namespace tests {

using Calls = std::vector<std::string>;

/// A message as the platform sees it: every message has a trace object of its own.
inline Calls Traced(const std::string& message) {
  return {"Trace::Trace()", message, "Trace::~Trace()"};
}

/// All that the platform sees of the one and then the other.
inline Calls Then(Calls first, const Calls& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

/// All that the platform sees of a load whose file is parsed.
inline Calls GoodLoad(const std::string& path) {
  return Traced("Trace(SettingsImpl::LoadSettings(" + path + ")\n)");
}

/// All that the platform sees of a load whose file cannot be parsed.
inline Calls FailedLoad(const std::string& path) {
  return Then(GoodLoad(path), Traced("Trace[0](Parsing " + path + " failed\n)"));
}

/// The messages that the platform has seen so far.
inline Calls CallsSoFar() { return fakes::CallLog::Instance().CallsOf("Trace"); }

}  // namespace tests
