#include <memory>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>
#include <analytics/types/Point.h>

#include "tests/document/Indentation.h"
#include "tests/document/TestDocuments.h"
#include "tests/document/XmlErrors.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using tests::WithEachAllocationFailing;

// The texts are too long for the buffer within a string object.
const char kText[] =
    "<r><a>a text that is long enough</a><a>another text, long enough</a>"
    "<n>                    12 px</n><x>                    5 px</x></r>";

/// Paths, results and documents are made outside of what is run, so that the allocations which fail
/// are the library's own.
class ADocumentOutOfMemory : public testing::Test {
 protected:
  ADocumentOutOfMemory() { Settings::OnvifPrefix(); }

  void TearDown() override { EXPECT_EQ(m_before, RootDump(m_document)); }

  ParsedDocument m_document{kText};
  const std::string m_before = RootDump(m_document);
  const std::string m_path = "a";
  const XmlErrors m_quiet;
};

TEST_F(ADocumentOutOfMemory, IsNotConstructed) {
  std::unique_ptr<Document> made;
  WithEachAllocationFailing([&] { made = std::make_unique<Document>(); });
  ASSERT_TRUE(made);
  EXPECT_TRUE(made->ParseString("<a/>"));
}

TEST_F(ADocumentOutOfMemory, GivesNoRootNode) {
  tests::NodePtr root;
  WithEachAllocationFailing([&] { root.reset(m_document.SelectRootNode()); });
  ASSERT_TRUE(root);
  EXPECT_EQ(m_before, root->DumpToString());
}

TEST_F(ADocumentOutOfMemory, GivesNoNode) {
  tests::NodePtr node;
  WithEachAllocationFailing([&] { node.reset(m_document.SelectNode(m_path)); });
  ASSERT_TRUE(node);
  EXPECT_EQ("a text that is long enough", node->GetValue());
}

TEST_F(ADocumentOutOfMemory, GivesNoNodesAndLosesNone) {
  std::vector<DocumentNode*> nodes;
  WithEachAllocationFailing([&] { nodes = m_document.SelectNodes(m_path); });
  EXPECT_THAT(tests::Owned(nodes), SizeIs(2));
}

TEST_F(ADocumentOutOfMemory, GivesNoText) {
  std::string text;
  WithEachAllocationFailing([&] { text = m_document.GetSingleValue(m_path); });
  EXPECT_EQ("a text that is long enough", text);
}

TEST_F(ADocumentOutOfMemory, GivesNoTexts) {
  std::vector<std::string> texts;
  WithEachAllocationFailing([&] { texts = m_document.GetMultipleValues(m_path); });
  EXPECT_THAT(texts, ElementsAre("a text that is long enough", "another text, long enough"));
}

TEST_F(ADocumentOutOfMemory, GivesNoInteger) {
  int number = 0;
  WithEachAllocationFailing([&] { number = m_document.GetSingleValue("n", 7); });
  EXPECT_EQ(12, number);
}

TEST_F(ADocumentOutOfMemory, GivesNoFloatingNumber) {
  double number = 0;
  WithEachAllocationFailing([&] { number = m_document.GetNumericValue("n", 7); });
  EXPECT_EQ(12.0, number);
}

TEST_F(ADocumentOutOfMemory, LeavesAPointAsItWas) {
  DocumentNode root = NodeAt(m_document, "/r");
  types::Point point{1, 2};
  WithEachAllocationFailing([&] {
    EXPECT_EQ(1, point.x);
    EXPECT_EQ(2, point.y);
    m_document.PointFromNode(&root, point);
  });
  EXPECT_EQ(5, point.x);
}

TEST_F(ADocumentOutOfMemory, GivesNoDump) {
  const Indentation none(0);
  std::string text;
  WithEachAllocationFailing([&] {
    EXPECT_EQ(0, xmlIndentTreeOutput);
    text = m_document.DumpToString();
  });
  EXPECT_EQ(0, xmlIndentTreeOutput);
  EXPECT_EQ(m_document.DumpToString(), text);
}

TEST_F(ADocumentOutOfMemory, GivesNoDumpOfANode) {
  DocumentNode root = NodeAt(m_document, "/r");
  std::string text;
  WithEachAllocationFailing([&] { text = root.DumpToString(); });
  EXPECT_EQ(m_before, text);
}

/// Opening a document that binds namespaces copies texts of the settings.
class ABindingDocumentOutOfMemory : public testing::Test {
 protected:
  ABindingDocumentOutOfMemory() { Settings::OnvifPrefix(); }

  void ExpectOpen() { EXPECT_EQ("a text that is long enough", m_document.GetSingleValue("tt:a")); }

  BindingDocument m_document;
  const std::string m_text =
      "<r xmlns='http://www.onvif.org/ver10/schema'><a>a text that is long enough</a></r>";
  const XmlErrors m_quiet;
};

TEST_F(ABindingDocumentOutOfMemory, IsOpenedFromTextAtLast) {
  WithEachAllocationFailing([&] { m_document.ParseString(m_text); });
  ExpectOpen();
}

TEST_F(ABindingDocumentOutOfMemory, IsOpenedFromABufferAtLast) {
  WithEachAllocationFailing([&] { m_document.ParseString(m_text.data(), m_text.size()); });
  ExpectOpen();
}

TEST_F(ABindingDocumentOutOfMemory, IsOpenedFromAFileAtLast) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.Write("a.xml", m_text);
  WithEachAllocationFailing([&] { m_document.ParseFile(path); });
  ExpectOpen();
}

TEST_F(ABindingDocumentOutOfMemory, HasItsContextMadeAtLast) {
  ASSERT_TRUE(m_document.ParseString(m_text));
  int runs = 0;
  WithEachAllocationFailing([&] {
    // The former context is gone after a failure, and with it every answer.
    if (runs++ > 0) {
      EXPECT_EQ(0, m_document.DeleteNodes("/*"));
    }
    m_document.CreateSearchContext();
  });
  ExpectOpen();
}

TEST_F(ABindingDocumentOutOfMemory, IsOpenWithoutContextAfterAFailure) {
  int runs = 0;
  WithEachAllocationFailing([&] {
    if (runs++ > 0) {
      EXPECT_EQ(0, m_document.DeleteNodes("/*"));
    }
    m_document.ParseString(m_text);
  });
  EXPECT_GT(runs, 1);
  ExpectOpen();
}

}  // namespace
}  // namespace analytics
