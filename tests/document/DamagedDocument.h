#pragma once

#include <string>

#include <gtest/gtest.h>

#include "tests/support/XmlAllocations.h"
#include "tests/support/XmlErrors.h"

namespace analytics {

/// Opens texts of which most are not well-formed and compares what a document says of each with
/// what libxml2 alone makes of it.
class DamagedDocument : public testing::Test {
 protected:
  DamagedDocument();

  /// Checks one text and that nothing of it stays behind; after a first failure it does no more.
  void CheckText(const std::string& text, const std::string& damage);

  const tests::XmlErrors m_quiet;
  const tests::XmlAllocations m_allocations;
};

}  // namespace analytics
