#pragma once

#include <string>

#include <gtest/gtest.h>

#include "tests/profile/Vocabulary.h"
#include "tests/support/XmlAllocations.h"
#include "tests/support/XmlErrors.h"

namespace tests {

/// Opens texts of which most are not well-formed as profiles, and compares what a profile says of
/// each with a walk through the tree that libxml2 alone makes of it.
class DamagedProfile : public testing::Test {
 protected:
  DamagedProfile();

  /// Makes `vocabulary`, in place of the built-in one, that of the process.
  void ReadWith(const Vocabulary& vocabulary);

  /// Checks one text and that nothing of it stays behind; after a first failure it does no more.
  void CheckText(const std::string& text, const std::string& damage);

 private:
  Vocabulary m_vocabulary;
  const tests::XmlErrors m_quiet;
  const XmlAllocations m_allocations;
};

}  // namespace tests
