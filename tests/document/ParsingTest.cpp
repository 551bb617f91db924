#include <climits>
#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ParsingText : public testing::Test {
 protected:
  bool IsOpen() { return tests::NodePtr(m_document.SelectRootNode()) != nullptr; }

  Document m_document;
  const tests::XmlErrors m_errors;
};

TEST_F(ParsingText, OpensTheDocument) {
  EXPECT_TRUE(m_document.ParseString("<a>text</a>"));
  EXPECT_EQ("text", m_document.GetSingleValue("/a", nullptr));
  EXPECT_THAT(m_errors.Codes(), IsEmpty());
}

TEST_F(ParsingText, MakesTheSearchContext) {
  ASSERT_TRUE(m_document.ParseString("<a><b/></a>"));
  EXPECT_THAT(Dumps(m_document, "b"), ElementsAre("<b/>"));
}

struct IllFormed {
  const char* name;
  const char* text;
};

const IllFormed kIllFormed[] = {
    {"Empty", ""},
    {"Blank", "  \n"},
    {"PlainText", "text"},
    {"UnclosedElement", "<a><b></a>"},
    {"EndMissing", "<a>"},
    {"TwoRoots", "<a/><b/>"},
    {"TextAfterTheRoot", "<a/>text"},
    {"BareAmpersand", "<a>1 & 2</a>"},
    {"UndeclaredEntity", "<a>&nosuch;</a>"},
    {"UnquotedAttribute", "<a x=1/>"},
    {"RepeatedAttribute", "<a x='1' x='2'/>"},
    {"BytesThatAreNotUtf8", "<a>\xFF\xFE</a>"},
    {"DeclarationNotAtTheStart", " <?xml version='1.0'?><a/>"},
    {"UnknownEncoding", "<?xml version='1.0' encoding='no-such-encoding'?><a/>"},
    {"LabelledUtf16", "<?xml version='1.0' encoding='UTF-16'?><a>\xC3\xA9"},
};

class IllFormedText : public testing::TestWithParam<IllFormed> {};

TEST_P(IllFormedText, IsRefusedAndReported) {
  const tests::XmlErrors errors;
  Document document;
  EXPECT_FALSE(document.ParseString(GetParam().text));
  EXPECT_FALSE(tests::NodePtr(document.SelectRootNode()));
  const std::string text(GetParam().text);
  if (!text.empty()) {
    EXPECT_THAT(errors.Codes(), Not(IsEmpty()));
  }
}

TEST_P(IllFormedText, ClosesTheFormerDocument) {
  const tests::XmlErrors quiet;
  ParsedDocument document("<former>text</former>");
  EXPECT_FALSE(document.ParseString(GetParam().text));
  EXPECT_FALSE(tests::NodePtr(document.SelectRootNode()));
  EXPECT_EQ("", document.GetSingleValue("/former", nullptr));
}

INSTANTIATE_TEST_SUITE_P(Rows, IllFormedText, testing::ValuesIn(kIllFormed),
                         [](const auto& row) { return row.param.name; });

TEST_F(ParsingText, ReplacesTheFormerDocument) {
  ASSERT_TRUE(m_document.ParseString("<a>first</a>"));
  ASSERT_TRUE(m_document.ParseString("<b>second</b>"));
  EXPECT_EQ("", m_document.GetSingleValue("/a", nullptr));
  EXPECT_EQ("second", m_document.GetSingleValue("/b", nullptr));
}

TEST_F(ParsingText, WorksAgainAfterAFailure) {
  ASSERT_FALSE(m_document.ParseString("<a>"));
  ASSERT_TRUE(m_document.ParseString("<a>text</a>"));
  EXPECT_EQ("text", m_document.GetSingleValue("/a", nullptr));
}

TEST_F(ParsingText, TakesAllBytesOfAStringNotOnlyThoseBeforeANul) {
  ASSERT_TRUE(m_document.ParseString(Utf16("<a>x</a>")));
  EXPECT_EQ("x", m_document.GetSingleValue("/a", nullptr));
}

TEST_F(ParsingText, RefusesANulInsideTheRootElement) {
  EXPECT_FALSE(m_document.ParseString(std::string("<a>x\0y</a>", 10)));
  EXPECT_FALSE(IsOpen());
}

TEST_F(ParsingText, ReadsTheDeclaredEncoding) {
  ASSERT_TRUE(m_document.ParseString("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>"));
  EXPECT_EQ("\xC3\xA9", m_document.GetSingleValue("/a", nullptr));
}

TEST_F(ParsingText, SkipsAByteOrderMark) {
  ASSERT_TRUE(m_document.ParseString("\xEF\xBB\xBF<a>\xC3\xA9</a>"));
  EXPECT_EQ("\xC3\xA9", m_document.GetSingleValue("/a", nullptr));
}

TEST_F(ParsingText, TakesNoMoreThanTheLengthFromABuffer) {
  const char text[] = "<a>text</a><b>what follows";
  ASSERT_TRUE(m_document.ParseString(text, 11));
  EXPECT_EQ("text", m_document.GetSingleValue("/a", nullptr));
}

TEST_F(ParsingText, RefusesABufferThatIsCutShort) {
  EXPECT_FALSE(m_document.ParseString("<a>text</a>", 10));
  EXPECT_FALSE(IsOpen());
}

TEST_F(ParsingText, RefusesALengthOfZero) {
  ASSERT_TRUE(m_document.ParseString("<former/>"));
  EXPECT_FALSE(m_document.ParseString("<a/>", 0));
  EXPECT_FALSE(IsOpen());
}

TEST_F(ParsingText, RefusesANullBufferOfNoLength) {
  ASSERT_TRUE(m_document.ParseString("<former/>"));
  EXPECT_FALSE(m_document.ParseString(nullptr, 0));
  EXPECT_FALSE(IsOpen());
}

struct TooLong {
  const char* name;
  unsigned long length;
};

const unsigned long kTooMuch = static_cast<unsigned long>(INT_MAX) + 1;

// Lengths of which libxml2, which takes an int, would see something else: a negative one, none at
// all, or the four bytes that are there.
const TooLong kTooLong[] = {
    {"OneTooMany", kTooMuch},
#if ULONG_MAX > UINT_MAX
    {"ZeroAsAnInt", 2 * kTooMuch},
    {"FourAsAnInt", 2 * kTooMuch + 4},
#endif
    {"Greatest", ULONG_MAX},
};

class ATextLongerThanIntMax : public testing::TestWithParam<TooLong> {};

TEST_P(ATextLongerThanIntMax, IsRefusedUnreadAndClosesTheDocument) {
  ParsedDocument document("<former/>");
  EXPECT_FALSE(document.ParseString("<a/>", GetParam().length));
  EXPECT_FALSE(tests::NodePtr(document.SelectRootNode()));
}

INSTANTIATE_TEST_SUITE_P(Rows, ATextLongerThanIntMax, testing::ValuesIn(kTooLong),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace analytics
