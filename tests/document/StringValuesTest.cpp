#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Row {
  const char* name;
  const char* text;  // of the document
  const char* path;
  const char* expected;
};

const char kWithEntities[] =
    "<!DOCTYPE a [<!ENTITY e 'x<b/>y'><!ENTITY f 'z'>]><a k='1&f;2'>1&e;2&f;3</a>";

const Row kRows[] = {
    {"OfAnElement", "<a><b>text</b></a>", "b", "text"},
    {"OfTheRootElement", "<a>text</a>", ".", "text"},
    {"OfAnEmptyElement", "<a><b/></a>", "b", ""},
    {"OfABlankElement", "<a><b> \n</b></a>", "b", " \n"},
    {"OfNoElement", "<a/>", "b", ""},
    {"OfTheFirstOfSeveralElements", "<a><b>1</b><b>2</b></a>", "b", "1"},
    {"OfAnEmptyFirstElement", "<a><b/><b>2</b></a>", "b", ""},
    {"OfAnAttribute", "<a><b x='value'/></a>", "b/@x", "value"},
    {"OfAnEmptyAttribute", "<a x=''/>", "@x", ""},
    {"WithoutTextOfChildElements", "<a>1<b>2</b>3</a>", ".", "13"},
    {"WithoutComments", "<a>1<!--2-->3<?p 4?>5</a>", ".", "135"},
    {"WithCharacterData", "<a>1<![CDATA[<2>&]]>3</a>", ".", "1<2>&3"},
    {"WithPredefinedEntities", "<a>&lt;&amp;&gt;&quot;&apos;</a>", ".", "<&>\"'"},
    {"WithCharacterReferences", "<a>&#65;&#xE9;</a>", ".", "A\xC3\xA9"},
    {"WithEntitiesSubstituted", kWithEntities, ".", "1xy2z3"},
    {"OfAnAttributeWithEntitiesSubstituted", kWithEntities, "@k", "1z2"},
    {"OfLongText", "<a>a text that fits in no small buffer of a string object</a>", ".",
     "a text that fits in no small buffer of a string object"},
    {"OfATextNodeIsEmpty", "<a>text</a>", "text()", ""},
    {"OfACommentIsEmpty", "<a><!--text--></a>", "comment()", ""},
    {"OfTheDocumentNodeIsEmpty", "<a>text</a>", "/", ""},
};

class ASingleValue : public testing::TestWithParam<Row> {};

TEST_P(ASingleValue, IsTheTextOfTheFirstNode) {
  ParsedDocument document(GetParam().text);
  EXPECT_EQ(GetParam().expected, document.GetSingleValue(GetParam().path, nullptr));
}

TEST_P(ASingleValue, IsWhatItsNodeGives) {
  ParsedDocument document(GetParam().text);
  const tests::NodePtr node = tests::First(document, GetParam().path);
  EXPECT_EQ(GetParam().expected, node ? node->GetValue() : std::string());
}

INSTANTIATE_TEST_SUITE_P(Rows, ASingleValue, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(MultipleValues, AreTheTextsInDocumentOrder) {
  ParsedDocument document("<a><b>1</b><c><b>2</b></c><b>3</b></a>");
  EXPECT_THAT(document.GetMultipleValues("//b"), ElementsAre("1", "2", "3"));
  EXPECT_THAT(document.GetMultipleValues("c/b | b"), ElementsAre("1", "2", "3"));
}

TEST(MultipleValues, SkipEmptyTexts) {
  ParsedDocument document("<a><b>a</b><b/><b>b</b></a>");
  EXPECT_THAT(document.GetMultipleValues("b"), ElementsAre("a", "b"));
}

TEST(MultipleValues, AreNoneIfAllTextsAreEmpty) {
  ParsedDocument document("<a><b/><b><c>1</c></b></a>");
  EXPECT_THAT(document.GetMultipleValues("b"), IsEmpty());
}

TEST(MultipleValues, KeepBlankTexts) {
  ParsedDocument document("<a><b> </b><b>x</b></a>");
  EXPECT_THAT(document.GetMultipleValues("b"), ElementsAre(" ", "x"));
}

TEST(MultipleValues, KeepRepeatedTexts) {
  ParsedDocument document("<a><b>x</b><b>x</b></a>");
  EXPECT_THAT(document.GetMultipleValues("b"), ElementsAre("x", "x"));
}

TEST(MultipleValues, MixElementsAndAttributes) {
  ParsedDocument document("<a><b x='1'>2</b><b x=''>3</b></a>");
  EXPECT_THAT(document.GetMultipleValues("b | b/@x"), ElementsAre("2", "1", "3"));
}

TEST(MultipleValues, AreNoneIfNothingIsSelected) {
  ParsedDocument document("<a/>");
  EXPECT_THAT(document.GetMultipleValues("b"), IsEmpty());
}

TEST(MultipleValues, AreNoneOfTextNodes) {
  ParsedDocument document("<a>1<b/>2</a>");
  EXPECT_THAT(document.GetMultipleValues("text()"), IsEmpty());
}

TEST(Values, AreCopiesThatOutliveTheDocument) {
  ParsedDocument document("<a><b>text</b></a>");
  const std::string single = document.GetSingleValue("b", nullptr);
  const std::vector<std::string> multiple = document.GetMultipleValues("b");
  document.Close();
  EXPECT_EQ("text", single);
  EXPECT_THAT(multiple, ElementsAre("text"));
}

}  // namespace
}  // namespace analytics
