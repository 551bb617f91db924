#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct Expression {
  const char* name;
  const char* path;
  bool reported;
};

const Expression kFruitless[] = {
    {"Empty", "", true},
    {"Blank", " ", true},
    {"OpenBracket", "b[", true},
    {"OpenQuote", "b[@x='1]", true},
    {"DotAndName", ".b", true},
    {"TrailingSlash", "b/", true},
    {"UnknownFunction", "nosuch()", true},
    {"UnknownAxis", "nosuch::b", true},
    {"UndefinedVariable", "$b", true},
    {"UndefinedPrefix", "p:b", true},
    {"UndefinedPrefixInAPredicate", "b[p:c]", true},
    {"Number", "count(b)", false},
    {"NumberLiteral", "5", false},
    {"Text", "string(b)", false},
    {"TextLiteral", "'b'", false},
    {"TruthValue", "true()", false},
    {"Comparison", "b = 5", false},
    {"NothingSelected", "none", false},
};

/// An expression that is invalid or gives no nodes.
class AnExpressionWithoutNodes : public testing::TestWithParam<Expression> {
 protected:
  const std::string m_path = GetParam().path;
  ParsedDocument m_document{"<a xmlns:p='urn:p'><b x='1'>5</b></a>"};
  const tests::XmlErrors m_errors;
};

TEST_P(AnExpressionWithoutNodes, SelectsNothing) {
  EXPECT_EQ(nullptr, m_document.SelectNode(m_path));
  EXPECT_THAT(m_document.SelectNodes(m_path), IsEmpty());
}

TEST_P(AnExpressionWithoutNodes, GivesNoText) {
  EXPECT_EQ("", m_document.GetSingleValue(m_path, nullptr));
  EXPECT_THAT(m_document.GetMultipleValues(m_path), IsEmpty());
}

TEST_P(AnExpressionWithoutNodes, GivesTheDefaultNumber) {
  EXPECT_EQ(7, m_document.GetSingleValue(m_path, 7, nullptr));
  EXPECT_EQ(0.5, m_document.GetNumericValue(m_path, 0.5));
}

TEST_P(AnExpressionWithoutNodes, DeletesNothing) {
  EXPECT_EQ(0, m_document.DeleteNodes(m_path));
  EXPECT_EQ("<a xmlns:p=\"urn:p\"><b x=\"1\">5</b></a>", RootDump(m_document));
}

TEST_P(AnExpressionWithoutNodes, IsReportedByLibxml2OnlyIfItIsInvalid) {
  m_document.GetSingleValue(m_path, nullptr);
  EXPECT_EQ(GetParam().reported, !m_errors.Codes().empty());
}

TEST_P(AnExpressionWithoutNodes, DoesNotDisturbTheNextQuery) {
  m_document.GetSingleValue(m_path, nullptr);
  EXPECT_EQ("5", m_document.GetSingleValue("b", nullptr));
}

INSTANTIATE_TEST_SUITE_P(Rows, AnExpressionWithoutNodes, testing::ValuesIn(kFruitless),
                         [](const auto& row) { return row.param.name; });

TEST(AnInvalidExpression, IsReportedOnStandardErrorUnlessTheProgramTakesReports) {
  ParsedDocument document("<a/>");
  testing::internal::CaptureStderr();
  document.GetSingleValue("b[", nullptr);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("XPath error"));
}

TEST(AnExpression, EndsAtItsFirstNul) {
  const std::string path("b\0[", 3);
  ParsedDocument document("<a><b>5</b></a>");
  EXPECT_EQ("5", document.GetSingleValue(path, nullptr));
  EXPECT_THAT(Dumps(document, path), ElementsAre("<b>5</b>"));
  EXPECT_EQ(1, document.DeleteNodes(path));
}

TEST(AnExpression, HoldsUtf8) {
  ParsedDocument document("<a><\xC3\xA4>\xC3\xB6</\xC3\xA4></a>");
  EXPECT_EQ("\xC3\xB6", document.GetSingleValue("\xC3\xA4[.='\xC3\xB6']", nullptr));
}

TEST(AnExpression, TakesValuesAsTheyAre) {
  ParsedDocument document("<a><b n='&apos;'>5</b></a>");
  EXPECT_EQ("5", document.GetSingleValue("b[@n=\"'\"]", nullptr));
  const tests::XmlErrors errors;
  EXPECT_EQ("", document.GetSingleValue("b[@n=''']", nullptr));
  EXPECT_THAT(errors.Codes(), Not(IsEmpty()));
}

TEST(AnExpression, TakesWhatAValueAddsToIt) {
  const std::string value = "none'] | //*[@n='5";
  ParsedDocument document("<a><b n='4'/><c><d n='5'/></c></a>");
  EXPECT_THAT(Dumps(document, "b[@n='" + value + "']"), ElementsAre("<d n=\"5\"/>"));
  EXPECT_EQ(1, document.DeleteNodes("b[@n='" + value + "']"));
  EXPECT_EQ("<a><b n=\"4\"/><c/></a>", RootDump(document));
}

}  // namespace
}  // namespace analytics
