#include <analytics/Trace.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace analytics {
namespace {

bool IsSilenced() {
  const char* setting = std::getenv("ANALYTICS_TRACE");
  return setting && std::strcmp(setting, "0") == 0;
}

__attribute__((format(printf, 1, 0))) std::string Formatted(const char* format, va_list arguments) {
  va_list counted;
  va_copy(counted, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, counted);
  va_end(counted);
  if (length < 0) return std::string(format);
  std::vector<char> text(static_cast<std::size_t>(length) + 1);
  std::vsnprintf(text.data(), text.size(), format, arguments);
  return std::string(text.data());
}

std::string OneLine(std::string message) {
  message.erase(message.find_last_not_of('\n') + 1);
  std::replace(message.begin(), message.end(), '\n', ' ');
  return message + "\n";
}

void Write(const std::string& start, const std::string& message) {
  if (!IsSilenced()) std::fputs((start + OneLine(message)).c_str(), stderr);
}

}  // namespace

Trace::Trace() = default;

Trace::~Trace() = default;

void Trace::operator()(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  Write("analytics: ", Formatted(format, arguments));
  va_end(arguments);
}

void Trace::operator()(int level, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  Write("analytics[" + std::to_string(level) + "]: ", Formatted(format, arguments));
  va_end(arguments);
}

}  // namespace analytics
