#include <string>

#include <gmock/gmock.h>

#include <analytics/types/Point.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Row {
  const char* name;
  const char* children;  // of the node that the point is read from
  int x;                 // with 1 before
};

const Row kRows[] = {
    {"BothChildren", "<x>5</x><y>9</y>", 5},
    {"OnlyX", "<x>5</x>", 5},
    {"OnlyY", "<y>9</y>", 1},
    {"NoChildren", "", 1},
    {"EmptyX", "<x/><y>9</y>", 1},
    {"BlankX", "<x> </x>", 1},
    {"NegativeXWithUnit", "<x> -5px</x>", -5},
    {"FractionalX", "<x>5.9</x>", 5},
    {"WordAsX", "<x>five</x>", 0},
    {"XOutOfRange", "<x>99999999999</x>", 2147483647},
    {"TwoXs", "<x>5</x><x>6</x>", 5},
    {"EmptyFirstOfTwoXs", "<x/><x>6</x>", 1},
    {"DeeperX", "<z><x>5</x></z>", 1},
    {"XInANamespace", "<x xmlns='urn:n'>5</x>", 1},
};

class APlainPoint : public testing::TestWithParam<Row> {};

TEST_P(APlainPoint, HasTheXOfTheDocumentAndTheYOfTheCaller) {
  const tests::XmlErrors quiet;
  ParsedDocument document("<r><x>77</x><p x='66' y='88'>" + std::string(GetParam().children) +
                          "</p></r>");
  DocumentNode node = NodeAt(document, "p");
  types::Point point{1, 2};
  EXPECT_TRUE(document.PointFromNode(&node, point));
  EXPECT_EQ(GetParam().x, point.x);
  EXPECT_EQ(2, point.y);
}

INSTANTIATE_TEST_SUITE_P(Rows, APlainPoint, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

class ReadingAPlainPoint : public testing::Test {
 protected:
  ParsedDocument m_document{"<r><x>5</x><y>9</y></r>"};
  DocumentNode m_root = NodeAt(m_document, "/r");
  types::Point m_point{1, 2};
};

TEST_F(ReadingAPlainPoint, FailsWithoutANodeAndLeavesThePoint) {
  const tests::XmlErrors errors;
  EXPECT_FALSE(m_document.PointFromNode(nullptr, m_point));
  EXPECT_EQ(1, m_point.x);
  EXPECT_EQ(2, m_point.y);
  EXPECT_THAT(errors.Codes(), IsEmpty());
}

TEST_F(ReadingAPlainPoint, SucceedsForAnEmptyNodeAndLeavesThePoint) {
  const tests::XmlErrors quiet;
  DocumentNode empty;
  EXPECT_TRUE(m_document.PointFromNode(&empty, m_point));
  EXPECT_EQ(1, m_point.x);
  EXPECT_EQ(2, m_point.y);
}

TEST_F(ReadingAPlainPoint, SucceedsOnAClosedDocumentAndLeavesThePoint) {
  Document closed;
  EXPECT_TRUE(closed.PointFromNode(&m_root, m_point));
  EXPECT_EQ(1, m_point.x);
  EXPECT_EQ(2, m_point.y);
}

TEST_F(ReadingAPlainPoint, HasLibxml2ReportAnInvalidExpression) {
  const tests::XmlErrors errors;
  EXPECT_TRUE(m_document.PointFromNode(&m_root, m_point));
  EXPECT_THAT(errors.Codes(), ElementsAre(XML_XPATH_EXPR_ERROR));
}

TEST_F(ReadingAPlainPoint, HasTheReportWrittenToStandardError) {
  testing::internal::CaptureStderr();
  EXPECT_TRUE(m_document.PointFromNode(&m_root, m_point));
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Invalid expression\n.y\n"));
}

/// Looks at the point whenever libxml2 reports that an expression is invalid.
class APointWhileItsYIsRead : public ReadingAPlainPoint {
 protected:
  APointWhileItsYIsRead() { xmlSetGenericErrorFunc(this, Look); }
  ~APointWhileItsYIsRead() override { xmlSetGenericErrorFunc(nullptr, nullptr); }

  std::vector<int> m_seen;

 private:
  static void Look(void* self, const char* /*format*/, ...) {
    auto& test = *static_cast<APointWhileItsYIsRead*>(self);
    test.m_seen.push_back(test.m_point.x);
  }
};

TEST_F(APointWhileItsYIsRead, KeepsItsX) {
  EXPECT_TRUE(m_document.PointFromNode(&m_root, m_point));
  EXPECT_EQ(5, m_point.x);
  EXPECT_THAT(m_seen, testing::AllOf(testing::Not(IsEmpty()), testing::Each(1)));
}

/// A document that reads points in its own way.
class MirroredDocument : public ParsedDocument {
 public:
  using ParsedDocument::ParsedDocument;

  bool PointFromNode(DocumentNode* node, types::Point& point) override {
    const bool read = ParsedDocument::PointFromNode(node, point);
    point.x = -point.x;
    return read;
  }
};

TEST_F(ReadingAPlainPoint, CanBeOverridden) {
  const tests::XmlErrors quiet;
  MirroredDocument mirrored("<r><x>5</x></r>");
  DocumentNode root = NodeAt(mirrored, "/r");
  Document& document = mirrored;
  EXPECT_TRUE(document.PointFromNode(&root, m_point));
  EXPECT_EQ(-5, m_point.x);
}

}  // namespace
}  // namespace analytics
