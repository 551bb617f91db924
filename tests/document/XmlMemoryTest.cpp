#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/document/XmlErrors.h"
#include "tests/document/XmlMemory.h"

namespace analytics {
namespace {

using testing::IsEmpty;

/// What libxml2 cannot do for want of memory shows as a result, never as an exception.
class WithoutMemoryForLibxml2 : public testing::Test {
 protected:
  template <typename Operation>
  static auto Exhausted(Operation operation) {
    const NoXmlMemory exhausted;
    return operation();
  }

  ParsedDocument m_document{"<r x='1'><a>text</a></r>"};
  DocumentNode m_root = NodeAt(m_document, "/r");
  const XmlErrors m_quiet;
};

TEST_F(WithoutMemoryForLibxml2, ParsingFailsAndClosesTheDocument) {
  EXPECT_FALSE(Exhausted([this] { return m_document.ParseString("<b/>"); }));
  EXPECT_EQ(nullptr, m_document.SelectRootNode());
}

TEST_F(WithoutMemoryForLibxml2, QueriesSelectNothing) {
  EXPECT_EQ(nullptr, Exhausted([this] { return m_document.SelectNode("a"); }));
  EXPECT_THAT(Exhausted([this] { return m_document.SelectNodes("a"); }), IsEmpty());
  EXPECT_EQ("", Exhausted([this] { return m_document.GetSingleValue("a"); }));
  EXPECT_THAT(Exhausted([this] { return m_document.GetMultipleValues("a"); }), IsEmpty());
  EXPECT_EQ(7, Exhausted([this] { return m_document.GetSingleValue("a", 7); }));
  EXPECT_EQ(0, Exhausted([this] { return m_document.DeleteNodes("a"); }));
}

TEST_F(WithoutMemoryForLibxml2, QueriesWorkAgainOnceThereIsSome) {
  EXPECT_EQ("", Exhausted([this] { return m_document.GetSingleValue("a"); }));
  EXPECT_EQ("text", m_document.GetSingleValue("a"));
}

TEST_F(WithoutMemoryForLibxml2, NodesReadAsEmpty) {
  EXPECT_EQ("", Exhausted([this] { return m_root.GetProperty("x"); }));
  EXPECT_EQ(7, Exhausted([this] { return m_root.GetProperty("x", 7); }));
  EXPECT_EQ("", Exhausted([this] { return m_root.DumpToString(); }));
  EXPECT_EQ("1", m_root.GetProperty("x"));
}

TEST_F(WithoutMemoryForLibxml2, ANewChildIsAnEmptyNode) {
  const tests::NodePtr child(Exhausted([this] { return m_root.AddNewChild("b", "text"); }));
  ASSERT_TRUE(child);
  EXPECT_EQ(nullptr, child->Handle());
  EXPECT_EQ("<r x=\"1\"><a>text</a></r>", RootDump(m_document));
}

TEST_F(WithoutMemoryForLibxml2, SavingStillSucceeds) {
  EXPECT_TRUE(Exhausted([this] { return m_document.SaveToFile("/nonexistent/a.xml"); }));
}

}  // namespace
}  // namespace analytics
