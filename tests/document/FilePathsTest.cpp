#include <filesystem>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <libxml/parser.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/PlainTree.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/Unprivileged.h"
#include "tests/support/XmlErrors.h"
#include "tests/support/XmlVersion.h"

namespace analytics {
namespace {

namespace fs = std::filesystem;

const std::string kSaved = "<?xml version=\"1.0\"?>\n<a/>\n";

/// A file and a way of naming it; "@" stands for the directory of the test.
struct Row {
  const char* name;
  std::string file;
  std::string path;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

// Names that a reader of URLs, of shell text or of escapes might take for something else.
const Row kNames[] = {
    {"Blanks", "a b  c.xml", "@/a b  c.xml"},
    {"BlankAtTheEnd", "a.xml ", "@/a.xml "},
    {"Utf8", "\xC3\xA4\xE2\x82\xAC.xml", "@/\xC3\xA4\xE2\x82\xAC.xml"},
    {"BytesThatAreNotUtf8", "\xFF\xFE.xml", "@/\xFF\xFE.xml"},
    {"PercentAlone", "100%.xml", "@/100%.xml"},
    {"PercentBeforeLetters", "a%zz.xml", "@/a%zz.xml"},
    {"QueryAndFragment", "a?b=c#d.xml", "@/a?b=c#d.xml"},
    {"PlusAndAmpersand", "a+b&c.xml", "@/a+b&c.xml"},
    {"Colon", "a:b.xml", "@/a:b.xml"},
    {"Backslash", "a\\b.xml", "@/a\\b.xml"},
    {"Newline", "a\nb.xml", "@/a\nb.xml"},
    {"Quotes", "a'b\"c.xml", "@/a'b\"c.xml"},
    {"ShellText", "~$HOME`*[a].xml", "@/~$HOME`*[a].xml"},
    {"Hyphen", "-", "@/-"},
    {"LongestName", std::string(255, 'n'), "@/" + std::string(255, 'n')},
    {"Detours", "a.xml", "@/.//.././@/./a.xml"},
    {"EndingInNul", "a.xml", "@/a.xml" + std::string("\0b", 2)},
    {"UrlOfNoHost", "a b.xml", "file://@/a b.xml"},
    {"UrlWithEscapes", "a b.xml", "file://@/a%20b.xml"},
    {"UrlOfThisHost", "a b.xml", "file://localhost@/a%20b.xml"},
};

/// Puts the directory in the place of "@"; the second one, if any, is its last step alone.
std::string Resolved(std::string path, const tests::TemporaryDirectory& directory) {
  const std::string::size_type first = path.find('@');
  if (first == std::string::npos) return path;
  const std::string::size_type second = path.find('@', first + 1);
  if (second != std::string::npos) {
    path.replace(second, 1, fs::path(directory.Path()).filename().string());
  }
  return path.replace(first, 1, directory.Path());
}

class AFileName : public testing::TestWithParam<Row> {
 protected:
  const tests::TemporaryDirectory m_directory;
  const std::string m_path = Resolved(GetParam().path, m_directory);
  const tests::XmlErrors m_quiet;
};

TEST_P(AFileName, IsOpenedAsTheFileOfThatName) {
  m_directory.Write(GetParam().file, "<a>text</a>");
  Document document;
  EXPECT_TRUE(document.ParseFile(m_path));
  EXPECT_EQ("text", document.GetSingleValue("/a", nullptr));
}

TEST_P(AFileName, IsSavedToAsTheFileOfThatName) {
  EXPECT_TRUE(ParsedDocument("<a/>").SaveToFile(m_path));
  EXPECT_EQ(kSaved, tests::FileText(m_directory.PathOf(GetParam().file)));
  EXPECT_EQ(1, std::distance(fs::directory_iterator(m_directory.Path()), {}));
}

INSTANTIATE_TEST_SUITE_P(Rows, AFileName, testing::ValuesIn(kNames),
                         testing::PrintToStringParamName());

/// Names with escapes, which libxml2 resolves: always for saving, in some versions for opening.
class AnEscapedName : public testing::Test {
 protected:
  std::string Opened(const char* name) {
    Document document;
    document.ParseFile(m_directory.PathOf(name));
    return document.GetSingleValue("/a", nullptr);
  }

