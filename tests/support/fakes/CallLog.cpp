#include "tests/support/fakes/CallLog.h"

namespace fakes {

CallLog& CallLog::Instance() {
  static CallLog log;
  return log;
}

void CallLog::Note(const std::string& call) { m_calls.push_back(call); }

void CallLog::Clear() { m_calls.clear(); }

std::vector<std::string> CallLog::Calls() const { return m_calls; }

}  // namespace fakes
