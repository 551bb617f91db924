#pragma once

#include <array>

namespace tests {

/// Stands for a function of libxml2 that is not exported, entered by the jump that ends another.
constexpr char kUnnamedXmlFunction[] = "(unnamed)";

/// Stands for code that no function of libxml2 has called.
constexpr char kNoXmlFunction[] = "(none)";

/// The functions of libxml2 in which allocations have failed, in memory that a child process
/// shares: what it met before it crashed is seen by its parent.
struct XmlEntries {
  static constexpr int kMost = 16;

  int count;
  std::array<const char*, kMost> names;  // of libxml2's own, which stay
  const char* crash;                     // in which the process ended, or null
};

XmlEntries& SharedXmlEntries();

/// Adds the function through which libxml2, that is now allocating, was entered.
void NoteXmlEntry();

/// Has the function noted that this process is in when a signal or a sanitizer ends it.
void NoteXmlEntryOfACrash();

}  // namespace tests
