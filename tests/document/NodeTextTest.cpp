#include <string>

#include <gmock/gmock.h>

#include "tests/document/FreedNodes.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/XmlErrors.h"
#include "tests/support/XmlVersion.h"

namespace analytics {
namespace {

struct Row {
  const char* name;
  std::string value;
  const char* dump;  // of the node
  const char* text;  // read back
};

const Row kRows[] = {
    {"Plain", "text", "<a>text</a>", "text"},
    {"Empty", "", "<a/>", ""},
    {"Blank", " \n", "<a> \n</a>", " \n"},
    {"Utf8", "\xC3\xA9", "<a>\xC3\xA9</a>", "\xC3\xA9"},
    {"AngleBrackets", "<b/> > c", "<a>&lt;b/&gt; &gt; c</a>", "<b/> > c"},
    {"Quotes", "\"'", "<a>\"'</a>", "\"'"},
    {"PredefinedEntities", "1 &amp; 2 &lt; 3", "<a>1 &amp; 2 &lt; 3</a>", "1 & 2 < 3"},
    {"CharacterReferences", "&#65;&#x42;", "<a>AB</a>", "AB"},
    {"EntityOfTheDocument", "1&e;2", "<a>1&e;2</a>", "1x2"},
    {"UnknownEntity", "1&nosuch;2", "<a>1&nosuch;2</a>", "12"},
    {"UpToTheFirstNul", std::string("x\0y", 3), "<a>x</a>", "x"},
    {"LeadingNul", std::string("\0y", 2), "<a/>", ""},
};

class ASetText : public testing::TestWithParam<Row> {
 protected:
  ParsedDocument m_document{"<!DOCTYPE r [<!ENTITY e 'x'>]><r><a>old<b>text</b></a></r>"};
  DocumentNode m_node = NodeAt(m_document, "a");
};

TEST_P(ASetText, ReplacesAllChildrenAndIsTakenUnescaped) {
  m_node.SetValue(GetParam().value);
  EXPECT_EQ(GetParam().dump, m_node.DumpToString());
}

TEST_P(ASetText, IsReadBack) {
  m_node.SetValue(GetParam().value);
  EXPECT_EQ(GetParam().text, m_node.GetValue());
  EXPECT_EQ(GetParam().text, m_document.GetSingleValue("a", nullptr));
}

INSTANTIATE_TEST_SUITE_P(Rows, ASetText, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

class ANodesText : public testing::Test {
 protected:
  ParsedDocument m_document{"<r><a x='1'>one<b><c/></b>two</a><n>7</n></r>"};
  DocumentNode m_node = NodeAt(m_document, "a");
};

TEST_F(ANodesText, IsItsOwnWithoutThatOfChildElements) { EXPECT_EQ("onetwo", m_node.GetValue()); }

TEST_F(ANodesText, FreesTheFormerChildrenWhenItIsSet) {
  const void* const element = NodeAt(m_document, "a/b").Handle();
  const FreedNodes freed;
  m_node.SetValue("text");
  EXPECT_EQ(1, freed.Count(element));
}

TEST_F(ANodesText, LeavesAttributesWhenItIsSet) {
  m_node.SetValue("text");
  EXPECT_EQ("<a x=\"1\">text</a>", m_node.DumpToString());
}

TEST_F(ANodesText, LeavesNoChildrenWhenItIsSetEmpty) {
  m_node.SetValue("");
  EXPECT_EQ("<a x=\"1\"/>", m_node.DumpToString());
}

TEST_F(ANodesText, LosesAnAmpersandThatStartsNoReferenceOrIsLostWithIt) {
  const tests::XmlErrors errors;
  m_node.SetValue("1 & 2");
  const bool isEmptied = tests::kXmlEmptiesTextAtAmpersand;
  EXPECT_EQ(isEmptied ? "<a x=\"1\"/>" : "<a x=\"1\">1  2</a>", m_node.DumpToString());
  EXPECT_EQ(isEmptied, !errors.Codes().empty());
}

TEST_F(ANodesText, IsANumber) {
  EXPECT_EQ(7, NodeAt(m_document, "n").GetValue(3));
  m_node.SetValue(-42);
  EXPECT_EQ("-42", m_node.GetValue());
  EXPECT_EQ(-42, m_node.GetValue(0));
}

TEST_F(ANodesText, IsTheDefaultNumberIfItIsEmptyOrBlank) {
  m_node.SetValue("");
  EXPECT_EQ(7, m_node.GetValue(7));
  m_node.SetValue(" ");
  EXPECT_EQ(7, m_node.GetValue(7));
}

TEST_F(ANodesText, OfAnAttributeIsItsValue) {
  DocumentNode attribute = NodeAt(m_document, "a/@x");
  EXPECT_EQ("1", attribute.GetValue());
  EXPECT_EQ(1, attribute.GetValue(7));
}

TEST_F(ANodesText, OfAnAttributeIsSet) {
  NodeAt(m_document, "a/@x").SetValue("2");
  EXPECT_EQ("2", m_node.GetProperty("x"));
  NodeAt(m_document, "a/@x").SetValue(3);
  EXPECT_EQ("3", m_node.GetProperty("x"));
}

TEST_F(ANodesText, OfATextNodeReadsAsEmptyButIsSet) {
  DocumentNode text = NodeAt(m_document, "n/text()");
  EXPECT_EQ("", text.GetValue());
  text.SetValue("8");
  EXPECT_EQ("<n>8</n>", NodeAt(m_document, "n").DumpToString());
}

TEST_F(ANodesText, OfACommentOrInstructionIsTakenAsItIs) {
  ParsedDocument document("<r><!--x--><?p x?></r>");
  NodeAt(document, "comment()").SetValue("1 & 2 &amp;");
  NodeAt(document, "processing-instruction()").SetValue("3 & 4 &amp;");
  EXPECT_EQ("<r><!--1 & 2 &amp;--><?p 3 & 4 &amp;?></r>", RootDump(document));
}

TEST_F(ANodesText, OfATextNodeIsTakenAsItIs) {
  NodeAt(m_document, "n/text()").SetValue("1 & 2 &amp;");
  EXPECT_EQ("1 & 2 &amp;", NodeAt(m_document, "n").GetValue());
}

TEST_F(ANodesText, OfTheDocumentNodeIsNotSet) {
  const std::string before = RootDump(m_document);
  NodeAt(m_document, "/").SetValue("text");
  EXPECT_EQ(before, RootDump(m_document));
}

}  // namespace
}  // namespace analytics
