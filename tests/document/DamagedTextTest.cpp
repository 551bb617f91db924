#include "tests/document/DamagedDocument.h"
#include "tests/support/DamagedText.h"

namespace analytics {
namespace {

constexpr char kText[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!-- c --><n:a xmlns:n=\"urn:x\" b='1&amp;2'> 12<c d=\"\"/>x<![CDATA[<&]]>\xC3\xA4</n:a>\n";

/// Not long, but with everything that samples hold, and some that they do not.
class ADamagedText : public DamagedDocument {};

TEST_F(ADamagedText, IsReadAsLibxmlReadsItWhereverTheTextIsCut) {
  tests::ForEachTruncation(
      kText, [this](const auto& text, const auto& damage) { CheckText(text, damage); });
}

TEST_F(ADamagedText, IsReadAsLibxmlReadsItWhicheverByteIsReplaced) {
  tests::ForEachReplacedByte(
      kText, [this](const auto& text, const auto& damage) { CheckText(text, damage); });
}

}  // namespace
}  // namespace analytics
