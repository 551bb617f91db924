#include <tuple>

#include "tests/profile/DamagedProfile.h"
#include "tests/support/DamagedText.h"
#include "tests/support/Figures.h"
#include "tests/support/SampleFiles.h"

namespace tests {
namespace {

constexpr char kServiceUri[] = "http://www.onvif.org/ver20/analytics/wsdl";

/// The vocabulary that most of a document's elements are in.
Vocabulary VocabularyOf(const std::string& file) {
  Vocabulary vocabulary;
  if (file.find("onvif/") == std::string::npos) return vocabulary;
  vocabulary.rule = "Rule";
  vocabulary.engine = "AnalyticsModule";
  if (file == "onvif/GetAnalyticsModulesResponse.xml" || file == "onvif/GetRulesResponse.xml") {
    vocabulary.onvifUri = kServiceUri;
  }
  return vocabulary;
}

/// A file that comes with the sources.
class ADamagedSample : public DamagedProfile, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override { ReadWith(VocabularyOf(GetParam())); }

  const std::string m_text = SampleText(GetParam());
  const DamageCheck m_check = [this](const auto& text, const auto& damage) {
    CheckText(text, damage);
  };
};

TEST_P(ADamagedSample, IsReadAsItsTreeIsWhereverItIsCut) {
  Count("profile_truncations", ForEachTruncation(m_text, m_check));
}

TEST_P(ADamagedSample, IsReadAsItsTreeIsWhicheverByteIsReplaced) {
  Count("profile_replaced_bytes", ForEachReplacedByte(m_text, m_check));
}

INSTANTIATE_TEST_SUITE_P(OfSettings, ADamagedSample, testing::ValuesIn(kSettingsFiles),
                         [](const auto& row) { return SampleName(row.param); });
INSTANTIATE_TEST_SUITE_P(OfDocuments, ADamagedSample, testing::ValuesIn(kDocumentFiles),
                         [](const auto& row) { return SampleName(row.param); });

}  // namespace
}  // namespace tests