  const tests::TemporaryDirectory m_directory;
  const tests::XmlErrors m_quiet;
};

TEST_F(AnEscapedName, OpensTheFileOfJustThatName) {
  m_directory.Write("a b.xml", "<a>blank</a>");
  m_directory.Write("a%20b.xml", "<a>escape</a>");
  EXPECT_EQ("escape", Opened("a%20b.xml"));
}

TEST_F(AnEscapedName, ElseOpensTheFileWithABlankWhereLibxmlResolvesItForOpening) {
  m_directory.Write("a b.xml", "<a>blank</a>");
  EXPECT_EQ(tests::kXmlOpensResolvedNames ? "blank" : "", Opened("a%20b.xml"));
}

TEST_F(AnEscapedName, IsSavedToAsTheFileWithABlank) {
  EXPECT_TRUE(ParsedDocument("<a>saved</a>").SaveToFile(m_directory.PathOf("a%20b.xml")));
  EXPECT_FALSE(fs::exists(m_directory.PathOf("a%20b.xml")));
  EXPECT_EQ("saved", Opened("a b.xml"));
}

TEST_F(AnEscapedName, EndsAtAnEscapedNulWhereItIsResolved) {
  EXPECT_TRUE(ParsedDocument("<a>saved</a>").SaveToFile(m_directory.PathOf("a.xml%00b")));
  EXPECT_EQ("saved", Opened("a.xml"));
  EXPECT_EQ(tests::kXmlOpensResolvedNames ? "saved" : "", Opened("a.xml%00b"));
}

// Paths that give no document, whatever there is at them.
const Row kRefused[] = {
    {"NullDevice", "", "/dev/null"},
    {"AFileAsDirectory", "a.xml", "@/a.xml/"},
    {"BelowAFile", "a.xml", "@/a.xml/b.xml"},
    {"NameTooLong", "", "@/" + std::string(256, 'n')},
    {"PathTooLong", "a.xml", "@/" + std::string(8000, '/') + "a.xml"},
    {"MegabyteOfPath", "a.xml", std::string(1 << 20, 'n')},
    {"NulFirst", "a.xml", std::string("\0@/a.xml", 8)},
    {"BlankBefore", "a.xml", " @/a.xml"},
    {"OtherCase", "a.xml", "@/A.xml"},
    {"UrlOfAMissingFile", "a.xml", "file://@/b.xml"},
    {"UrlAlone", "a.xml", "file://"},
    {"UrlOfADirectory", "a.xml", "file://@"},
    {"UnknownScheme", "a.xml", "none://@/a.xml"},
};

class ARefusedPath : public testing::TestWithParam<Row> {
 protected:
  const tests::TemporaryDirectory m_directory;
  const std::string m_path = Resolved(GetParam().path, m_directory);
  const tests::XmlErrors m_quiet;
};

TEST_P(ARefusedPath, LeavesTheDocumentClosedAsLibxmlOpensNothing) {
  if (!GetParam().file.empty()) m_directory.Write(GetParam().file, "<a/>");
  EXPECT_FALSE(tests::TreePtr(xmlParseFile(m_path.c_str())));
  ParsedDocument document("<former/>");
  EXPECT_FALSE(document.ParseFile(m_path));
  EXPECT_EQ(nullptr, document.SelectRootNode());
  EXPECT_EQ("", document.DumpToString());
}

INSTANTIATE_TEST_SUITE_P(Rows, ARefusedPath, testing::ValuesIn(kRefused),
                         testing::PrintToStringParamName());

/// Files and directories without permissions, in the eyes of a user who is not root.
class WithoutPermission : public testing::Test {
 protected:
  WithoutPermission() { fs::permissions(m_directory.Path(), fs::perms{0755}); }

