#include <cerrno>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "tests/host/tavrel/ChildProcess.h"
#include "tests/host/tavrel/StoreTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Unprivileged.h"

namespace {

int RealSync(int file) { return static_cast<int>(syscall(SYS_fsync, file)); }

int (*s_sync)(int) = RealSync;

}  // namespace

/// Found by the libraries in the place of the C library's.
extern "C" int fsync(int file) { return s_sync(file); }

namespace tavrel {
namespace settings {
namespace {

namespace fs = std::filesystem;

using testing::UnorderedElementsAre;

constexpr const char* kBefore = "[A]\nx=1\n";
constexpr const char* kAfter = "[A]\nx=2\n";

class AWrite : public tests::StoreTest {
 protected:
  AWrite() { Write(kBefore); }
  ~AWrite() override { s_sync = RealSync; }

  void ExpectNothingElse() const {
    EXPECT_THAT(Names(), UnorderedElementsAre("store.ini", "store.ini.lock"));
  }
};

TEST_F(AWrite, RemovesWhatAKilledWriterLeft) {
  tests::ChildProcess killed([] {
    s_sync = [](int) { return raise(SIGKILL); };
    Set("A", "x", "3");
    return EXIT_SUCCESS;
  });
  killed.Wait();
  EXPECT_EQ(3U, Names().size()) << "nothing was left";
  EXPECT_EQ(kBefore, Text());
  Set("A", "x", "2");
  ExpectNothingElse();
}

TEST_F(AWrite, ThatChangesNothingRemovesWhatAKilledWriterLeft) {
  fs::permissions(m_directory.Write(".store.ini.new-12-0", ""), fs::perms(0444));
  Set("A", "x", "1");
  ExpectNothingElse();
}

TEST_F(AWrite, RemovesNothingElse) {
  for (const char* name : {".store.ini.new-", ".store.ini.new-1-0.swp", "store.ini.new", "x.ini"})
    m_directory.Write(name, "");
  const auto names = Names();
  Set("A", "x", "2");
  auto expected = names;
  expected.erase(".store.ini.new-");
  expected.insert("store.ini.lock");
  EXPECT_EQ(expected, Names());
}

TEST_F(AWrite, SucceedsThoughWhatIsLeftCannotBeRemoved) {
  fs::create_directory(m_directory.PathOf(".store.ini.new-12-0"));
  Set("A", "x", "2");
  EXPECT_EQ(kAfter, Text());
}

TEST_F(AWrite, TakesAnotherNameThanWhatIsThere) {
  static std::string s_name;
  s_sync = [](int file) {
    s_name = fs::read_symlink("/proc/self/fd/" + std::to_string(file));
    s_sync = RealSync;
    return 0;
  };
  Set("A", "x", "3");
  const std::size_t dash = s_name.rfind('-') + 1;
  const int next = std::stoi(s_name.substr(dash)) + 1;
  fs::create_directory(s_name.substr(0, dash) + std::to_string(next));
  Set("A", "x", "2");
  EXPECT_EQ(kAfter, Text());
}

TEST_F(AWrite, LeavesToOthersTheNameThatItNeedsNoMore) {
  static std::string s_name;
  s_name.clear();
  s_sync = [](int file) {
    if (s_name.empty())
      s_name = fs::read_symlink("/proc/self/fd/" + std::to_string(file));
    else
      std::ofstream(s_name).put('x');  // as another machine's or container's process
    return 0;
  };
  Set("A", "x", "2");
  EXPECT_EQ("x", tests::FileText(s_name));
}

TEST_F(AWrite, BeyondTheLimitOfFileSizesLeavesNothing) {
  tests::InFreshProcess([this] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {100, 100};
    ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &limit));
    EXPECT_THAT([] { Set("A", "x", std::string(200, '2')); },
                tests::FailsOn(Path(), "File too large"));
  });
  EXPECT_EQ(kBefore, Text());
  ExpectNothingElse();
}

TEST_F(AWrite, ThatDoesNotReachTheDiskLeavesNothing) {
  s_sync = [](int) {
    errno = EIO;
    return -1;
  };
  EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(Path(), "error"));
  EXPECT_EQ(kBefore, Text());
  ExpectNothingElse();
}

TEST_F(AWrite, SucceedsWhereNothingCanBeSynced) {
  static int s_calls;
  s_calls = 0;
  s_sync = [](int) {
    ++s_calls;
    errno = EINVAL;
    return -1;
  };
  Set("A", "x", "2");
  EXPECT_EQ(kAfter, Text());
  EXPECT_EQ(2, s_calls) << "of the file and of its directory";
}

TEST_F(AWrite, SucceedsThoughItsDirectoryIsNotOnTheDisk) {
  static int s_calls;
  s_calls = 0;
  s_sync = [](int file) {
    if (++s_calls == 1) return RealSync(file);
    errno = EIO;
    return -1;
  };
  Set("A", "x", "2");
  EXPECT_EQ(kAfter, Text());
}

TEST_F(AWrite, SucceedsInADirectoryThatCannotBeRead) {
  fs::permissions(m_directory.Path(), fs::perms(0300));
  for (const std::string& path : {m_directory.Path(), Path()})
    if (geteuid() == 0) {
      ASSERT_EQ(0, chown(path.c_str(), 65534, getegid()));
    }
  tests::InFreshProcess([] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    Set("A", "x", "2");
  });
  fs::permissions(m_directory.Path(), fs::perms(0700));
  EXPECT_EQ(kAfter, Text());
  ExpectNothingElse();
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
