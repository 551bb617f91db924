#include "host/tavrel-settings/WatchedWay.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include <gtest/gtest.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

namespace fs = std::filesystem;

/// Makes a link, also where one is already, which it takes the place of.
void Link(const std::string& target, const std::string& path) {
  fs::create_symlink(target, path + ".new");
  fs::rename(path + ".new", path);
}

void WriteFile(const std::string& path, const std::string& text) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path) << text;
}

struct Row {
  const char* name;
  std::function<void()> prepare;
  const char* store;
  std::function<void()> change;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

/// All paths are relative to a directory that the process is in. There are the stores
/// one/store.ini, in which x is 1, and two/store.ini, in which x is 2.
const Row kRows[] = {
    {"ALinkThatIsReplaced", [] { Link("one/store.ini", "link"); }, "link",
     [] { Link("two/store.ini", "link"); }},
    {"ALinkThatIsRemovedAndMadeAnew", [] { Link("one/store.ini", "link"); }, "link",
     [] {
       fs::remove("link");
       fs::create_symlink("two/store.ini", "link");
     }},
    {"ALinkThatALinkLeadsTo",
     [] {
       Link("one/store.ini", "one/link");
       Link("one/link", "link");
       Link("store.ini", "one/link");
     },
     "link", [] { Link("../two/store.ini", "one/link"); }},
    {"ALinkThatAFileReplaces", [] { Link("one/store.ini", "link"); }, "link",
     [] { fs::rename("two/store.ini", "link"); }},
    {"ADirectorysLink", [] { Link("one", "now"); }, "now/store.ini", [] { Link("two", "now"); }},
    {"ADirectorysLinkFurtherUp",
     [] {
       WriteFile("first/a/b/store.ini", "[A]\nx=1\n");
       WriteFile("second/a/b/store.ini", "[A]\nx=2\n");
       Link("first", "now");
     },
     "now/a/b/store.ini", [] { Link("second", "now"); }},
    {"ADirectoryThatIsReplaced", [] {}, "one/store.ini",
     [] {
       fs::rename("one", "old");
       fs::rename("two", "one");
     }},
    {"ADirectoryThatIsRemovedAndMadeAnew", [] {}, "one/store.ini",
     [] {
       fs::remove_all("one");
       WriteFile("one/store.ini", "[A]\nx=2\n");
     }},
    {"ADirectoryThatDidNotExist", [] {}, "a/b/store.ini",
     [] { WriteFile("a/b/store.ini", "[A]\nx=2\n"); }},
    {"ADirectoryThatIsMovedIn", [] {}, "a/store.ini", [] { fs::rename("two", "a"); }},
    {"ADanglingLinksTarget", [] { Link("one/other.ini", "link"); }, "link",
     [] { WriteFile("one/other.ini", "[A]\nx=2\n"); }},
    {"ADanglingLinksDirectory", [] { Link("a/b/other.ini", "link"); }, "link",
     [] { WriteFile("a/b/other.ini", "[A]\nx=2\n"); }},
};

class OnTheWay : public testing::Test {
 protected:
  OnTheWay() {
    fs::current_path(m_directory.Path());
    WriteFile("one/store.ini", "[A]\nx=1\n");
    WriteFile("two/store.ini", "[A]\nx=2\n");
  }

  ~OnTheWay() override {
    unsetenv("TAVREL_SETTINGS");
    fs::current_path(m_before);
  }

  void Name(const std::string& store) const {
    setenv("TAVREL_SETTINGS", m_directory.PathOf(store).c_str(), 1);
  }

