#include <ios>
#include <locale>
#include <stdexcept>

#include <gtest/gtest.h>

#include "tests/document/GlobalLocale.h"
#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

/// Reads no number without throwing.
class FailingNumbers : public std::num_get<char> {
 protected:
  iter_type do_get(iter_type /*from*/, iter_type /*to*/, std::ios_base& /*stream*/,
                   std::ios_base::iostate& /*state*/, long& /*number*/) const override {
    throw std::runtime_error("no number");
  }
};

class ALocaleThatThrows : public testing::Test {
 protected:
  ParsedDocument m_document{"<a x='1'>2</a>"};
  DocumentNode m_root = NodeAt(m_document, "/a");
  const GlobalLocale m_failing{new FailingNumbers};
};

TEST_F(ALocaleThatThrows, ThrowsOutOfTheReadersOfNumbers) {
  EXPECT_THROW(m_document.GetSingleValue(".", 7, nullptr), std::runtime_error);
  EXPECT_THROW(m_root.GetValue(7), std::runtime_error);
  EXPECT_THROW(m_root.GetProperty("x", 7), std::runtime_error);
}

TEST_F(ALocaleThatThrows, IsNotAskedForTexts) {
  EXPECT_EQ("2", m_document.GetSingleValue(".", nullptr));
  EXPECT_EQ("1", m_root.GetProperty("x"));
}

}  // namespace
}  // namespace analytics
