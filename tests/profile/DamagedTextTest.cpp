#include "tests/profile/DamagedProfile.h"
#include "tests/support/DamagedText.h"

namespace tests {
namespace {

constexpr char kText[] =
    "<p xmlns:t=\"http://www.onvif.org/ver10/schema\" "
    "xmlns:k=\"urn:kestal-com:schema:onvif:analytics:1\"><t:rule Type=\"A\"><t:Parameters>"
    "<t:SimpleItem Name=\"Active\" Value=\"1\"/></t:Parameters></t:rule><t:rule Type=\"B\"/>"
    "<t:engine/><k:eventSink/><t:Point x=\"1\" y=\"2\"/><k:ObjectAtNearLeft left=\"3\"/></p>";

/// Not long, but with something for each reader of a profile.
class ADamagedText : public DamagedProfile {
 protected:
  const DamageCheck m_check = [this](const auto& text, const auto& damage) {
    CheckText(text, damage);
  };
};

TEST_F(ADamagedText, IsReadAsItsTreeIsWhereverTheTextIsCut) { ForEachTruncation(kText, m_check); }

TEST_F(ADamagedText, IsReadAsItsTreeIsWhicheverByteIsReplaced) {
  ForEachReplacedByte(kText, m_check);
}

}  // namespace
}  // namespace tests
