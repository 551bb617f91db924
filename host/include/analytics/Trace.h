// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

namespace analytics {

/// The diagnostic sink: writes one line a message to standard error.
///
/// A line starts with "analytics: ", or with "analytics[level]: " if the message has a level. Line
/// feeds in a message become blanks, those at its end are dropped; other control characters stay. A
/// format that cannot be filled is written itself. While the environment variable `ANALYTICS_TRACE`
/// is "0" nothing is written.
///
/// Threads: any, while none changes the environment; lines of different threads do not mix.
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
