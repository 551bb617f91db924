#include "input/XmlText.h"

#include <string>

#include <gtest/gtest.h>

using settingsctl::FitForXml;
using settingsctl::ProblemInXml;

namespace {

struct Row {
  const char* name;  // names the row in the report
  const char* text;
  std::string problem;  // empty for a text that XML can hold
  const char* fit;
};

std::string Forbidden(const char* place, const char* code) {
  return std::string("byte ") + place + " of the value starts " + code +
         ", which no XML file can hold; leave that character out";
}

std::string NoUtf8(const char* place, const char* byte) {
  return std::string("byte ") + place + " of the value, " + byte +
         ", is no UTF-8; write the value in UTF-8";
}

const Row kRows[] = {
    {"Empty", "", "", ""},
    {"Plain", "a <&\"'> b", "", "a <&\"'> b"},
    {"TabAndLineBreaks", "\t\n\r", "", "\t\n\r"},
    {"LettersOfTwoToFourBytes", "\u00e9\u20ac\U0001F600", "", "\u00e9\u20ac\U0001F600"},
    {"LastBeforeSurrogates", "\uD7FF", "", "\uD7FF"},
    {"FirstAfterSurrogates", "\uE000", "", "\uE000"},
    {"LastOfTwoBytesPlane", "\uFFFD", "", "\uFFFD"},
    {"LastOfAll", "\U0010FFFF", "", "\U0010FFFF"},
    {"Control", "a\x01", Forbidden("2", "U+0001"), "a\uFFFD"},
    {"Escape", "\x1b[1m", Forbidden("1", "U+001B"), "\uFFFD[1m"},
    {"BehindTwoBytes", "\u00e9\x1f", Forbidden("3", "U+001F"), "\u00e9\uFFFD"},
    {"FFFE", "\xEF\xBF\xBE", Forbidden("1", "U+FFFE"), "\uFFFD"},
    {"FFFF", "a\xEF\xBF\xBF!", Forbidden("2", "U+FFFF"), "a\uFFFD!"},
    {"FirstSurrogate", "\xED\xA0\x80", NoUtf8("1", "0xED"), "\uFFFD\uFFFD\uFFFD"},
    {"LastSurrogate", "\xED\xBF\xBF", NoUtf8("1", "0xED"), "\uFFFD\uFFFD\uFFFD"},
    {"BeyondAll", "\xF4\x90\x80\x80", NoUtf8("1", "0xF4"), "\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"NoFirstByte", "a\x80", NoUtf8("2", "0x80"), "a\uFFFD"},
    {"NoFirstByteBeforeAnother", "\x82\x80", NoUtf8("1", "0x82"), "\uFFFD\uFFFD"},
    {"NeverInUtf8", "\xFF", NoUtf8("1", "0xFF"), "\uFFFD"},
    {"CutOff", "\xE2\x82", NoUtf8("1", "0xE2"), "\uFFFD\uFFFD"},
    {"LongFormOfASlash", "\xC0\xAF", NoUtf8("1", "0xC0"), "\uFFFD\uFFFD"},
    {"LongFormOfThreeBytes", "\xE0\x82\x80", NoUtf8("1", "0xE0"), "\uFFFD\uFFFD\uFFFD"},
    {"LongFormOfFourBytes", "\xF0\x82\x82\xAC", NoUtf8("1", "0xF0"), "\uFFFD\uFFFD\uFFFD\uFFFD"}};

class AText : public testing::TestWithParam<Row> {};

TEST_P(AText, IsRefusedForTheFirstThingThatNoXmlFileCanHold) {
  EXPECT_EQ(GetParam().problem, ProblemInXml(GetParam().text));
}

TEST_P(AText, FitsIntoXmlWithMarksInPlaceOfSuchThings) {
  EXPECT_EQ(GetParam().fit, FitForXml(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Rows, AText, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

}  // namespace
