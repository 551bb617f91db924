#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>

#include <analytics/Calibration.h>
#include <analytics/Mutex.h>
#include <analytics/Trace.h>

#include "tests/support/fakes/CallLog.h"
#include "tests/support/fakes/LockAnswer.h"

namespace analytics {
namespace {

void Note(std::string_view call) { fakes::CallLog::Instance().Note(call); }

using PointPair = types::Point[2];

std::string Text(const types::Point& point) {
  return "(" + std::to_string(point.x) + "," + std::to_string(point.y) + ")";
}

void NotePair(const std::string& setter, const PointPair& pair) {
  Note("Calibration::" + setter + "(" + Text(pair[0]) + "," + Text(pair[1]) + ")");
}

void Copy(const PointPair& from, PointPair& to) {
  std::copy(std::begin(from), std::end(from), std::begin(to));
}

__attribute__((format(printf, 1, 0))) std::string Formatted(const char* format, va_list arguments) {
  char text[4096];
  std::vsnprintf(text, sizeof text, format, arguments);
  return text;
}

}  // namespace

Mutex::Mutex(bool recursive) : m_mutex() {
  Note(std::string("Mutex::Mutex(") + (recursive ? "true" : "false") + ")");
  pthread_mutexattr_t attributes;
  pthread_mutexattr_init(&attributes);
  pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutex_init(&m_mutex, &attributes);
  pthread_mutexattr_destroy(&attributes);
}

Mutex::~Mutex() {
  Note("Mutex::~Mutex()");
  pthread_mutex_destroy(&m_mutex);
}

int Mutex::Lock() {
  Note("Mutex::Lock()");
  const int answer = fakes::TakeLockAnswer();
  return answer != 0 ? answer : pthread_mutex_lock(&m_mutex);
}

int Mutex::Unlock() {
  Note("Mutex::Unlock()");
  return pthread_mutex_unlock(&m_mutex);
}

Trace::Trace() { Note("Trace::Trace()"); }

Trace::~Trace() { Note("Trace::~Trace()"); }

void Trace::operator()(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  Note("Trace(" + Formatted(format, arguments) + ")");
  va_end(arguments);
}

void Trace::operator()(int level, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  Note("Trace[" + std::to_string(level) + "](" + Formatted(format, arguments) + ")");
  va_end(arguments);
}

Calibration::Calibration() { Note("Calibration::Calibration()"); }

Calibration::~Calibration() { Note("Calibration::~Calibration()"); }

const types::Point (&Calibration::NearLeftSize() const)[2] {
  Note("Calibration::NearLeftSize()");
  return m_nearLeftSize;
}

const types::Point (&Calibration::NearWidth() const)[2] {
  Note("Calibration::NearWidth()");
  return m_nearWidth;
}

const types::Point (&Calibration::FarWidth() const)[2] {
  Note("Calibration::FarWidth()");
  return m_farWidth;
}

int Calibration::PhysicalHeight() const {
  Note("Calibration::PhysicalHeight()");
  return m_physicalHeight;
}

void Calibration::SetNearLeftSize(const types::Point (&corners)[2]) {
  NotePair("SetNearLeftSize", corners);
  Copy(corners, m_nearLeftSize);
}

void Calibration::SetNearWidth(const types::Point (&line)[2]) {
  NotePair("SetNearWidth", line);
  Copy(line, m_nearWidth);
}

void Calibration::SetFarWidth(const types::Point (&line)[2]) {
  NotePair("SetFarWidth", line);
  Copy(line, m_farWidth);
}

void Calibration::SetPhysicalHeight(int height) {
  Note("Calibration::SetPhysicalHeight(" + std::to_string(height) + ")");
  m_physicalHeight = height;
}

}  // namespace analytics
