#pragma once

namespace analytics {

/// The diagnostic sink: writes one line a message to standard error.
///
/// A line starts with "analytics: ", or with "analytics[level]: " if the message has a level. Line
/// breaks in a message become blanks, those at its end are dropped. The environment variable
/// `ANALYTICS_TRACE` with the value "0" silences all messages.
///
/// Threads: any; lines of different threads do not mix.
class Trace {
 public:
  Trace();
  ~Trace();

  /// Writes a message, given as for `printf`.
  void operator()(const char* format, ...) __attribute__((format(printf, 2, 3)));

  /// Writes a message with a level.
  void operator()(int level, const char* format, ...) __attribute__((format(printf, 3, 4)));
};

}  // namespace analytics
