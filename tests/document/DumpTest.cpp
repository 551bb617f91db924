#include <string>

#include <gtest/gtest.h>

#include "tests/document/Indentation.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/FailingXmlMemory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

struct Row {
  const char* name;
  std::string text;
  std::string expected;
};

const Row kRows[] = {
    {"OneElement", "<a/>", "<?xml version=\"1.0\"?>\n<a/>\n"},
    {"IndentedByTwoBlanks", "<a><b><c x='1'/></b><d/></a>",
     "<?xml version=\"1.0\"?>\n<a>\n  <b>\n    <c x=\"1\"/>\n  </b>\n  <d/>\n</a>\n"},
    {"TextsAsTheyAre", "<a><b>text</b></a>", "<?xml version=\"1.0\"?>\n<a>\n  <b>text</b>\n</a>\n"},
    {"MixedContentUntouched", "<a>1<b><c/></b></a>",
     "<?xml version=\"1.0\"?>\n<a>1<b><c/></b></a>\n"},
    {"BlanksOfTheTextKept", "<a> <b><c/></b> </a>",
     "<?xml version=\"1.0\"?>\n<a> <b><c/></b> </a>\n"},
    {"NodesAroundTheRoot", "<!--1--><a/><?p 2?>",
     "<?xml version=\"1.0\"?>\n<!--1-->\n<a/>\n<?p 2?>\n"},
    {"EscapesAsNeeded", "<a x='&quot;&lt;'>&lt;&amp;&gt;&quot;</a>",
     "<?xml version=\"1.0\"?>\n<a x=\"&quot;&lt;\">&lt;&amp;&gt;\"</a>\n"},
    {"StandaloneKept", "<?xml version='1.0' standalone='yes'?><a/>",
     "<?xml version=\"1.0\" standalone=\"yes\"?>\n<a/>\n"},
    {"ReferencesWithoutEncoding", "<a>\xC3\xA9</a>", "<?xml version=\"1.0\"?>\n<a>&#xE9;</a>\n"},
    {"NamesAndCommentsAsTheyAre", "<\xC3\xA4 \xC3\xB6='\xC3\xA9'><!--\xC3\xA9--></\xC3\xA4>",
     "<?xml version=\"1.0\"?>\n<\xC3\xA4 \xC3\xB6=\"&#xE9;\">\n  <!--\xC3\xA9-->\n</\xC3\xA4>\n"},
    {"Utf16ThatIsNotDeclared", Utf16("<a/>"), "<?xml version=\"1.0\"?>\n<a/>\n"},
    {"Utf8", "<?xml version='1.0' encoding='UTF-8'?><a>\xC3\xA9</a>",
     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\xC3\xA9</a>\n"},
    {"Latin1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9&#x20AC;</a>",
     "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xE9&#8364;</a>\n"},
    // In UTF-16 the second byte of "<" is NUL: the byte order mark and "<" are all there is.
    {"Utf16CutAtItsFirstNul", Utf16("<?xml version='1.0' encoding='UTF-16'?><a/>"), "\xFF\xFE<"},
};

class ADumpedDocument : public testing::TestWithParam<Row> {};

TEST_P(ADumpedDocument, HasExactlyTheseBytes) {
  ParsedDocument document(GetParam().text);
  EXPECT_EQ(GetParam().expected, document.DumpToString());
}

TEST_P(ADumpedDocument, IsNotChangedByTheDump) {
  ParsedDocument document(GetParam().text);
  document.DumpToString();
  EXPECT_EQ(GetParam().expected, document.DumpToString());
}

INSTANTIATE_TEST_SUITE_P(Rows, ADumpedDocument, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(AClosedDocument, IsDumpedAsEmptyText) {
  ParsedDocument document("<a/>");
  document.Close();
  EXPECT_EQ("", document.DumpToString());
  EXPECT_EQ("", Document().DumpToString());
}

TEST(ADump, ShowsChanges) {
  ParsedDocument document("<a><b/></a>");
  NodeAt(document, "b").SetValue("text");
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a>\n  <b>text</b>\n</a>\n", document.DumpToString());
}

TEST(ADump, IsParsedToTheSameDump) {
  ParsedDocument document("<a><b x='1'>text</b><c><d/></c></a>");
  const std::string text = document.DumpToString();
  EXPECT_EQ(text, ParsedDocument(text).DumpToString());
}

TEST(ADump, GivesBlanksToElementsWithoutTextOnceItIsParsedAgain) {
  ParsedDocument document("<a><b><c/></b></a>");
  EXPECT_EQ("", document.GetSingleValue("b", nullptr));
  ParsedDocument again(document.DumpToString());
  EXPECT_EQ("\n    \n  ", again.GetSingleValue("b", nullptr));
}

class TheIndentationSwitch : public testing::TestWithParam<int> {
 protected:
  ParsedDocument m_document{"<a><b/></a>"};
  const tests::XmlErrors m_quiet;
  const Indentation m_indentation{GetParam()};
};

TEST_P(TheIndentationSwitch, IsPutBackAfterADump) {
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a>\n  <b/>\n</a>\n", m_document.DumpToString());
  EXPECT_EQ(GetParam(), Indentation::Current());
}

TEST_P(TheIndentationSwitch, IsPutBackAfterADumpThatFailed) {
  const std::string text = [this] {
    const tests::NoXmlMemory exhausted;
    return m_document.DumpToString();
  }();
  EXPECT_EQ("", text);
  EXPECT_EQ(GetParam(), Indentation::Current());
}

TEST_P(TheIndentationSwitch, IsLeftAloneForAClosedDocument) {
  m_document.Close();
  EXPECT_EQ("", m_document.DumpToString());
  EXPECT_EQ(GetParam(), Indentation::Current());
}

INSTANTIATE_TEST_SUITE_P(OffAndOn, TheIndentationSwitch, testing::Values(0, 1),
                         [](const auto& row) { return row.param == 0 ? "Off" : "On"; });

}  // namespace
}  // namespace analytics
