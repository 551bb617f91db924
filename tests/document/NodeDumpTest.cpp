#include <string>

#include <gtest/gtest.h>

#include "tests/document/Indentation.h"
#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

struct Row {
  const char* name;
  std::string text;  // of the document
  const char* path;
  const char* expected;
};

const Row kRows[] = {
    {"OneLineForAnElement", "<r><a x='1'>text</a></r>", "a", "<a x=\"1\">text</a>"},
    {"NoIndentationAdded", "<r><a><b/><c><d/></c></a></r>", "a", "<a><b/><c><d/></c></a>"},
    {"BlanksAsTheTreeHoldsThem", "<r><a>\n <b/>\n</a></r>", "a", "<a>\n <b/>\n</a>"},
    {"TheRootElementWithoutDeclaration", "<?xml version='1.0'?><r/>", "/r", "<r/>"},
    {"TheDocumentNodeWithDeclaration", "<r><a/></r>", "/",
     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r><a/></r>\n"},
    {"AnAttributeWithABlankBefore", "<r x='1'/>", "@x", " x=\"1\""},
    {"AnAttributeOfANamespace", "<r xmlns:p='urn:p' p:x='1'/>", "@*", " p:x=\"1\""},
    {"ATextEscaped", "<r>1 &lt; 2</r>", "text()", "1 &lt; 2"},
    {"AComment", "<r><!--note--></r>", "comment()", "<!--note-->"},
    {"CharacterData", "<r><a><![CDATA[<x>]]></a></r>", "a", "<a><![CDATA[<x>]]></a>"},
    {"EntityReferences", "<!DOCTYPE r [<!ENTITY e 'x'>]><r>1&e;2</r>", "/r", "<r>1&e;2</r>"},
    {"DeclarationsOfTheNodeOnly", "<r xmlns:p='urn:p'><p:a xmlns:q='urn:q'/></r>", "*",
     "<p:a xmlns:q=\"urn:q\"/>"},
    {"Utf8WhateverTheEncoding", "<?xml version='1.0' encoding='ISO-8859-1'?><r>\xE9</r>", "/r",
     "<r>\xC3\xA9</r>"},
    {"Utf8EvenForUtf16", Utf16("<?xml version='1.0' encoding='UTF-16'?><r>x</r>"), "/r",
     "<r>x</r>"},
};

class ADumpedNode : public testing::TestWithParam<Row> {};

TEST_P(ADumpedNode, HasExactlyTheseBytes) {
  ParsedDocument document(GetParam().text);
  EXPECT_EQ(GetParam().expected, NodeAt(document, GetParam().path).DumpToString());
}

INSTANTIATE_TEST_SUITE_P(Rows, ADumpedNode, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(ANodeDump, IsUnindentedWhateverTheProcessWideSwitch) {
  ParsedDocument document("<r><a><b/></a></r>");
  for (const int indents : {0, 1}) {
    const Indentation indentation(indents);
    EXPECT_EQ("<r><a><b/></a></r>", NodeAt(document, "/r").DumpToString());
    EXPECT_EQ(indents, Indentation::Current());
  }
}

TEST(ANodeDump, IsLong) {
  const std::string text(100000, 'x');
  ParsedDocument document("<r>" + text + "</r>");
  EXPECT_EQ("<r>" + text + "</r>", RootDump(document));
}

}  // namespace
}  // namespace analytics
