#include <cstdio>
#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::IsEmpty;
using testing::Not;

class ParsingAFile : public testing::Test {
 protected:
  bool IsOpen() { return tests::NodePtr(m_document.SelectRootNode()) != nullptr; }

  void ExpectRefused(const std::string& path) {
    ASSERT_TRUE(m_document.ParseString("<former/>"));
    EXPECT_FALSE(m_document.ParseFile(path));
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(m_document.CreateSearchContext());
  }

  const tests::TemporaryDirectory m_directory;
  Document m_document;
  const tests::XmlErrors m_errors;
};

TEST_F(ParsingAFile, OpensTheDocument) {
  EXPECT_TRUE(m_document.ParseFile(m_directory.Write("a.xml", "<a><b>text</b></a>")));
  EXPECT_EQ("text", m_document.GetSingleValue("b", nullptr));
  EXPECT_THAT(m_errors.Codes(), IsEmpty());
}

TEST_F(ParsingAFile, ReplacesTheFormerDocument) {
  ASSERT_TRUE(m_document.ParseFile(m_directory.Write("a.xml", "<a>first</a>")));
  ASSERT_TRUE(m_document.ParseFile(m_directory.Write("b.xml", "<b>second</b>")));
  EXPECT_EQ("", m_document.GetSingleValue("/a", nullptr));
  EXPECT_EQ("second", m_document.GetSingleValue("/b", nullptr));
}

TEST_F(ParsingAFile, FindsANameWithBlanksAndUmlauts) {
  EXPECT_TRUE(m_document.ParseFile(m_directory.Write("a b \xC3\xA4.xml", "<a/>")));
}

TEST_F(ParsingAFile, TakesThePathUpToItsFirstNul) {
  const std::string path = m_directory.Write("a.xml", "<a/>");
  EXPECT_TRUE(m_document.ParseFile(path + std::string("\0ignored", 8)));
}

TEST_F(ParsingAFile, RefusesAMissingFile) {
  ExpectRefused(m_directory.PathOf("none.xml"));
  EXPECT_THAT(m_errors.Codes(), Not(IsEmpty()));
}

TEST_F(ParsingAFile, RefusesAnEmptyPath) { ExpectRefused(""); }

TEST_F(ParsingAFile, RefusesADirectory) { ExpectRefused(m_directory.Path()); }

TEST_F(ParsingAFile, RefusesAnEmptyFile) { ExpectRefused(m_directory.Write("empty.xml", "")); }

TEST_F(ParsingAFile, RefusesAFileThatIsNotWellFormed) {
  ExpectRefused(m_directory.Write("broken.xml", "<a><b></a>"));
  EXPECT_THAT(m_errors.Codes(), Not(IsEmpty()));
}

TEST_F(ParsingAFile, WorksAgainAfterAFailure) {
  ASSERT_FALSE(m_document.ParseFile(m_directory.PathOf("none.xml")));
  EXPECT_TRUE(m_document.ParseFile(m_directory.Write("a.xml", "<a/>")));
  EXPECT_TRUE(IsOpen());
}

TEST_F(ParsingAFile, NeedsTheFileNoLongerOnceItIsParsed) {
  const std::string path = m_directory.Write("a.xml", "<a>text</a>");
  ASSERT_TRUE(m_document.ParseFile(path));
  ASSERT_EQ(0, std::remove(path.c_str()));
  EXPECT_EQ("text", m_document.GetSingleValue("/a", nullptr));
}

TEST_F(ParsingAFile, ReadsStandardInputForAHyphen) {
  const std::string path = m_directory.Write("a.xml", "<a>text</a>");
  tests::InFreshProcess([&] {
    ASSERT_NE(nullptr, std::freopen(path.c_str(), "r", stdin));
    EXPECT_TRUE(m_document.ParseFile("-"));
    EXPECT_EQ("text", m_document.GetSingleValue("/a", nullptr));
  });
}

}  // namespace
}  // namespace analytics
