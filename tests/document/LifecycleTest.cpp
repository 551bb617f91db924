#include <memory>
#include <string>
#include <tuple>
#include <utility>

#include <gmock/gmock.h>

#include "tests/document/FreedNodes.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/FailingXmlMemory.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

enum class State { kClosed, kOpenWithoutContext, kOpen };

const char* Name(State state) {
  switch (state) {
    case State::kClosed:
      return "Closed";
    case State::kOpenWithoutContext:
      return "OpenWithoutSearchContext";
    default:
      return "Open";
  }
}

State StateOf(Document& document) {
  if (!tests::NodePtr(document.SelectRootNode())) return State::kClosed;
  return tests::First(document, "/*") ? State::kOpen : State::kOpenWithoutContext;
}

/// A document in a state, and the means to lead it to another.
class Subject {
 public:
  explicit Subject(State state) : m_document(state == State::kOpen) {
    if (state != State::kClosed) {
      EXPECT_TRUE(m_document.ParseString("<former/>"));
    }
    EXPECT_EQ(state, StateOf(m_document));
  }

  bool ParseText(const std::string& text, bool makesContext) {
    m_document.MakesContext(makesContext);
    return m_document.ParseString(text);
  }

  bool ParseFile(const std::string& text, bool makesContext) {
    m_document.MakesContext(makesContext);
    return m_document.ParseFile(m_directory.Write("document.xml", text));
  }

  bool ParseMissingFile() { return m_document.ParseFile(m_directory.PathOf("none.xml")); }

  bool Close() {
    m_document.Close();
    return true;
  }

  bool MakeContext() {
    m_document.MakesContext(true);
    return m_document.CreateSearchContext();
  }

  bool FailToMakeContext() {
    const tests::NoXmlMemory exhausted;
    return MakeContext();
  }

  State Now() { return StateOf(m_document); }

 private:
  const tests::TemporaryDirectory m_directory;
  const tests::XmlErrors m_quiet;
  SwitchedDocument m_document;
};

struct Step {
  const char* name;
  bool (*take)(Subject& subject);
  bool answers;  // from an open document
  bool answersWhenClosed;
  State after;  // from an open document
  State afterWhenClosed;
};

const Step kSteps[] = {
    {"AParsedText", [](Subject& s) { return s.ParseText("<a/>", true); }, true, true, State::kOpen,
     State::kOpen},
    {"AParsedTextWithoutContext", [](Subject& s) { return s.ParseText("<a/>", false); }, true, true,
     State::kOpenWithoutContext, State::kOpenWithoutContext},
    {"AnIllFormedText", [](Subject& s) { return s.ParseText("<a>", true); }, false, false,
     State::kClosed, State::kClosed},
    {"AParsedFile", [](Subject& s) { return s.ParseFile("<a/>", true); }, true, true, State::kOpen,
     State::kOpen},
    {"AParsedFileWithoutContext", [](Subject& s) { return s.ParseFile("<a/>", false); }, true, true,
     State::kOpenWithoutContext, State::kOpenWithoutContext},
    {"AnIllFormedFile", [](Subject& s) { return s.ParseFile("<a>", true); }, false, false,
     State::kClosed, State::kClosed},
    {"AMissingFile", [](Subject& s) { return s.ParseMissingFile(); }, false, false, State::kClosed,
     State::kClosed},
    {"Close", [](Subject& s) { return s.Close(); }, true, true, State::kClosed, State::kClosed},
    {"CreateSearchContext", [](Subject& s) { return s.MakeContext(); }, true, false, State::kOpen,
     State::kClosed},
    {"CreateSearchContextInVain", [](Subject& s) { return s.FailToMakeContext(); }, false, false,
     State::kOpenWithoutContext, State::kClosed},
};

using Transition = std::tuple<State, Step>;

class ADocumentIn : public testing::TestWithParam<Transition> {};

TEST_P(ADocumentIn, GoesToTheStateOfTheTable) {
  const State before = std::get<State>(GetParam());
  const Step& step = std::get<Step>(GetParam());
  const bool closed = before == State::kClosed;
  Subject subject(before);
  EXPECT_EQ(closed ? step.answersWhenClosed : step.answers, step.take(subject));
  EXPECT_EQ(closed ? step.afterWhenClosed : step.after, subject.Now());
}

INSTANTIATE_TEST_SUITE_P(States, ADocumentIn,
                         testing::Combine(testing::Values(State::kClosed,
                                                          State::kOpenWithoutContext, State::kOpen),
                                          testing::ValuesIn(kSteps)),
                         [](const testing::TestParamInfo<Transition>& row) {
                           return std::string(Name(std::get<State>(row.param))) + "_After_" +
                                  std::get<Step>(row.param).name;
                         });

TEST(ANewDocument, IsClosed) {
  Document document;
  EXPECT_EQ(State::kClosed, StateOf(document));
  EXPECT_FALSE(document.CreateSearchContext());
}

TEST(Closing, CanBeRepeated) {
  ParsedDocument document("<a/>");
  document.Close();
  document.Close();
  EXPECT_EQ(State::kClosed, StateOf(document));
}

TEST(Closing, FreesTheTree) {
  ParsedDocument document("<a><b/></a>");
  const void* const child = NodeAt(document, "b").Handle();
  const FreedNodes freed;
  document.Close();
  EXPECT_EQ(1, freed.Count(child));
}

TEST(ParsingAgain, FreesTheFormerTree) {
  ParsedDocument document("<a><b/></a>");
  const void* const child = NodeAt(document, "b").Handle();
  const FreedNodes freed;
  ASSERT_TRUE(document.ParseString("<c/>"));
  EXPECT_EQ(1, freed.Count(child));
}

TEST(DestroyingADocument, FreesTheTree) {
  auto document = std::make_unique<ParsedDocument>("<a><b/></a>");
  const void* const child = NodeAt(*document, "b").Handle();
  const FreedNodes freed;
  std::unique_ptr<Document> base = std::move(document);
  base.reset();
  EXPECT_EQ(1, freed.Count(child));
}

}  // namespace
}  // namespace analytics
