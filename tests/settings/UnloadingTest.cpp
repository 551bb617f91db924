#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "tests/settings/LiveDocuments.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/TemporaryDirectory.h"

namespace {

using tests::LoadedLibrary;

class AClosedLibrary : public testing::Test {
 protected:
  /// Has the next first use find a settings file of this resource.
  void OfferResource(int amount) {
    const std::string text = "<s><maxResource>" + std::to_string(amount) + "</maxResource></s>";
    setenv("ANALYTICS_INI", m_directory.Write("analytics.ini", text).c_str(), 1);
  }

  void TearDown() override { setenv("ANALYTICS_INI", "/nonexistent/analytics.ini", 1); }

 private:
  const tests::TemporaryDirectory m_directory;
};

TEST_F(AClosedLibrary, IsGoneFromTheProcess) {
  ASSERT_FALSE(LoadedLibrary::IsInTheProcess());
  {
    const LoadedLibrary library;
    EXPECT_EQ(100000, library.MaxResource());
    EXPECT_TRUE(LoadedLibrary::IsInTheProcess());
  }
  EXPECT_FALSE(LoadedLibrary::IsInTheProcess());
}

TEST_F(AClosedLibrary, IsGoneFromTheProcessIfItWasNeverUsed) {
  { const LoadedLibrary library; }
  EXPECT_FALSE(LoadedLibrary::IsInTheProcess());
}

TEST_F(AClosedLibrary, StaysWhileItIsOpenElsewhere) {
  const LoadedLibrary library;
  { const LoadedLibrary again; }
  EXPECT_TRUE(LoadedLibrary::IsInTheProcess());
  EXPECT_EQ(100000, library.MaxResource());
}

TEST_F(AClosedLibrary, HasFreedTheSettingsDocument) {
  OfferResource(50);
  const tests::LiveDocuments documents;
  {
    const LoadedLibrary library;
    EXPECT_EQ(50, library.MaxResource());
    EXPECT_EQ(1, documents.Count());
  }
  EXPECT_EQ(0, documents.Count());
}

TEST_F(AClosedLibrary, OpenedAgainLoadsTheSettingsAfresh) {
  for (int round = 1; round <= 20; ++round) {
    OfferResource(round);
    {
      const LoadedLibrary library;
      EXPECT_EQ(round, library.MaxResource());
    }
    ASSERT_FALSE(LoadedLibrary::IsInTheProcess()) << "round " << round;
  }
}

}  // namespace
