#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

class ATypedValue : public testing::Test {
 protected:
  ParsedDocument m_document{
      "<a><empty/><blank> \n</blank><word>abc</word><width x='3.3'> 12px</width>"
      "<twice>1</twice><twice>2</twice><late/><late>5</late><mixed>1<b>9</b>2</mixed></a>"};
};

TEST_F(ATypedValue, OfAMissingElementIsTheDefault) {
  EXPECT_EQ(7, m_document.GetSingleValue("missing", 7, nullptr));
  EXPECT_EQ(0.5, m_document.GetNumericValue("missing", 0.5, nullptr));
}

TEST_F(ATypedValue, OfAnEmptyElementIsTheDefault) {
  EXPECT_EQ(7, m_document.GetSingleValue("empty", 7, nullptr));
  EXPECT_EQ(0.5, m_document.GetNumericValue("empty", 0.5, nullptr));
}

TEST_F(ATypedValue, OfABlankElementIsTheDefault) {
  EXPECT_EQ(7, m_document.GetSingleValue("blank", 7, nullptr));
  EXPECT_EQ(0.5, m_document.GetNumericValue("blank", 0.5, nullptr));
}

TEST_F(ATypedValue, OfAWordIsZero) {
  EXPECT_EQ(0, m_document.GetSingleValue("word", 7, nullptr));
  EXPECT_EQ(0.0, m_document.GetNumericValue("word", 0.5, nullptr));
}

TEST_F(ATypedValue, IsTheNumberThatTheTextStartsWith) {
  EXPECT_EQ(12, m_document.GetSingleValue("width", 7, nullptr));
  EXPECT_EQ(12.0, m_document.GetNumericValue("width", 0.5, nullptr));
}

TEST_F(ATypedValue, IsReadFromTheFirstNodeOnly) {
  EXPECT_EQ(1, m_document.GetSingleValue("twice", 7, nullptr));
  EXPECT_EQ(1.0, m_document.GetNumericValue("twice", 0.5));
}

TEST_F(ATypedValue, OfAnEmptyFirstNodeIsTheDefaultWhateverFollows) {
  EXPECT_EQ(7, m_document.GetSingleValue("late", 7, nullptr));
  EXPECT_EQ(0.5, m_document.GetNumericValue("late", 0.5));
}

TEST_F(ATypedValue, IsReadFromTheTextAroundChildElements) {
  EXPECT_EQ(12, m_document.GetSingleValue("mixed", 7, nullptr));
}

TEST_F(ATypedValue, IsReadFromAnAttribute) {
  EXPECT_EQ(3, m_document.GetSingleValue("width/@x", 7, nullptr));
}

TEST_F(ATypedValue, OfATextNodeIsTheDefault) {
  EXPECT_EQ(7, m_document.GetSingleValue("width/text()", 7, nullptr));
}

TEST_F(ATypedValue, ThatIsFloatingHasSinglePrecision) {
  EXPECT_EQ(3.299999952316284, m_document.GetNumericValue("width/@x", 0.5));
}

TEST_F(ATypedValue, ThatIsFloatingHasDoublePrecisionAsAPropertyOfANode) {
  EXPECT_EQ(3.3, NodeAt(m_document, "width").GetNumericProperty("x", 0.5));
}

TEST_F(ATypedValue, ThatIsFloatingRoundsItsDefaultToSinglePrecision) {
  const tests::XmlErrors quiet;
  EXPECT_EQ(0.10000000149011612, m_document.GetNumericValue("missing", 0.1));
  EXPECT_EQ(0.10000000149011612, m_document.GetNumericValue("empty", 0.1));
  EXPECT_EQ(0.10000000149011612, m_document.GetNumericValue("a[", 0.1));
}

TEST_F(ATypedValue, ThatIsFloatingKeepsAnInfiniteDefault) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(infinity, m_document.GetNumericValue("missing", infinity));
}

TEST(AClosedDocument, RoundsTheDefaultToSinglePrecision) {
  Document document;
  EXPECT_EQ(0.10000000149011612, document.GetNumericValue("a", 0.1, nullptr));
}

}  // namespace
}  // namespace analytics
