#include "tests/document/DamagedDocument.h"
#include "tests/support/DamagedText.h"
#include "tests/support/Figures.h"
#include "tests/support/SampleFiles.h"

namespace analytics {
namespace {

/// A file that comes with the sources.
class ADamagedSample : public DamagedDocument, public testing::WithParamInterface<const char*> {
 protected:
  const std::string m_text = tests::SampleText(GetParam());
  const tests::DamageCheck m_check = [this](const auto& text, const auto& damage) {
    CheckText(text, damage);
  };
};

TEST_P(ADamagedSample, IsReadAsLibxmlReadsItWhereverItIsCut) {
  tests::Count("document_truncations", tests::ForEachTruncation(m_text, m_check));
}

TEST_P(ADamagedSample, IsReadAsLibxmlReadsItWhicheverByteIsReplaced) {
  tests::Count("document_replaced_bytes", tests::ForEachReplacedByte(m_text, m_check));
}

INSTANTIATE_TEST_SUITE_P(OfSettings, ADamagedSample, testing::ValuesIn(tests::kSettingsFiles),
                         [](const auto& row) { return tests::SampleName(row.param); });
INSTANTIATE_TEST_SUITE_P(OfDocuments, ADamagedSample, testing::ValuesIn(tests::kDocumentFiles),
                         [](const auto& row) { return tests::SampleName(row.param); });

}  // namespace
}  // namespace analytics
