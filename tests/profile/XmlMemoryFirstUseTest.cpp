#include <cstdlib>
#include <string>
#include <tuple>

#include <gmock/gmock.h>

#include <analytics/ProfileDoc.h>
#include <analytics/Settings.h>

#include "tests/profile/ProfileTest.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/FailingXmlMemory.h"
#include "tests/support/Figures.h"
#include "tests/support/Survival.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlMemoryFaults.h"

namespace analytics {
namespace {

using tests::FailingAllocation;
using tests::FailingXmlMemory;
using tests::SharedNumber;

/// What the settings of a first use are taken from.
enum class Source { kFile, kNoFile };

// A profile that is read by the names of the settings file alone.
const std::string kText = "<p xmlns:o='urn:renamed'><o:regel Type='A'/></p>";
const std::string kRenaming =
    "<s><tags><rule>regel</rule></tags><namespaces>"
    "<kestal><url>urn:vendor</url><prefix>v</prefix></kestal>"
    "<onvif><url>urn:renamed</url><prefix>o</prefix></onvif></namespaces></s>";

/// The parsing of a profile that makes and loads the settings, with libxml2 short of memory. Each
/// has a process of its own.
class AFirstUseWithoutXmlMemory
    : public testing::TestWithParam<std::tuple<Source, tests::Shortage>> {
 protected:
  /// What a process has come to, which starts as in one that has not.
  struct Outcome {
    SharedNumber failures{0};
    SharedNumber isUsable{0};
    SharedNumber blocks{0};   // of libxml2, that are still there
    SharedNumber objects{0};  // of operator new
  };

  void SetUp() override {
    WarmUp();
    const bool hasFile = std::get<0>(GetParam()) == Source::kFile;
    setenv("ANALYTICS_INI", (hasFile ? m_path : m_missing).c_str(), 1);
  }
  void TearDown() override { setenv("ANALYTICS_INI", "/nonexistent/analytics.ini", 1); }

  /// Gives whether a process with this allocation failing comes to its end.
  bool Survives(int number, Outcome& outcome) const {
    return tests::SurvivesUnlessXmlCrashes([&] {
      const long blocks = FailingXmlMemory::Live();
      const long objects = FailingAllocation::Live();
      UseFirst(number, outcome);
      outcome.blocks.Set(static_cast<int>(FailingXmlMemory::Live() - blocks));
      outcome.objects.Set(static_cast<int>(FailingAllocation::Live() - objects));
    });
  }

  /// Has everything made here that is made once and kept, without using the settings.
  void WarmUp() const {
    Document plain;
    const FailingXmlMemory failing(2, tests::Shortage::kOnce);
    plain.ParseString(kText);
    plain.ParseString(kText);
    plain.SelectNode("absent");
    plain.ParseFile(m_missing);
  }

  /// Leaves the settings as loaded from the file, without a document.
  void UseFirst(int number, Outcome& outcome) const {
    ProfileDoc profile;
    {
      const FailingXmlMemory failing(number, std::get<1>(GetParam()));
      profile.ParseString(kText);
      outcome.failures.Set(failing.Failures());
    }
    outcome.isUsable.Set(IsUsable(profile) ? 1 : 0);
    Settings::LoadSettings(m_missing);
  }

  /// Whether the settings and the profile are as ever once both are loaded again.
  bool IsUsable(ProfileDoc& profile) const {
    return Settings::LoadSettings(m_path) && Settings::RuleTag() == "regel" &&
           profile.ParseString(kText) && tests::NodePtr(profile.SelectRule("A"));
  }

  /// Expects no harm of one failing allocation and gives whether there is none of that number.
  bool IsPast(int number, const Outcome& undisturbed) const {
    Outcome outcome;
    SCOPED_TRACE(number);
    if (!Survives(number, outcome)) return false;
    EXPECT_TRUE(outcome.isUsable.Get());
    EXPECT_TRUE(outcome.blocks.Get() == 0 || tests::IsXmlFault(tests::kLeaks));
    EXPECT_EQ(undisturbed.objects.Get(), outcome.objects.Get());
    tests::Count("xml_allocations_failed", outcome.failures.Get());
    return outcome.failures.Get() == 0;
  }

 private:
  const tests::TemporaryDirectory m_directory;
  const std::string m_path = m_directory.Write("analytics.ini", kRenaming);
  const std::string m_missing = m_directory.PathOf("missing.ini");
};

TEST_P(AFirstUseWithoutXmlMemory, LosesNothingAndIsMadeUpForByTheNextLoad) {
  Outcome undisturbed;
  ASSERT_TRUE(Survives(0, undisturbed));
  EXPECT_TRUE(undisturbed.isUsable.Get());
  EXPECT_EQ(0, undisturbed.blocks.Get());
  int number = 1;
  while (!IsPast(number, undisturbed)) ++number;
  EXPECT_GT(number, 1);
  tests::Count("operations");
}

std::string NameOf(const testing::TestParamInfo<AFirstUseWithoutXmlMemory::ParamType>& info) {
  return tests::NameOf(std::get<1>(info.param));
}

INSTANTIATE_TEST_SUITE_P(OfNoFile, AFirstUseWithoutXmlMemory,
                         testing::Combine(testing::Values(Source::kNoFile),
                                          testing::ValuesIn(tests::kShortages)),
                         NameOf);

// Where memory fails for good the file is soon done with, as the settings' own tests show.
INSTANTIATE_TEST_SUITE_P(OfAFile, AFirstUseWithoutXmlMemory,
                         testing::Combine(testing::Values(Source::kFile),
                                          testing::Values(tests::Shortage::kOnce)),
                         NameOf);

}  // namespace
}  // namespace analytics
