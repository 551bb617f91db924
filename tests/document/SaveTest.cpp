#include <filesystem>
#include <string>

#include <gmock/gmock.h>

#include "tests/document/Indentation.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::IsEmpty;

class Saving : public testing::Test {
 protected:
  /// The bytes of the file that a document of this text is saved to.
  std::string Saved(const std::string& text) {
    EXPECT_TRUE(ParsedDocument(text).SaveToFile(m_path));
    return tests::FileText(m_path);
  }

  const tests::TemporaryDirectory m_directory;
  const std::string m_path = m_directory.PathOf("saved.xml");
  const tests::XmlErrors m_errors;
};

TEST_F(Saving, WritesTheDocumentIndented) {
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a>\n  <b>\n    <c x=\"1\"/>\n  </b>\n  <d>text</d>\n</a>\n",
            Saved("<a><b><c x='1'/></b><d>text</d></a>"));
  EXPECT_THAT(m_errors.Codes(), IsEmpty());
}

TEST_F(Saving, LeavesMixedContentAsItIs) {
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a>1<b><c/></b></a>\n", Saved("<a>1<b><c/></b></a>"));
}

TEST_F(Saving, WritesTheDocumentsOwnEncoding) {
  EXPECT_EQ("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<a>\xE9</a>\n",
            Saved("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>"));
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a>&#xE9;</a>\n", Saved("<a>\xC3\xA9</a>"));
}

TEST_F(Saving, WritesUtf16WholeUnlikeADump) {
  EXPECT_EQ(Utf16("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a>x</a>\n"),
            Saved(Utf16("<?xml version='1.0' encoding='UTF-16'?><a>x</a>")));
}

TEST_F(Saving, ReplacesAnExistingFile) {
  m_directory.Write("saved.xml", "a former file that is longer than the one that is written");
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a/>\n", Saved("<a/>"));
}

TEST_F(Saving, WritesWhatIsReadBack) {
  const std::string first = Saved("<a><b x='1'>text</b></a>");
  Document document;
  ASSERT_TRUE(document.ParseFile(m_path));
  EXPECT_EQ("text", document.GetSingleValue("b[@x=1]", nullptr));
  EXPECT_EQ(first, document.DumpToString());
}

TEST_F(Saving, LeavesTheDocumentOpen) {
  ParsedDocument document("<a><b>text</b></a>");
  ASSERT_TRUE(document.SaveToFile(m_path));
  EXPECT_EQ("text", document.GetSingleValue("b", nullptr));
}

TEST_F(Saving, ToAnEmptyPathFails) { EXPECT_FALSE(ParsedDocument("<a/>").SaveToFile("")); }

TEST_F(Saving, OfAClosedDocumentFailsAndWritesNoFile) {
  Document document;
  EXPECT_FALSE(document.SaveToFile(m_path));
  EXPECT_FALSE(document.SaveToFile(""));
  EXPECT_FALSE(std::filesystem::exists(m_path));
}

TEST_F(Saving, ToAMissingDirectorySucceedsAlthoughNothingIsWritten) {
  const std::string path = m_directory.PathOf("none/saved.xml");
  EXPECT_TRUE(ParsedDocument("<a/>").SaveToFile(path));
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Saving, OverADirectorySucceedsAlthoughNothingIsWritten) {
  EXPECT_TRUE(ParsedDocument("<a/>").SaveToFile(m_directory.Path()));
  EXPECT_TRUE(std::filesystem::is_directory(m_directory.Path()));
}

TEST_F(Saving, ToAFullDeviceSucceedsAlthoughNothingIsWritten) {
  EXPECT_TRUE(ParsedDocument("<a/>").SaveToFile("/dev/full"));
}

TEST_F(Saving, TakesIndentationFromTheProcessWideSwitch) {
  const Indentation none(0);
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<a>\n<b/>\n</a>\n", Saved("<a><b/></a>"));
}

}  // namespace
}  // namespace analytics