  const fs::path m_before = fs::current_path();
  const tests::TemporaryDirectory m_directory;
  tests::ChangeRecorder m_recorder;
};

class AChangeOnTheWay : public OnTheWay, public testing::WithParamInterface<Row> {};

TEST_P(AChangeOnTheWay, IsFollowedFromThenOn) {
  GetParam().prepare();
  Name(GetParam().store);
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  client.Subscribe(&m_recorder, "A");
  GetParam().change();
  m_recorder.WaitForValue("A", "x", "2");
  std::ofstream(GetParam().store) << "[A]\nx=3\n";
  m_recorder.WaitForValue("A", "x", "3");
}

INSTANTIATE_TEST_SUITE_P(Rows, AChangeOnTheWay, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

TEST_F(OnTheWay, NothingIsCreatedByWatching) {
  Name("a/b/store.ini");
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  client.Subscribe(&m_recorder, "A");
  EXPECT_FALSE(fs::exists("a"));
}

/// A way from now/store.ini to one/store.ini.
class AWatchedWay : public OnTheWay {
 protected:
  AWatchedWay() { Link("one", "now"); }

  /// How many directories are watched.
  int Watches() const {
    std::ifstream about("/proc/self/fdinfo/" + std::to_string(m_way->Descriptor()));
    int watches = 0;
    for (std::string line; std::getline(about, line);) watches += line.find("inotify") == 0 ? 1 : 0;
    return watches;
  }

  void Follow() { m_way = std::make_unique<WatchedWay>(m_directory.PathOf("now/store.ini")); }

  std::unique_ptr<WatchedWay> m_way;
};

TEST_F(AWatchedWay, LeadsToTheFile) {
  Follow();
  EXPECT_EQ(m_directory.PathOf("one/store.ini"), m_way->File());
  EXPECT_TRUE(m_way->IsWatched());
}

TEST_F(AWatchedWay, IsLeftAloneByWhatHappensBesideIt) {
  Follow();
  WriteFile("one/other.ini", "");
  fs::rename("one/other.ini", "one/another.ini");
  WriteFile("two/store.ini", "");
  fs::create_directory("three");
  EXPECT_EQ(FileChange::kNone, m_way->Take());
}

struct Event {
  const char* name;
  std::function<void()> happen;
  FileChange change;
};

void PrintTo(const Event& row, std::ostream* out) { *out << row.name; }

const Event kEvents[] = {
    {"Nothing", [] {}, FileChange::kNone},
    {"MovingIn", [] { fs::rename("two/store.ini", "one/store.ini"); }, FileChange::kReplaced},
    {"WritingInPlace", [] { std::ofstream("one/store.ini") << "x"; }, FileChange::kOther},
    {"MovingInAndWritingInPlace",
     [] {
       fs::rename("two/store.ini", "one/store.ini");
       std::ofstream("one/store.ini") << "x";
     },
     FileChange::kOther},
    {"MovingAway", [] { fs::rename("one/store.ini", "old.ini"); }, FileChange::kOther},
    {"Removing", [] { fs::remove("one/store.ini"); }, FileChange::kOther},
    {"Permissions", [] { fs::permissions("one/store.ini", fs::perms(0600)); }, FileChange::kOther},
    {"MovingALinkIn", [] { Link("two", "now"); }, FileChange::kOther},
    {"MovingALinkToAFileIn", [] { Link("../two/store.ini", "one/store.ini"); }, FileChange::kOther},
};

class AnEventOnTheWay : public AWatchedWay, public testing::WithParamInterface<Event> {};

TEST_P(AnEventOnTheWay, IsTakenOnce) {
  Follow();
  GetParam().happen();
  EXPECT_EQ(GetParam().change, m_way->Take());
  EXPECT_EQ(FileChange::kNone, m_way->Take());
}

INSTANTIATE_TEST_SUITE_P(Rows, AnEventOnTheWay, testing::ValuesIn(kEvents),
                         testing::PrintToStringParamName());

TEST_F(AWatchedWay, IsNoLongerWatchedWhereItLedBefore) {
  Follow();
  const int watches = Watches();
  for (int turn = 0; turn < 3; ++turn) {
    Link("two", "now");
    m_way->Take();
    Link("one", "now");
    m_way->Take();
  }
  EXPECT_EQ(watches, Watches());
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