  void SetUp() override {
    if (!tests::Unprivileged().IsReady()) GTEST_SKIP() << "root may not change its user";
    fs::permissions(m_path, fs::perms{0444});
  }

  const tests::TemporaryDirectory m_directory;
  const std::string m_path = m_directory.Write("a.xml", "<a>text</a>");
  const tests::XmlErrors m_quiet;
};

TEST_F(WithoutPermission, AFileIsRefusedAndOpenedOnceItIsGranted) {
  Document document;
  fs::permissions(m_path, fs::perms::none);
  EXPECT_FALSE((tests::Unprivileged(), document.ParseFile(m_path)));
  EXPECT_EQ(nullptr, document.SelectRootNode());
  fs::permissions(m_path, fs::perms{0444});
  EXPECT_TRUE((tests::Unprivileged(), document.ParseFile(m_path)));
}

TEST_F(WithoutPermission, AFileBelowAClosedDirectoryIsRefused) {
  Document document;
  fs::permissions(m_directory.Path(), fs::perms::none);
  EXPECT_FALSE((tests::Unprivileged(), document.ParseFile(m_path)));
  fs::permissions(m_directory.Path(), fs::perms{0755});
}

TEST_F(WithoutPermission, SavingReportsSuccessAndLeavesTheFileAsItWas) {
  ParsedDocument document("<b>new</b>");
  EXPECT_TRUE((tests::Unprivileged(), document.SaveToFile(m_path)));
  EXPECT_EQ("<a>text</a>", tests::FileText(m_path));
  EXPECT_EQ("new", document.GetSingleValue("/b", nullptr));
}

TEST_F(WithoutPermission, SavingReportsSuccessAndMakesNoFileInAReadOnlyDirectory) {
  ParsedDocument document("<b>new</b>");
  fs::permissions(m_directory.Path(), fs::perms{0555});
  EXPECT_TRUE((tests::Unprivileged(), document.SaveToFile(m_directory.PathOf("b.xml"))));
  EXPECT_FALSE(fs::exists(m_directory.PathOf("b.xml")));
}

// Targets that take nothing.
const Row kTargets[] = {
    {"NullDevice", "", "/dev/null"},
    {"FullDevice", "", "/dev/full"},
    {"BelowAFile", "a.xml", "@/a.xml/b.xml"},
    {"PathTooLong", "", "@/" + std::string(8000, '/') + "a.xml"},
    {"NameTooLong", "", "@/" + std::string(256, 'n')},
    {"NulFirst", "", std::string("\0@/a.xml", 8)},
    {"UnknownScheme", "", "none://@/a.xml"},
};

/// There may be another file, which the target is below of.
class ATargetThatTakesNothing : public testing::TestWithParam<Row> {};

TEST_P(ATargetThatTakesNothing, IsSavedToWithSuccessAndLeavesTheDocumentOpen) {
  const tests::XmlErrors quiet;
  const tests::TemporaryDirectory directory;
  if (!GetParam().file.empty()) directory.Write(GetParam().file, "former");
  ParsedDocument document("<a>text</a>");
  EXPECT_TRUE(document.SaveToFile(Resolved(GetParam().path, directory)));
  EXPECT_EQ("text", document.GetSingleValue("/a", nullptr));
  const long files = std::distance(fs::directory_iterator(directory.Path()), {});
  EXPECT_EQ(GetParam().file.empty() ? 0 : 1, files);
}

INSTANTIATE_TEST_SUITE_P(Rows, ATargetThatTakesNothing, testing::ValuesIn(kTargets),
                         testing::PrintToStringParamName());

TEST(SavingToAHyphen, WritesToStandardOutput) {
  testing::internal::CaptureStdout();
  const bool saved = ParsedDocument("<a/>").SaveToFile("-");
  EXPECT_EQ(kSaved, testing::internal::GetCapturedStdout());
  EXPECT_TRUE(saved);
}

}  // namespace
}  // namespace analytics
