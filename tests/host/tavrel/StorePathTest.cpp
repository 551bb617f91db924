#include "host/tavrel-settings/StorePath.h"

#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

#include "tests/support/FreshProcess.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {
namespace settings {
namespace {

namespace fs = std::filesystem;

struct Row {
  const char* name;
  const char* path;
  const char* leadsTo;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

/// All in a directory with a/b/file and the links that the fixture makes.
const Row kRows[] = {
    {"File", "/a/b/file", "/a/b/file"},
    {"FileThatDoesNotExist", "/a/x/y", "/a/x/y"},
    {"Slashes", "//a///b/file", "/a/b/file"},
    {"SlashAtTheEnd", "/a/b/", "/a/b"},
    {"Dot", "/a/./b/./file", "/a/b/file"},
    {"TwoDots", "/a/b/../b/file", "/a/b/file"},
    {"TwoDotsBehindALink", "/toB/../x", "/a/x"},
    {"LinkToAFile", "/toFile", "/a/b/file"},
    {"LinkToADirectory", "/toB/file", "/a/b/file"},
    {"AbsoluteLink", "/absolute/file", "/a/b/file"},
    {"LinkToALink", "/toLink", "/a/b/file"},
    {"DanglingLink", "/dangling", "/a/x"},
    {"LinkUpwards", "/a/up/a", "/a"},
};

class APath : public testing::Test {
 protected:
  APath() {
    fs::create_directories(Below("/a/b"));
    m_directory.Write("a/b/file", "");
    Link("a/b/file", "/toFile");
    Link("a/b", "/toB");
    Link(Below("/a/b"), "/absolute");
    Link("toFile", "/toLink");
    Link("a/x", "/dangling");
    Link("..", "/a/up");
    Link("loop", "/loop");
  }

  void Link(const std::string& target, const std::string& link) const {
    fs::create_symlink(target, Below(link));
  }

  std::string Below(const std::string& path) const { return m_directory.Path() + path; }

  const tests::TemporaryDirectory m_directory;
};

class AWay : public APath, public testing::WithParamInterface<Row> {};

TEST_P(AWay, IsFollowed) {
  EXPECT_EQ(Below(GetParam().leadsTo), FollowedPath(Below(GetParam().path)));
}

INSTANTIATE_TEST_SUITE_P(Rows, AWay, testing::ValuesIn(kRows), testing::PrintToStringParamName());

TEST_F(APath, ThatNeverEndsIsReported) {
  EXPECT_THROW(FollowedPath(Below("/loop")), std::system_error);
}

TEST_F(APath, MayBeTheRoot) {
  EXPECT_EQ("/", FollowedPath("/"));
  EXPECT_EQ("/", FollowedPath("/.."));
}

TEST_F(APath, HasEachOfItsStepsSeenBeforehand) {
  std::string steps;
  FollowedPath(Below("/toB/x"), [&](const std::string& directory, const std::string& name) {
    if (directory.find(Below("")) == 0)
      steps += directory.substr(Below("").size()) + ">" + name + " ";
  });
  EXPECT_EQ(">toB >a /a>b /a/b>x ", steps);
}

TEST(ARelativeName, StartsWhereTheLibraryWasLoaded) {
  tests::InFreshProcess([] {
    const std::string start = fs::current_path();
    setenv("TAVREL_SETTINGS", "some/store.ini", 1);
    fs::current_path("/");
    EXPECT_EQ(start + "/some/store.ini", NamedStore());
  });
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
