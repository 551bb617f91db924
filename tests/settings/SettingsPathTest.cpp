#include <cstdlib>
#include <ostream>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/LoadMessages.h"
#include "tests/settings/ServedFile.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using tests::kBuiltInPath;

constexpr char kServed[] = "<settings><maxResource>4711</maxResource></settings>";

struct Row {
  const char* name;
  const char* variable;  // value of ANALYTICS_INI; null: not set
  const char* path;      // the file that is read
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kWords[] = {
    {"NotSet", nullptr, kBuiltInPath},
    {"Empty", "", kBuiltInPath},
    {"Blank", "  ", kBuiltInPath},
    {"Tabulator", "\t", kBuiltInPath},
    {"PlainPath", "/a/b.ini", "/a/b.ini"},
    {"RelativePath", "b.ini", "b.ini"},
    {"TwoWords", "/a.ini /b.ini", "/a.ini"},
    {"BlanksAround", "  /a.ini ", "/a.ini"},
    {"DoubleQuotes", "\"/a b.ini\"", "/a b.ini"},
    {"SingleQuotes", "'/a b.ini'", "/a b.ini"},
    {"QuotesInside", "/a' 'b.ini", "/a b.ini"},
    {"EscapedBlank", "/a\\ b.ini", "/a b.ini"},
    {"QuotedOperators", "'/a|&;<>(){}b.ini'", "/a|&;<>(){}b.ini"},
    {"EscapedOperator", "/a\\|b.ini", "/a|b.ini"},
    {"PatternWithoutMatch", "/nonexistent/*.ini", "/nonexistent/*.ini"},
};

const Row kExpansions[] = {
    {"Tilde", "~", "/home/tester"},
    {"TildeBeforePath", "~/b.ini", "/home/tester/b.ini"},
    {"TildeInsidePath", "/a/~/b.ini", "/a/~/b.ini"},
    {"QuotedTilde", "'~/b.ini'", "~/b.ini"},
    {"Variable", "$ELSEWHERE/b.ini", "/elsewhere/b.ini"},
    {"VariableInBraces", "${ELSEWHERE}/b.ini", "/elsewhere/b.ini"},
    {"VariableInDoubleQuotes", "\"$ELSEWHERE/b.ini\"", "/elsewhere/b.ini"},
    {"VariableInSingleQuotes", "'$ELSEWHERE/b.ini'", "$ELSEWHERE/b.ini"},
    {"VariableOfTwoWords", "$TWO_WORDS", "/one.ini"},
    {"QuotedVariableOfTwoWords", "\"$TWO_WORDS\"", "/one.ini /two.ini"},
    {"UndefinedVariable", "$UNDEFINED/b.ini", "/b.ini"},
    {"UndefinedVariableAlone", "$UNDEFINED", kBuiltInPath},
    {"UndefinedVariableWithDefault", "${UNDEFINED:-/a/b.ini}", "/a/b.ini"},
    {"Command", "$(echo /a/b.ini)", "/a/b.ini"},
    {"CommandInBackquotes", "`echo /a/b.ini`", "/a/b.ini"},
    {"CommandOfTwoWords", "$(echo /a.ini /b.ini)", "/a.ini"},
    {"CommandInSingleQuotes", "'$(echo /a/b.ini)'", "$(echo /a/b.ini)"},
    {"CommandWithoutOutput", "$(true)", kBuiltInPath},
    {"Arithmetic", "/a/$((1+2)).ini", "/a/3.ini"},
};

const Row kRejected[] = {
    {"UnbalancedDoubleQuote", "\"/a/b.ini", "\"/a/b.ini"},
    {"UnbalancedSingleQuote", "'/a/b.ini", "'/a/b.ini"},
    {"UnbalancedBrace", "${ELSEWHERE", "${ELSEWHERE"},
    {"UnbalancedCommand", "$(echo /a/b.ini", "$(echo /a/b.ini"},
    {"Pipe", "/a|b.ini", "/a|b.ini"},
    {"Ampersand", "/a&b.ini", "/a&b.ini"},
    {"Semicolon", "/a;b.ini", "/a;b.ini"},
    {"Less", "/a<b.ini", "/a<b.ini"},
    {"Greater", "/a>b.ini", "/a>b.ini"},
    {"OpenParenthesis", "/a(b.ini", "/a(b.ini"},
    {"ClosedParenthesis", "/a)b.ini", "/a)b.ini"},
    {"OpenBrace", "/a{b.ini", "/a{b.ini"},
    {"ClosedBrace", "/a}b.ini", "/a}b.ini"},
    {"Newline", "/a\nb.ini", "/a\nb.ini"},
    {"OperatorAfterExpansions", " ~/$ELSEWHERE b;", " ~/$ELSEWHERE b;"},
};

void SetEnvironment(const char* settingsPath) {
  setenv("HOME", "/home/tester", 1);
  setenv("ELSEWHERE", "/elsewhere", 1);
  setenv("TWO_WORDS", "/one.ini /two.ini", 1);
  unsetenv("UNDEFINED");
  unsetenv("IFS");
  unsetenv("ANALYTICS_INI");
  if (settingsPath) setenv("ANALYTICS_INI", settingsPath, 1);
}

class TheSettingsPath : public testing::TestWithParam<Row> {};

TEST_P(TheSettingsPath, IsTheFirstWordOrTheRawTextOfTheEnvironment) {
  tests::InFreshProcess([] {
    SetEnvironment(GetParam().variable);
    tests::ServeFile(GetParam().path, kServed);
    EXPECT_EQ(4711, Settings::MaxResource());
    EXPECT_EQ(tests::GoodLoad(GetParam().path), tests::CallsSoFar());
  });
}

TEST_P(TheSettingsPath, IsResolvedInTheSameWayForALoadOfNoPath) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", "/nonexistent/first.ini", 1);
    Settings::MaxResource();
    fakes::CallLog::Instance().Clear();
    SetEnvironment(GetParam().variable);
    tests::ServeFile(GetParam().path, kServed);
    EXPECT_TRUE(Settings::LoadSettings(""));
    EXPECT_EQ(4711, Settings::MaxResource());
    EXPECT_EQ(tests::GoodLoad(GetParam().path), tests::CallsSoFar());
  });
}

