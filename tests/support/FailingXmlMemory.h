#pragma once

#include <vector>

#include <libxml/xmlerror.h>

#include "tests/support/Shortage.h"

namespace tests {

/// Keeps what libxml2 reports from standard error, for a scope.
class QuietXml {
 public:
  QuietXml();
  ~QuietXml();

  QuietXml(const QuietXml&) = delete;
  QuietXml& operator=(const QuietXml&) = delete;

 private:
  const xmlStructuredErrorFunc m_handler;
  void* const m_context;
  const xmlGenericErrorFunc m_printer;
  void* const m_printerContext;
};

/// Has libxml2's allocations fail in this thread for a scope, and keeps what it reports of that
/// from standard error. One at a time.
///
/// A program that links this has libxml2's memory functions replaced before its main function.
class FailingXmlMemory {
 public:
  /// @param number  of the allocation that fails first, from 1; those that change a block's size
  ///                and copies of texts count too
  FailingXmlMemory(int number, Shortage shortage);
  ~FailingXmlMemory();

  FailingXmlMemory(const FailingXmlMemory&) = delete;
  FailingXmlMemory& operator=(const FailingXmlMemory&) = delete;

  /// How many allocations have failed so far.
  int Failures() const;

  /// The functions of libxml2, as called from outside of it, in which allocations have failed since
  /// the last scope began, also in a child process.
  static std::vector<const char*> Calls();

  /// How many blocks libxml2 has not given back; the text of its last error is not counted.
  static long Live();

  /// A moment, to tell the blocks that were made after it.
  static long Now();

  /// Frees what libxml2 has made after a moment and lost.
  static void ReleaseLost(long moment);

 private:
  const QuietXml m_quiet;
};

/// Leaves libxml2 without memory for a scope: each of its allocations fails.
class NoXmlMemory : public FailingXmlMemory {
 public:
  NoXmlMemory() : FailingXmlMemory(1, Shortage::kFromThenOn) {}
};

}  // namespace tests
