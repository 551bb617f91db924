#include "tests/settings/SubstitutionVariables.h"
#include "tests/support/XmlErrors.h"

namespace tests {
namespace {

class AShortText : public SeparatorVariables {
  const tests::XmlErrors m_quiet;
};

TEST_F(AShortText, IsSubstitutedAsTheModelSubstitutesIt) { EXPECT_EQ(781, CheckAllTexts(4)); }

}  // namespace
}  // namespace tests
