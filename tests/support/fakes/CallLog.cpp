#include "tests/support/fakes/CallLog.h"

namespace fakes {
namespace {

bool StartsWith(std::string_view text, std::string_view start) {
  return text.compare(0, start.size(), start) == 0;
}

/// Whether the library can survive the failure of a call: that of a destructor or of a lock ends
/// the process.
bool MayFail(std::string_view call) {
  return call.find("::~") == std::string_view::npos && call != "Mutex::Lock()" &&
         call != "Mutex::Unlock()";
}

}  // namespace

CallLog& CallLog::Instance() {
  // Never destroyed: fakes are called until the very end of the process.
  static auto* const log = new CallLog;
  return *log;
}

void CallLog::Note(std::string_view call) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_calls.emplace_back(call);
  for (auto& [start, callsLeft] : m_callsToFail) {
    if (StartsWith(call, start) && --callsLeft == 0) Fail(call);
  }
  if (m_untilFailure > 0 && MayFail(call) && --m_untilFailure == 0) Fail(call);
}

void CallLog::Fail(std::string_view call) {
  m_failedCall = call;
  if (m_thrown == Thrown::kNumber) throw 7;
  throw Failure(std::string(call));
}

void CallLog::FailAt(const std::string& start, int nth) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_callsToFail[start] = nth;
}

void CallLog::FailAtAny(int nth) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_untilFailure = nth;
}

void CallLog::SetThrown(Thrown thrown) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_thrown = thrown;
}

std::string CallLog::FailedCall() const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return m_failedCall;
}

void CallLog::Clear() {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_calls.clear();
  m_callsToFail.clear();
  m_untilFailure = 0;
  m_thrown = Thrown::kFailure;
  m_failedCall.clear();
}

std::vector<std::string> CallLog::Calls() const { return CallsOf(""); }

std::vector<std::string> CallLog::CallsOf(const std::string& start) const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  std::vector<std::string> calls;
  for (const std::string_view call : m_calls) {
    if (StartsWith(call, start)) calls.emplace_back(call);
  }
  return calls;
}

}  // namespace fakes
