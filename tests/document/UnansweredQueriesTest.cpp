#include <functional>
#include <memory>
#include <string>

#include <gmock/gmock.h>

#include <analytics/types/Point.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::unique_ptr<Document> Parsed(bool makesContext, const std::string& text) {
  const tests::XmlErrors quiet;
  auto document = std::make_unique<SwitchedDocument>(makesContext);
  document->ParseString(text);
  return document;
}

/// A way to come by a document that answers no query.
struct Silent {
  const char* name;
  std::function<std::unique_ptr<Document>()> make;
};

const Silent kSilent[] = {
    {"NeverOpened", [] { return std::make_unique<Document>(); }},
    {"FailedParse", [] { return Parsed(true, "<a><b>5</b>"); }},
    {"Closed",
     [] {
       std::unique_ptr<Document> document = Parsed(true, "<a><b>5</b></a>");
       document->Close();
       return document;
     }},
    {"WithoutSearchContext", [] { return Parsed(false, "<a><b>5</b></a>"); }},
};

/// A closed document, or one without search context. Queries are given no context node, an empty
/// one, one of another document and one that is gone, none of which is to be looked at.
class ADocumentThatCannotSearch : public testing::TestWithParam<Silent> {
 protected:
  ADocumentThatCannotSearch()
      : m_document(GetParam().make()),
        m_other("<a><b>6</b></a>"),
        m_foreign(NodeAt(m_other, "/a")) {}

  std::unique_ptr<Document> m_document;
  ParsedDocument m_other;
  DocumentNode m_empty;
  DocumentNode m_foreign;
  DocumentNode* const m_gone = reinterpret_cast<DocumentNode*>(sizeof(void*));  // nothing is there
  const tests::XmlErrors m_errors;
};

TEST_P(ADocumentThatCannotSearch, SelectsNoNode) {
  EXPECT_EQ(nullptr, m_document->SelectNode("/a"));
  EXPECT_EQ(nullptr, m_document->SelectNode("b", &m_empty));
  EXPECT_EQ(nullptr, m_document->SelectNode("b", &m_foreign));
  EXPECT_EQ(nullptr, m_document->SelectNode("b", m_gone));
}

TEST_P(ADocumentThatCannotSearch, SelectsNoNodes) {
  EXPECT_THAT(m_document->SelectNodes("//b"), IsEmpty());
  EXPECT_THAT(m_document->SelectNodes("b", &m_empty), IsEmpty());
  EXPECT_THAT(m_document->SelectNodes("b", &m_foreign), IsEmpty());
  EXPECT_THAT(m_document->SelectNodes("b", m_gone), IsEmpty());
}

TEST_P(ADocumentThatCannotSearch, GivesAnEmptyText) {
  EXPECT_EQ("", m_document->GetSingleValue("//b", nullptr));
  EXPECT_EQ("", m_document->GetSingleValue("b", &m_empty));
  EXPECT_EQ("", m_document->GetSingleValue("b", &m_foreign));
  EXPECT_EQ("", m_document->GetSingleValue("b", m_gone));
}

TEST_P(ADocumentThatCannotSearch, GivesNoTexts) {
  EXPECT_THAT(m_document->GetMultipleValues("//b"), IsEmpty());
  EXPECT_THAT(m_document->GetMultipleValues("b", &m_empty), IsEmpty());
  EXPECT_THAT(m_document->GetMultipleValues("b", &m_foreign), IsEmpty());
  EXPECT_THAT(m_document->GetMultipleValues("b", m_gone), IsEmpty());
}

TEST_P(ADocumentThatCannotSearch, GivesTheDefaultInteger) {
  EXPECT_EQ(7, m_document->GetSingleValue("//b", 7, nullptr));
  EXPECT_EQ(7, m_document->GetSingleValue("b", 7, &m_empty));
  EXPECT_EQ(7, m_document->GetSingleValue("b", 7, &m_foreign));
  EXPECT_EQ(7, m_document->GetSingleValue("b", 7, m_gone));
}

TEST_P(ADocumentThatCannotSearch, GivesTheDefaultNumberInSinglePrecision) {
  EXPECT_EQ(0.10000000149011612, m_document->GetNumericValue("//b", 0.1));
  EXPECT_EQ(0.10000000149011612, m_document->GetNumericValue("b", 0.1, &m_empty));
  EXPECT_EQ(0.10000000149011612, m_document->GetNumericValue("b", 0.1, &m_foreign));
  EXPECT_EQ(0.10000000149011612, m_document->GetNumericValue("b", 0.1, m_gone));
}

TEST_P(ADocumentThatCannotSearch, DeletesNothing) {
  EXPECT_EQ(0, m_document->DeleteNodes("//b"));
  EXPECT_EQ(0, m_document->DeleteNodes("b", &m_empty));
  EXPECT_EQ(0, m_document->DeleteNodes("b", &m_foreign));
  EXPECT_EQ(0, m_document->DeleteNodes("b", m_gone));
  EXPECT_EQ("<a><b>6</b></a>", RootDump(m_other));
}

TEST_P(ADocumentThatCannotSearch, LeavesAPointAsItWas) {
  types::Point point{1, 2};
  EXPECT_TRUE(m_document->PointFromNode(&m_foreign, point));
  EXPECT_TRUE(m_document->PointFromNode(m_gone, point));
  EXPECT_EQ(1, point.x);
  EXPECT_EQ(2, point.y);
}

TEST_P(ADocumentThatCannotSearch, DoesNotEvenReadAnInvalidExpression) {
  EXPECT_EQ(nullptr, m_document->SelectNode("a["));
  EXPECT_EQ("", m_document->GetSingleValue("a[", nullptr));
  EXPECT_EQ(0, m_document->DeleteNodes("a["));
  EXPECT_THAT(m_errors.Codes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ADocumentThatCannotSearch, testing::ValuesIn(kSilent),
                         [](const auto& row) { return row.param.name; });

/// Open, but without search context: all that needs no search works.
class ADocumentWithoutSearchContext : public testing::Test {
 protected:
  ADocumentWithoutSearchContext() : m_document(false) {
    EXPECT_TRUE(m_document.ParseString("<a xmlns:p='urn:p'><b>5</b></a>"));
  }

  SwitchedDocument m_document;
};

TEST_F(ADocumentWithoutSearchContext, GivesItsRootElement) {
  const tests::NodePtr root(m_document.SelectRootNode());
  ASSERT_TRUE(root);
  EXPECT_EQ("<a xmlns:p=\"urn:p\"><b>5</b></a>", root->DumpToString());
}

TEST_F(ADocumentWithoutSearchContext, IsDumped) {
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a xmlns:p=\"urn:p\">\n  <b>5</b>\n</a>\n",
            m_document.DumpToString());
}

TEST_F(ADocumentWithoutSearchContext, FindsNamespaces) {
  EXPECT_NE(nullptr, m_document.GetNs("p"));
}

TEST_F(ADocumentWithoutSearchContext, AnswersOnceItsContextIsMade) {
  m_document.MakesContext(true);
  ASSERT_TRUE(m_document.CreateSearchContext());
  EXPECT_THAT(m_document.GetMultipleValues("b"), ElementsAre("5"));
}

}  // namespace
}  // namespace analytics
