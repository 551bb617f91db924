#include <analytics/Text.h>

#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

using testing::SizeIs;
using text::IsQueryItemName;
using text::IsQueryType;
using text::IsXmlText;

struct Row {
  const char* name;
  std::string text;
  bool isXml;
  bool isForQueries;  // as a type and as an item's name
};

const Row kRows[] = {
    {"Empty", "", true, true},
    {"Words", "Line Crossing, left", true, true},
    {"FirstOfTwoBytes", "\xC2\x80", true, false},  // a control character
    {"NextLine", "\xC2\x85", true, false},
    {"LastOfTheC1Controls", "\xC2\x9F", true, false},
    {"NoBreakSpace", "\xC2\xA0", true, true},
    {"Umlaut", "\xC3\xA4", true, true},
    {"LastOfTwoBytes", "\xDF\xBF", true, true},
    {"FirstOfThreeBytes", "\xE0\xA0\x80", true, true},
    {"LineSeparator", "\xE2\x80\xA8", true, true},
    {"LastBeforeTheSurrogates", "\xED\x9F\xBF", true, true},
    {"FirstAfterTheSurrogates", "\xEE\x80\x80", true, true},
    {"ByteOrderMark", "\xEF\xBB\xBF", true, true},
    {"ReplacementCharacter", "\xEF\xBF\xBD", true, true},
    {"FirstOfFourBytes", "\xF0\x90\x80\x80", true, true},
    {"Face", "\xF0\x9F\x98\x80", true, true},
    {"NonCharacterOfAHigherPlane", "\xF0\x9F\xBF\xBE", true, true},
    {"Greatest", "\xF4\x8F\xBF\xBF", true, true},
    {"NonCharacterFFFE", "\xEF\xBF\xBE", false, false},
    {"NonCharacterFFFF", "\xEF\xBF\xBF", false, false},
    {"FirstSurrogate", "\xED\xA0\x80", false, false},
    {"LastSurrogate", "\xED\xBF\xBF", false, false},
    {"PairOfSurrogates", "\xED\xA0\xBD\xED\xB8\x80", false, false},
    {"BeyondTheGreatest", "\xF4\x90\x80\x80", false, false},
    {"LeadingByteF5", "\xF5\x80\x80\x80", false, false},
    {"FiveBytes", "\xF8\x88\x80\x80\x80", false, false},
    {"LeadingByteFE", "\xFE", false, false},
    {"LeadingByteFF", "\xFF", false, false},
    {"FirstContinuationAlone", "\x80", false, false},
    {"LastContinuationAlone", "\xBF", false, false},
    {"ContinuationAfterACharacter", "\xC3\xA4\xA4", false, false},
    {"NulInTwoBytes", "\xC0\x80", false, false},
    {"AsciiInTwoBytes", "\xC1\xBF", false, false},
    {"NulInThreeBytes", "\xE0\x80\x80", false, false},
    {"TwoBytesInThree", "\xE0\x9F\xBF", false, false},
    {"NulInFourBytes", "\xF0\x80\x80\x80", false, false},
    {"ThreeBytesInFour", "\xF0\x82\x82\xAC", false, false},
    {"GreatestThreeBytesInFour", "\xF0\x8F\xBF\xBF", false, false},
    {"OneOfTwoBytes", "\xC3", false, false},
    {"TwoOfThreeBytes", "\xE2\x82", false, false},
    {"ThreeOfFourBytes", "\xF0\x9F\x98", false, false},
    {"LetterAsSecondByte", "\xC3x", false, false},
    {"LeadingByteAsSecondByte", "\xC3\xC3\xA4", false, false},
    {"LetterAsThirdByte", "\xE2\x82x", false, false},
    {"LetterAsFourthByte", "\xF0\x9F\x98x", false, false},
    {"Latin1", "caf\xE9", false, false},
    {"Nul", std::string("\0", 1), false, false},
    {"NulInside", std::string("x\0y", 3), false, false},
    {"NulInsideACharacter", std::string("\xC3\0", 2), false, false},
};

/// Two elements, one named by a text and the other almost so, of which queries find just the first.
void ExpectSelectsJustItself(const std::string& text) {
  ParsedDocument document("<r><a/><a/></r>");
  NodeAt(document, "a[1]").SetProperty("n", text);
  NodeAt(document, "a[2]").SetProperty("n", text + "x");
  if (IsQueryType(text)) {
    EXPECT_THAT(tests::All(document, "a[@n=\"" + text + "\"]"), SizeIs(1));
  }
  if (IsQueryItemName(text)) {
    EXPECT_THAT(tests::All(document, "a[@n='" + text + "']"), SizeIs(1));
  }
}

class AText : public testing::TestWithParam<Row> {};

TEST_P(AText, IsXmlAsTheTableSays) { EXPECT_EQ(GetParam().isXml, IsXmlText(GetParam().text)); }

TEST_P(AText, IsJudgedWhereverTheCharacterStands) {
  EXPECT_EQ(GetParam().isXml, IsXmlText("before" + GetParam().text));
  EXPECT_EQ(GetParam().isXml, IsXmlText(GetParam().text + "after"));
}

TEST_P(AText, IsForQueriesAsTheTableSays) {
  EXPECT_EQ(GetParam().isForQueries, IsQueryType(GetParam().text));
  EXPECT_EQ(GetParam().isForQueries, IsQueryItemName(GetParam().text));
  EXPECT_EQ(GetParam().isForQueries, IsQueryType("Type" + GetParam().text));
  EXPECT_EQ(GetParam().isForQueries, IsQueryItemName("Name" + GetParam().text));
}

TEST_P(AText, ThatQueriesTakeSelectsJustItself) { ExpectSelectsJustItself(GetParam().text); }

INSTANTIATE_TEST_SUITE_P(Rows, AText, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

/// Each character of ASCII.
class AnAsciiCharacter : public testing::TestWithParam<int> {
 protected:
  const std::string m_text = std::string(1, static_cast<char>(GetParam()));
  const bool m_isControl = GetParam() < 0x20 || GetParam() == 0x7F;
};

TEST_P(AnAsciiCharacter, IsXmlUnlessItIsAControlCharacterOtherThanTabAndLineBreaks) {
  const bool isBelowTheBlank = GetParam() < 0x20;
  const bool isWhiteSpace = m_text == "\t" || m_text == "\n" || m_text == "\r";
  EXPECT_EQ(!isBelowTheBlank || isWhiteSpace, IsXmlText(m_text));
}

TEST_P(AnAsciiCharacter, MayStandInATypeUnlessItIsADoubleQuoteOrControlCharacter) {
  EXPECT_EQ(!m_isControl && m_text != "\"", IsQueryType(m_text));
}

TEST_P(AnAsciiCharacter, MayStandInAnItemsNameUnlessItIsASingleQuoteOrControlCharacter) {
  EXPECT_EQ(!m_isControl && m_text != "'", IsQueryItemName(m_text));
}

TEST_P(AnAsciiCharacter, ThatQueriesTakeSelectsJustItself) { ExpectSelectsJustItself(m_text); }

INSTANTIATE_TEST_SUITE_P(All, AnAsciiCharacter, testing::Range(0, 0x80));

}  // namespace
}  // namespace analytics
