#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "tests/settings/LiveDocuments.h"
#include "tests/settings/LoadedLibrary.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/TemporaryDirectory.h"

namespace {

/// First uses that run out of memory. Each loading of the library brings a first use, and each
/// unloading shows what it has left.
class AFirstUseWithoutMemory : public testing::Test {
 protected:
  /// Loads the library, has its first use fail at every allocation and expects `resource` then.
  void ExpectAtLast(int resource, int liveDocuments) const {
    const tests::LoadedLibrary library;
    tests::WithEachAllocationFailing([&] {
      EXPECT_EQ(0, m_documents.Count());
      library.MaxResource();
    });
    EXPECT_EQ(resource, library.MaxResource());
    EXPECT_EQ(liveDocuments, m_documents.Count());
  }

  void TearDown() override {
    EXPECT_EQ(0, m_documents.Count());
    setenv("ANALYTICS_INI", "/nonexistent/analytics.ini", 1);
  }

  const tests::TemporaryDirectory m_directory;

 private:
  const tests::LiveDocuments m_documents;
};

TEST_F(AFirstUseWithoutMemory, LeavesNothingAndIsMadeUpForByTheNext) {
  const std::string text = "<s><maxResource>50</maxResource></s>";
  setenv("ANALYTICS_INI", m_directory.Write("analytics.ini", text).c_str(), 1);
  ExpectAtLast(50, 1);
}

TEST_F(AFirstUseWithoutMemory, OfAMissingFileIsMadeUpForByTheNext) {
  setenv("ANALYTICS_INI", m_directory.PathOf("missing.ini").c_str(), 1);
  ExpectAtLast(100000, 0);
}

TEST_F(AFirstUseWithoutMemory, OfAnExpandedPathIsMadeUpForByTheNext) {
  const std::string text = "<s><maxResource>50</maxResource></s>";
  const std::string path = m_directory.Write("analytics.ini", text);
  setenv("ANALYTICS_INI", ("'" + path + "' second").c_str(), 1);
  ExpectAtLast(50, 1);
}

}  // namespace
