#pragma once

#include <array>

namespace tests {

/// Stands for a function of libxml2 that is not exported, entered by the jump that ends another.
constexpr char kUnnamedXmlFunction[] = "(unnamed)";

/// The functions of libxml2 in which allocations have failed, in memory that a child process
/// shares: what it met before it crashed is seen by its parent.
struct XmlEntries {
  static constexpr int kMost = 16;

  int count;
  std::array<const char*, kMost> names;  // of libxml2's own, which stay
};

XmlEntries& SharedXmlEntries();

/// Adds the function through which libxml2, that is now allocating, was entered.
void NoteXmlEntry();

}  // namespace tests
