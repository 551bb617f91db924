#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <unistd.h>

#include <analytics/Trace.h>

namespace analytics {
namespace {

/// Takes what the process writes to standard error, for a scope.
class StandardError {
 public:
  StandardError() : m_former(dup(STDERR_FILENO)), m_taken(std::tmpfile()) {
    std::fflush(stderr);
    dup2(fileno(m_taken), STDERR_FILENO);
  }
  ~StandardError() {
    dup2(m_former, STDERR_FILENO);
    close(m_former);
    std::fclose(m_taken);
  }

  StandardError(const StandardError&) = delete;
  StandardError& operator=(const StandardError&) = delete;

  /// All that has been written so far.
  std::string Text() const {
    std::fflush(stderr);
    std::string text(static_cast<std::size_t>(lseek(STDERR_FILENO, 0, SEEK_CUR)), '\0');
    const ssize_t length = pread(fileno(m_taken), text.data(), text.size(), 0);
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return text;
  }

 private:
  const int m_former;
  std::FILE* const m_taken;
};

class ATrace : public testing::Test {
 protected:
  ATrace() { unsetenv("ANALYTICS_TRACE"); }
  ~ATrace() override { setenv("ANALYTICS_TRACE", "0", 1); }

  Trace m_trace;
  const StandardError m_error;
};

TEST_F(ATrace, WritesAMessageAsOneLine) {
  m_trace("hello");
  EXPECT_EQ("analytics: hello\n", m_error.Text());
}

TEST_F(ATrace, WritesTheLevelOfAMessage) {
  m_trace(3, "hello");
  EXPECT_EQ("analytics[3]: hello\n", m_error.Text());
}

TEST_F(ATrace, WritesTheLevelZero) {
  m_trace(0, "hello");
  EXPECT_EQ("analytics[0]: hello\n", m_error.Text());
}

TEST_F(ATrace, WritesANegativeLevel) {
  m_trace(-1, "hello");
  EXPECT_EQ("analytics[-1]: hello\n", m_error.Text());
}

TEST_F(ATrace, PutsItsArgumentsIntoTheMessage) {
  m_trace("%s has %d of %3.0f%%", "item", 7, 2.0);
  EXPECT_EQ("analytics: item has 7 of   2%\n", m_error.Text());
}

TEST_F(ATrace, PutsItsArgumentsIntoAMessageWithALevel) {
  m_trace(2, "%s has %d", "item", 7);
  EXPECT_EQ("analytics[2]: item has 7\n", m_error.Text());
}

TEST_F(ATrace, DoesNotReadAnArgumentAsAFormat) {
  m_trace("%s", "%d%s%%");
  EXPECT_EQ("analytics: %d%s%%\n", m_error.Text());
}

TEST_F(ATrace, WritesSeveralMessagesInOrder) {
  m_trace("first");
  m_trace(1, "second");
  Trace()("third");
  EXPECT_EQ("analytics: first\nanalytics[1]: second\nanalytics: third\n", m_error.Text());
}

TEST_F(ATrace, WritesALongMessageWhole) {
  const std::string text(100000, 'x');
  m_trace("%s|", text.c_str());
  EXPECT_EQ("analytics: " + text + "|\n", m_error.Text());
}

TEST_F(ATrace, WritesTheFormatOfAMessageThatCannotBeFormatted) {
  const wchar_t noCharacter[] = {static_cast<wchar_t>(-1), 0};
  m_trace("a %ls\n", noCharacter);
  EXPECT_EQ("analytics: a %ls\n", m_error.Text());
}

TEST_F(ATrace, KeepsTheLinesOfThreadsApart) {
  const auto write = [&](int index) {
    for (int count = 0; count < 200; ++count) m_trace(index, "%s", std::string(200, 'x').c_str());
  };
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int index = 0; index < 4; ++index) threads.emplace_back(write, index);
  for (std::thread& thread : threads) thread.join();
  std::istringstream text(m_error.Text());
  std::vector<int> lines(4);
  for (std::string line; std::getline(text, line);) {
    ASSERT_EQ("]: " + std::string(200, 'x'), line.substr(11));
    ++lines.at(static_cast<std::size_t>(line.at(10) - '0'));
  }
  EXPECT_THAT(lines, testing::Each(200));
}

struct Line {
  const char* name;
  const char* message;
  const char* expected;
};

void PrintTo(const Line& line, std::ostream* out) { *out << line.name; }

const Line kLines[] = {
    {"WithoutBreak", "a", "analytics: a\n"},
    {"BreakAtTheEnd", "a\n", "analytics: a\n"},
    {"BreaksAtTheEnd", "a\n\n\n", "analytics: a\n"},
    {"BreakInside", "a\nb", "analytics: a b\n"},
    {"BreaksInside", "a\n\nb\nc", "analytics: a  b c\n"},
    {"BreakFirst", "\na", "analytics:  a\n"},
    {"BreaksEverywhere", "\na\nb\n", "analytics:  a b\n"},
    {"BlankBeforeBreak", "a \n", "analytics: a \n"},
    {"BreakBeforeBlankAtTheEnd", "a\n ", "analytics: a  \n"},
    {"Empty", "", "analytics: \n"},
    {"BreaksOnly", "\n\n", "analytics: \n"},
    {"OtherControlCharacters", "a\tb\r", "analytics: a\tb\r\n"},
};

class ATracedMessage : public ATrace, public testing::WithParamInterface<Line> {};

TEST_P(ATracedMessage, IsOneLineWhateverBreaksItHolds) {
  m_trace("%s", GetParam().message);
  EXPECT_EQ(GetParam().expected, m_error.Text());
}

INSTANTIATE_TEST_SUITE_P(Lines, ATracedMessage, testing::ValuesIn(kLines),
                         testing::PrintToStringParamName());

TEST_F(ATrace, IsSilencedByTheValueZero) {
  setenv("ANALYTICS_TRACE", "0", 1);
  m_trace("hello");
  m_trace(1, "hello");
  EXPECT_EQ("", m_error.Text());
}

TEST_F(ATrace, IsSilencedOnlyWhileTheValueIsZero) {
  setenv("ANALYTICS_TRACE", "0", 1);
  m_trace("first");
  setenv("ANALYTICS_TRACE", "1", 1);
  m_trace("second");
  EXPECT_EQ("analytics: second\n", m_error.Text());
}

class AnotherTraceSetting : public ATrace, public testing::WithParamInterface<const char*> {};

TEST_P(AnotherTraceSetting, SilencesNothing) {
  setenv("ANALYTICS_TRACE", GetParam(), 1);
  m_trace("hello");
  EXPECT_EQ("analytics: hello\n", m_error.Text());
}

INSTANTIATE_TEST_SUITE_P(Values, AnotherTraceSetting,
                         testing::Values("", "1", "00", "0 ", " 0", "-0", "false", "off"));

}  // namespace
}  // namespace analytics
