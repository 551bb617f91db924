#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "tests/settings/LiveDocuments.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/FailingXmlMemory.h"
#include "tests/support/Figures.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlMemoryFaults.h"

namespace {

/// First uses that run out of memory. Each loading of the library brings a first use, and each
/// unloading shows what it has left.
class AFirstUseWithoutMemory : public testing::TestWithParam<tests::Shortage> {
 protected:
  /// Loads the library, has its first use fail at every allocation and expects `resource` then.
  void ExpectAtLast(int resource, int liveDocuments) const {
    const tests::LoadedLibrary library;
    tests::WithEachAllocationFailing(GetParam(), [&] {
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

TEST_P(AFirstUseWithoutMemory, LeavesNothingAndIsMadeUpForByTheNext) {
  const std::string text = "<s><maxResource>50</maxResource></s>";
  setenv("ANALYTICS_INI", m_directory.Write("analytics.ini", text).c_str(), 1);
  ExpectAtLast(50, 1);
}

TEST_P(AFirstUseWithoutMemory, OfAMissingFileIsMadeUpForByTheNext) {
  setenv("ANALYTICS_INI", m_directory.PathOf("missing.ini").c_str(), 1);
  ExpectAtLast(100000, 0);
}

TEST_P(AFirstUseWithoutMemory, OfAnExpandedPathIsMadeUpForByTheNext) {
  const std::string text = "<s><maxResource>50</maxResource></s>";
  const std::string path = m_directory.Write("analytics.ini", text);
  setenv("ANALYTICS_INI", ("'" + path + "' second").c_str(), 1);
  ExpectAtLast(50, 1);
}

/// First uses for which libxml2 has no memory.
class AFirstUseWithoutXmlMemory : public testing::TestWithParam<tests::Shortage> {
 protected:
  AFirstUseWithoutXmlMemory() { setenv("ANALYTICS_INI", m_path.c_str(), 1); }
  ~AFirstUseWithoutXmlMemory() override {
    setenv("ANALYTICS_INI", "/nonexistent/analytics.ini", 1);
  }

  /// Has a fresh library make its first use, expects it to be of use afterwards as ever, and gives
  /// how many allocations have failed.
  int Use(int number) const {
    const tests::LoadedLibrary library;
    const int failures = UseFirst(library, number);
    EXPECT_EQ(50, library.LoadSettings(m_path) ? library.MaxResource() : 0)
        << "allocation " << number;
    return failures;
  }

  static int UseFirst(const tests::LoadedLibrary& library, int number) {
    const tests::FailingXmlMemory failing(number, GetParam());
    const std::int64_t resource = library.MaxResource();
    EXPECT_TRUE(resource == 50 || resource == 100000) << resource << ", allocation " << number;
    return failing.Failures();
  }

  /// Gives whether the first use came to a failure, which must have lost nothing.
  bool LosesNothing(int number) const {
    const long blocks = tests::FailingXmlMemory::Live();
    const long moment = tests::FailingXmlMemory::Now();
    const int failures = Use(number);
    const bool isLeak = tests::FailingXmlMemory::Live() != blocks;
    EXPECT_TRUE(!isLeak || tests::IsXmlFault(tests::kLeaks));
    tests::FailingXmlMemory::ReleaseLost(moment);
    tests::Count("xml_allocations_failed", failures);
    return failures > 0;
  }

 private:
  const tests::TemporaryDirectory m_directory;
  const std::string m_path =
      m_directory.Write("analytics.ini", "<s><maxResource>50</maxResource></s>");
  const tests::QuietXml m_quiet;
};

TEST_P(AFirstUseWithoutXmlMemory, HasTheValueOfTheFileOrTheBuiltInOne) {
  Use(1 << 30);  // what libxml2 makes once and keeps is made here
  int number = 1;
  bool isFailing = true;
  for (; isFailing; ++number) {
    SCOPED_TRACE(number);
    if (tests::SurvivesUnlessXmlCrashes([&] { Use(number); })) isFailing = LosesNothing(number);
  }
  EXPECT_GT(number, 2);
}

INSTANTIATE_TEST_SUITE_P(Shortages, AFirstUseWithoutXmlMemory, testing::ValuesIn(tests::kShortages),
                         tests::ShortageName);

INSTANTIATE_TEST_SUITE_P(Shortages, AFirstUseWithoutMemory, testing::ValuesIn(tests::kShortages),
                         tests::ShortageName);

}  // namespace
