#include "tests/document/XmlErrors.h"
#include "tests/settings/SubstitutionVariables.h"

namespace tests {
namespace {

class AShortText : public SeparatorVariables {
  const analytics::XmlErrors m_quiet;
};

TEST_F(AShortText, IsSubstitutedAsTheModelSubstitutesIt) { EXPECT_EQ(781, CheckAllTexts(4)); }

}  // namespace
}  // namespace tests
