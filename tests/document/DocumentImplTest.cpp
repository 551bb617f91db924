#include <cstring>
#include <string>

#include <gmock/gmock.h>
#include <libxml/tree.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/FailingXmlMemory.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Impl = ShownDocument::Impl;

const char kText[] = "<a xmlns:p='urn:p'><b>1</b><b/><b>2.5</b></a>";

/// The implementation without a document around it: no search context is made by parsing.
class AnImplementation : public testing::Test {
 protected:
  bool Parse() { return m_impl.ParseString(kText, sizeof kText - 1); }

  Impl m_impl;
  const tests::XmlErrors m_quiet;
};

TEST_F(AnImplementation, HasTwoPointers) { EXPECT_EQ(2 * sizeof(void*), sizeof(Impl)); }

TEST_F(AnImplementation, HasItsTreeBeforeItsContext) {
  ASSERT_TRUE(Parse());
  const void* fields[2] = {};
  std::memcpy(fields, static_cast<const void*>(&m_impl), sizeof m_impl);
  EXPECT_NE(nullptr, fields[0]);
  EXPECT_EQ(nullptr, fields[1]);
}

TEST_F(AnImplementation, IsThatOfItsDocument) {
  ShownDocument document;
  ASSERT_TRUE(document.ParseString(kText));
  EXPECT_EQ("1", document.Implementation().GetValue("b", nullptr));
  document.Implementation().Close();
  EXPECT_FALSE(tests::NodePtr(document.SelectRootNode()));
}

TEST_F(AnImplementation, MakesNoContextWithoutADocument) {
  EXPECT_FALSE(m_impl.CreateXPathContext(false));
  EXPECT_FALSE(m_impl.CreateXPathContext(true));
  ASSERT_TRUE(Parse());
  EXPECT_EQ(nullptr, m_impl.SelectNode("b", nullptr));
}

TEST_F(AnImplementation, MakesNoContextByParsing) {
  ASSERT_TRUE(Parse());
  EXPECT_EQ("", m_impl.GetValue("b", nullptr));
  EXPECT_TRUE(m_impl.CreateXPathContext(false));
  EXPECT_EQ("1", m_impl.GetValue("b", nullptr));
}

TEST_F(AnImplementation, MakesNoContextAfterClosing) {
  ASSERT_TRUE(Parse());
  ASSERT_TRUE(m_impl.CreateXPathContext(false));
  m_impl.Close();
  EXPECT_FALSE(m_impl.CreateXPathContext(false));
}

TEST_F(AnImplementation, HasNoContextAfterAFailedOne) {
  ASSERT_TRUE(Parse());
  ASSERT_TRUE(m_impl.CreateXPathContext(false));
  const auto fail = [this] {
    const tests::NoXmlMemory exhausted;
    return m_impl.CreateXPathContext(true);
  };
  EXPECT_FALSE(fail());
  EXPECT_EQ("", m_impl.GetValue("b", nullptr));
}

TEST_F(AnImplementation, ParsesAFile) {
  const tests::TemporaryDirectory directory;
  EXPECT_TRUE(m_impl.ParseFile(directory.Write("a.xml", kText)));
  EXPECT_FALSE(m_impl.ParseFile(directory.PathOf("none.xml")));
  EXPECT_EQ(nullptr, m_impl.SelectRootNode());
}

TEST_F(AnImplementation, GivesTheRootElementAsTheContextNodeOfNull) {
  ASSERT_TRUE(Parse());
  const tests::NodePtr root(m_impl.SelectRootNode());
  EXPECT_EQ(root->Handle(), m_impl.GetContextNode(nullptr));
}

TEST_F(AnImplementation, GivesTheNodeOfAGivenContext) {
  ASSERT_TRUE(Parse());
  ASSERT_TRUE(m_impl.CreateXPathContext(false));
  const tests::NodePtr node(m_impl.SelectNode("b[3]", nullptr));
  EXPECT_EQ(node->Handle(), m_impl.GetContextNode(node.get()));
}

TEST_F(AnImplementation, GivesNullAsTheContextNodeOfAnEmptyNode) {
  ASSERT_TRUE(Parse());
  DocumentNode empty;
  EXPECT_EQ(nullptr, m_impl.GetContextNode(&empty));
}

TEST_F(AnImplementation, GivesNullAsTheContextNodeOfAClosedDocument) {
  EXPECT_EQ(nullptr, m_impl.GetContextNode(nullptr));
}

TEST_F(AnImplementation, AnswersQueries) {
  ASSERT_TRUE(Parse());
  ASSERT_TRUE(m_impl.CreateXPathContext(false));
  EXPECT_EQ("1", m_impl.GetValue("b", nullptr));
  EXPECT_EQ(1, m_impl.GetValue("b", 7, nullptr));
  EXPECT_EQ(2.5, m_impl.GetNumericValue("b[3]", 7, nullptr));
  EXPECT_THAT(m_impl.GetValues("b", nullptr), ElementsAre("1", "2.5"));
  EXPECT_THAT(tests::Owned(m_impl.SelectNodes("b", nullptr)), SizeIs(3));
  EXPECT_EQ(3, m_impl.DeleteNodes("b", nullptr));
}

TEST_F(AnImplementation, AnswersNoQueryWhenClosed) {
  EXPECT_EQ(nullptr, m_impl.SelectNode("b", nullptr));
  EXPECT_THAT(m_impl.SelectNodes("b", nullptr), IsEmpty());
  EXPECT_EQ("", m_impl.GetValue("b", nullptr));
  EXPECT_THAT(m_impl.GetValues("b", nullptr), IsEmpty());
  EXPECT_EQ(7, m_impl.GetValue("b", 7, nullptr));
  EXPECT_EQ(0.10000000149011612, m_impl.GetNumericValue("b", 0.1, nullptr));
  EXPECT_EQ(0, m_impl.DeleteNodes("b", nullptr));
  EXPECT_EQ("", m_impl.DumpToString());
}

TEST_F(AnImplementation, FindsNamespaces) {
  ASSERT_TRUE(Parse());
  const tests::NodePtr root(m_impl.SelectRootNode());
  ASSERT_NE(nullptr, m_impl.GetNs("p"));
  EXPECT_EQ(m_impl.GetNs("p"), m_impl.GetNs("p", root.get()));
  EXPECT_EQ(nullptr, m_impl.GetNs("p", nullptr));
}

TEST_F(AnImplementation, FindsNoNamespacesWhenClosed) {
  DocumentNode empty;
  testing::internal::CaptureStdout();
  EXPECT_EQ(nullptr, m_impl.GetNs("p"));
  EXPECT_EQ(nullptr, m_impl.GetNs("p", &empty));
  EXPECT_EQ("", testing::internal::GetCapturedStdout());
}

TEST_F(AnImplementation, SavesAFileOnlyIfADocumentIsOpen) {
  const tests::TemporaryDirectory directory;
  EXPECT_FALSE(m_impl.SaveToFile(directory.PathOf("a.xml")));
  ASSERT_TRUE(m_impl.ParseString("<a/>", 4));
  EXPECT_TRUE(m_impl.SaveToFile(directory.PathOf("a.xml")));
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a/>\n", tests::FileText(directory.PathOf("a.xml")));
}

TEST_F(AnImplementation, LeavesItToItsDocumentToRefuseAnEmptyPath) {
  ASSERT_TRUE(Parse());
  EXPECT_TRUE(m_impl.SaveToFile(""));
}

}  // namespace
}  // namespace analytics
