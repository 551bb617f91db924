#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::Properties;

/// How one type in a profile, written as an attribute's text, answers one filter.
struct Row {
  const char* name;
  const char* type;
  const char* filter;
  bool matches;
};

const Row kRows[] = {
    {"SameText", "tt:LineDetector", "tt:LineDetector", true},
    {"OtherCase", "Line", "line", false},
    {"FilterIsAPrefix", "LineDetector", "Line", false},
    {"FilterIsLonger", "Line", "LineDetector", false},
    {"BlankBefore", " Line", "Line", false},
    {"BlankBehind", "Line ", "Line", false},
    {"SameBlanks", " Line ", " Line ", true},
    {"OneBlank", " ", " ", true},
    {"SingleQuote", "O&apos;Brien", "O'Brien", true},
    {"TwoSingleQuotes", "&apos;A&apos;", "'A'", true},
    {"DoubleQuote", "A&quot;", "A\"", false},
    {"TwoDoubleQuotes", "&quot;A&quot;", "\"A\"", false},
    {"BothQuotes", "&apos;&quot;", "'\"", false},
    {"Ampersand", "A&amp;B", "A&B", true},
    {"EntityIsNotDecoded", "A&amp;B", "A&amp;B", false},
    {"AngleBracket", "A&lt;B", "A<B", true},
    {"SquareBracket", "A]", "A]", true},
    {"Asterisk", "Line", "*", false},
    {"NotAscii", "Z\xc3\xa4hler", "Z\xc3\xa4hler", true},
    {"LineBreak", "A&#10;B", "A\nB", true},
    {"EmptyFilterAnyType", "Line", "", true},
    {"EmptyFilterEmptyType", "", "", true},
};

class ATypeFilter : public tests::ProfileTest, public testing::WithParamInterface<Row> {};

TEST_P(ATypeFilter, ComparesExactly) {
  Parse("<tt:rule Type='" + std::string(GetParam().type) + "'/>");
  const tests::NodePtr rule(m_profile.SelectRule(GetParam().filter));
  EXPECT_EQ(GetParam().matches, rule != nullptr);
}

INSTANTIATE_TEST_SUITE_P(Rows, ATypeFilter, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

using ATypeInAQuery = tests::ProfileTest;

TEST_F(ATypeInAQuery, IsPutInWithoutEscaping) {
  Parse("<tt:rule Type='A'/><tt:rule Type='B'/><tt:rule Type='C'/>");
  EXPECT_THAT(Properties(m_profile.SelectRules("A\" or @Type=\"C"), "Type"), ElementsAre("A", "C"));
}

TEST_F(ATypeInAQuery, StandsInDoubleQuotesSoSingleQuotesCannotLeaveIt) {
  Parse("<tt:rule Type='A'/><tt:rule Type='C'/>");
  EXPECT_THAT(Properties(m_profile.SelectRules("A' or @Type='C"), "Type"), IsEmpty());
}

TEST_F(ATypeInAQuery, CutsTheQueryAtItsFirstNul) {
  Parse("<tt:rule Type='A'/>");
  EXPECT_THAT(Properties(m_profile.SelectRules(std::string("A\0", 2)), "Type"), IsEmpty());
  EXPECT_THAT(Properties(m_profile.SelectRules(std::string("A\"]\0", 4)), "Type"),
              ElementsAre("A"));
}

TEST_F(ATypeInAQuery, MayBeVeryLong) {
  const std::string type(100000, 'x');
  Parse("<tt:rule Type='" + type + "y'/><tt:rule Type='" + type + "'/>");
  EXPECT_THAT(Properties(m_profile.SelectRules(type), "Type"), ElementsAre(type));
}

}  // namespace
}  // namespace analytics