INSTANTIATE_TEST_SUITE_P(Words, TheSettingsPath, testing::ValuesIn(kWords),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Expansions, TheSettingsPath, testing::ValuesIn(kExpansions),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Rejected, TheSettingsPath, testing::ValuesIn(kRejected),
                         testing::PrintToStringParamName());

/// Commands in the variable that append a line to a file each time that they run.
class ACommandInTheSettingsPath : public testing::Test {
 protected:
  /// A command without output, followed by `rest`.
  std::string Command(const std::string& rest) const {
    return "$(echo run >> " + m_ran + ")" + rest;
  }

  std::string Ran() const { return tests::FileText(m_ran); }

 private:
  const tests::TemporaryDirectory m_directory;
  const std::string m_ran = m_directory.PathOf("ran");
};

TEST_F(ACommandInTheSettingsPath, RunsAtEachExpansion) {
  tests::InFreshProcess([this] {
    setenv("ANALYTICS_INI", Command("/nonexistent/a.ini").c_str(), 1);
    Settings::MaxResource();
    EXPECT_EQ("run\n", Ran());
    Settings::MaxResource();
    EXPECT_FALSE(Settings::LoadSettings("/nonexistent/b.ini"));
    EXPECT_EQ("run\n", Ran());
    EXPECT_FALSE(Settings::LoadSettings(""));
    EXPECT_EQ("run\nrun\n", Ran());
  });
}

TEST_F(ACommandInTheSettingsPath, RunsEvenIfTheExpansionThenFails) {
  tests::InFreshProcess([this] {
    const std::string path = Command("/nonexistent/a.ini;");
    setenv("ANALYTICS_INI", path.c_str(), 1);
    Settings::MaxResource();
    EXPECT_EQ("run\n", Ran());
    EXPECT_EQ(tests::FailedLoad(path), tests::CallsSoFar());
  });
}

TEST(APatternAsSettingsPath, NamesItsFirstMatch) {
  const tests::TemporaryDirectory directory;
  directory.Write("b.ini", "<settings><maxResource>2</maxResource></settings>");
  directory.Write("a.ini", "<settings><maxResource>1</maxResource></settings>");
  tests::InFreshProcess([&] {
    setenv("ANALYTICS_INI", directory.PathOf("*.ini").c_str(), 1);
    EXPECT_EQ(1, Settings::MaxResource());
    EXPECT_EQ(tests::GoodLoad(directory.PathOf("a.ini")), tests::CallsSoFar());
  });
}

}  // namespace
}  // namespace analytics
